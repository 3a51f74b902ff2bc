// The friend tree on screen: headers, menus, keys, drag and drop. Shows a
// FriendTreeModel and turns what the user does into FriendCommands.
#pragma once

#include "controls/rowview.h"
#include "controls/skinmenu.h"

#include <QPointer>
#include <QStringList>
#include <QTimer>

class FriendCommands;
class FriendTreeModel;
class GroupLabel;
class GroupLabels;
class MyDrag;

class FriendTreeView : public RowView
{
    Q_OBJECT

public:
    // `inner`: the roster's contacts; false: the external ones.
    FriendTreeView(FriendTreeModel *model, bool inner, QWidget *parent = nullptr);
    ~FriendTreeView() override;

    FriendCommands *commands() const { return m_commands; }
    // The user's switch in the menu, as opposed to what the list shows.
    void setHideOffline(bool hide);

    // signal_loadGroupTimeOut() follows unless groupsArrived() is called in time.
    void waitForGroups();
    void groupsArrived();
    bool isWaitingForGroups() const { return m_groupTimeOut.isActive(); }

    SkinMenu *creatCommonGroupMenu();
    SkinMenu *creatCommonSigaleMenu();
    SkinMenu *creatNullGroupMenu();
    SkinMenu *creatSelectMoreMenu();

    void doItemsLayout() override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

signals:
    void signal_stopactive(QString jid);
    void signal_isexpand(bool isexpanded, QString groupname);
    void signal_expandContact(bool bExpandContact);
    void signal_addfriend(QString frdjid);
    void signal_selectionChanged(QModelIndex index);
    void signal_loadGroupTimeOut();
    void signal_orgClickItem();
    void waitingForGroups(bool waiting);

public slots:
    void groupMenuClick(QAction *action);
    void menuClick(QAction *action);
    void slot_nullmenu(QAction *action);
    void slot_dMenu(QAction *action);
    void FriendMove(QAction *action);
    void slot_dropend(bool candrag, QString parameter);
    void slot_dropEvent(QPoint pos);
    void slot_contextMenu(QPoint pos);
    void slot_vScrollBarContextMenu(QPoint pos);
    void slot_click(QModelIndex index);
    void slot_expanded(QModelIndex expandedIndex);
    void slot_collapsed(QModelIndex collapsedIndex);
    void slot_clickLabel();
    void slot_labelpress();
    void slot_getGroupAgain();
    void slot_loadGroupTimeOut();
    void slot_signShow();
    void slot_sendMail(bool b);
    void slot_unsubscribeServiceFinished(QString strServiceCode, QString strGroupID, bool bSuccess);
    void BuildShortCutToDesk(QString frdjid);
    void RemoveShortCut(QString frdjid);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool isHolding() const override { return !m_drag.isNull(); }
    QString cardJid(const QModelIndex &index) const override;

private:
    void setUpMenus();
    void runDrag();
    void prepareGroupMenu(const QString &groupId);
    void prepareContactMenu(const QString &jid);
    void fillMoveMenu(const QString &jid);
    void activate(const QModelIndex &index);
    // A current row that was moved out of sight: its group's header takes over.
    void leaveClosedGroup();
    QStringList selectedContacts() const;
    QModelIndex groupAt(QPoint pos) const; // the group of whatever row is there
    bool isGroup(const QModelIndex &index) const;

    FriendTreeModel *m_model;
    const bool m_inner;
    FriendCommands *m_commands;
    GroupLabels *m_labels;
    SkinMenu *m_groupMenu = nullptr;
    SkinMenu *m_contactMenu = nullptr;
    SkinMenu *m_nullMenu = nullptr;
    SkinMenu *m_selectMoreMenu = nullptr;
    SkinMenu *m_moveMenu = nullptr;
    QString m_menuGroup;   // the group that the open menu is about
    QString m_menuContact; // the contact that the open menu is about
    QPointer<MyDrag> m_drag;
    QStringList m_dragItems; // jids under way
    bool m_dragDue = false;  // asked for, not yet begun
    QTimer m_groupTimeOut;
    bool m_hideOffline = false;
};
