// The friend tree's page: keeps the tree in step with the host's roster, and
// shows a page of its own while there is nothing to list.
#pragma once

#include "hostapi/hostrecords.h"

#include <QMap>
#include <QStringList>
#include <QWidget>

class FriendTreeModel;
class FriendTreeView;
class GroupExpansion;
class QStackedLayout;
class StatePage;

class FriendTreeWidget : public QWidget
{
    Q_OBJECT

public:
    explicit FriendTreeWidget(QWidget *parent = nullptr);

    FriendTreeModel *model() const { return m_model; }
    FriendTreeView *view() const { return m_view; }

    // Removes the contact's row.
    void delUser(const QString &friendJid);
    // Fills friendData from the contact's row, if there is one.
    void getFriendDataFromItem(const QString &friendJid, FriendData &friendData);
    // Selects the contact's row and scrolls to it; shows offline contacts again
    // when it is hidden. False when there is none.
    bool locate(const QString &friendJid);
    // Rows show the presence 1 while set.
    void setPresenceUnknown(bool unknown);

signals:
    void signal_reloadGroup();

public slots:
    void slot_addFriend(QString friendJid);
    void slot_addAllFriend(QList<FriendData> listFriendData);
    void slot_delFriend(QString friendJid);
    void slot_delFriendFail(QString friendJid, bool bInnerGroup);
    void slot_updatefriend_new(QString friendJid, VcardInfo v_info);
    void slot_updateFriendRemarkName(QString strJid, QString strName);
    void slot_updateFriendHead(QString jid, QString filepath);
    void slot_updateOutsideFriendStatus(QString friendJid);
    void slot_BatchAddFriendFial(QStringList listUids);
    void slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap);
    void slot_myStatusChanged();
    void slot_updateMySelfInfo();
    void slot_notifyCooperate(QMap<QString, bool> mapCooperateRelation);
    void slot_addGroup(QString strGroupId, QString groupName, bool bIsSuccess, bool bInnerGroup);
    void slot_addAllGroup(QList<GroupData> &groupList, bool bInnerGroup = true);
    void slot_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup);
    void slot_renameGroupName(QString strGroupId, QString newGroupName, bool bSuccess,
                              bool bInnerGroup);
    void slot_moveFriendToNewGroup(bool bSuccess, QString frdjid, QString oldgroupId,
                                   QString newgroupId, bool bInnerGroup = true);
    void slot_getGroupAgain();
    void slot_setExpandContact(bool bExpandContact);
    void slot_setgroupexpandlist(bool isexpanded, QString groupname);
    void slot_hidealloffline(bool bNeedhide, bool bInnerGroup = true);
    void slot_inithidealloffline(bool needhide);
    void slot_doalloffline();

private:
    void connectHub();
    // What the host already knows is shown at once; events complete it.
    void loadFromContext();
    void showState();
    StatePage *statePage(StatePage *&page, const char *key, const char *picture, const char *button,
                         void (FriendTreeWidget::*action)());
    void createGroup();
    void fail();
    void retry();
    void tellGroupFailure(const QString &text);

    FriendTreeModel *m_model;
    FriendTreeView *m_view;
    GroupExpansion *m_expansion;
    QStackedLayout *m_pages;
    StatePage *m_loadingPage = nullptr;
    StatePage *m_emptyPage = nullptr;
    StatePage *m_failedPage = nullptr;
    bool m_groupsArrived = false;
    bool m_failed = false;
    int m_groupRetries = 0;
};
