// The header of a contact group: arrow, name, and how many of its contacts are
// online. A widget over the group's row; the view places it and keeps it only
// while the row is on screen.
#pragma once

#include <QLabel>
#include <QPersistentModelIndex>

class GroupLabel : public QLabel
{
    Q_OBJECT

public:
    // `viewport` is the parent; all positions below are in its coordinates.
    explicit GroupLabel(QWidget *viewport);

    QModelIndex index() const { return m_index; }
    // Shows the group of a row.
    void setIndex(const QModelIndex &index);
    // Takes name and counts from the row again.
    void refresh();
    void setState(bool expanded, bool selected, bool focused);
    void setDropTarget(bool target);

    QSize minimumSizeHint() const override { return QSize(0, 0); }

signals:
    void signal_clickgroup();
    void signal_mousepress();
    void signal_contextMenu(QPoint pos);
    void signal_dropPos(QPoint pos);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QPersistentModelIndex m_index;
    bool m_expanded = false;
    bool m_selected = false;
    bool m_focused = false;
    bool m_dropTarget = false;
    bool m_pressed = false;
};
