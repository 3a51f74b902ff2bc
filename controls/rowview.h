// The base of all lists and trees of people, rooms and the like: their look, what
// keeps a large one fast, type to find, and that nothing moves under the pointer.
#pragma once

#include <QTimer>
#include <QTreeView>

class QMenu;
class ScrollAnchor;
class TypeFinder;

class RowView : public QTreeView
{
    Q_OBJECT

public:
    // The model is not owned. `nameRole`: what typing finds; a row without text
    // there is passed over.
    RowView(QAbstractItemModel *model, int nameRole, QWidget *parent = nullptr);

    // Makes a row current and shows it, its parents opened.
    void reveal(const QModelIndex &index);

    void doItemsLayout() override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    void keyboardSearch(const QString &search) override;

signals:
    // Whether the pointer is over the list, a menu is open or something is being
    // dragged: while it is so, no row may move.
    void orderHeld(bool held);
    // Enter or a double click on a row.
    void activatedRow(const QModelIndex &index);

protected:
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

    TypeFinder *finder() const { return m_finder; }
    // Where the event asks for a menu, in the viewport: the Menu key, at the current
    // row.
    QPoint menuPosition(const QContextMenuEvent &event) const;
    // Pops the menu up and holds the order as long as it is open.
    void popUp(QMenu *menu, const QPoint &viewportPosition);
    // What else holds the order, besides pointer and menu; after a change of it call
    // updateHold().
    virtual bool isHolding() const { return false; }
    void updateHold();

private:
    ScrollAnchor *m_anchor;
    TypeFinder *m_finder;
    QTimer m_pointerAtRest;
    QMetaObject::Connection m_menuHides;
    bool m_menuOpen = false;
    bool m_held = false;
};
