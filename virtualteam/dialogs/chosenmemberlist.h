// The people whom a user has picked, each with a cross to take them out again; the
// Delete key does the same to the current one.
#pragma once

#include "virtualteam/dialogs/cvirtualteammemberlistview.h"

class ChosenMemberList : public CVirtualTeamMemberListView
{
    Q_OBJECT

public:
    explicit ChosenMemberList(QWidget *parent = nullptr);

signals:
    // The list itself changes nothing.
    void signal_deleteItem(const QString &userId);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    QModelIndex crossAt(const QPoint &position) const; // the row of it, or invalid

    QPersistentModelIndex m_pressedCross;
};
