// What the pages of contacts share: a tree of groups that is kept in step with the
// host's roster through the hub, and pages that stand in its place while there is
// nothing to list. The pages themselves add what only they have.
#pragma once

#include "contacts/contacttreekind.h"
#include "hostapi/hostrecords.h"

#include <QMap>
#include <QWidget>

class FriendTreeModel;
class FriendTreeView;
class GroupExpansion;
class StateStack;

class ContactTreePage : public QWidget
{
    Q_OBJECT

public:
    FriendTreeModel *model() const { return m_model; }
    FriendTreeView *view() const { return m_view; }

    // Removes the contact's row.
    void delUser(const QString &friendJid);
    // Fills friendData from the contact's row, if there is one.
    void getFriendDataFromItem(const QString &friendJid, FriendData &friendData);
    // Adds and renames groups; removes none.
    void addallGroup(const QList<GroupData> &groups);
    // Removes the group's row; contacts that are left in it go to the default group.
    void delGroup(const QString &strGroupId);
    void moveFriendToNewGroup(const QString &friendJid, const QString &oldGroup,
                              const QString &newGroup);
    // Selects the contact's row and scrolls to it; shows offline contacts again
    // when it is hidden. False when there is none.
    bool locate(const QString &friendJid);
    // Asks the host for everything again.
    void reload();

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
    void slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap);
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

protected:
    // `kind` must outlive the page. The layout is the derived class's: it holds
    // states(). When it stands, start() is to be called.
    explicit ContactTreePage(const ContactTreeKind &kind, QWidget *parent);

    StateStack *states() const { return m_states; }
    // Connects the hub, and shows what the host knows already; events complete it.
    void start();

    // Whether the tree is worth showing.
    virtual bool hasRows() const;
    // In the place of a tree without rows.
    virtual void showEmptyPage() = 0;
    // A button of such a page was clicked.
    virtual void emptyPageClicked() {}
    virtual void showState();

    void tell(const QString &text);
    // With the button that these texts have in every language.
    void tellAsItStands(const char *text);

private:
    void connectHub();
    void connectContacts();
    void connectGroups();
    void loadFromContext();
    bool isEmptyList(const QList<FriendData> &contacts) const;
    bool isMine(bool inner) const { return inner == m_kind.isInner(); }
    void fail();
    void retry();

    const ContactTreeKind &m_kind;
    FriendTreeModel *m_model;
    FriendTreeView *m_view;
    GroupExpansion *m_expansion;
    StateStack *m_states;
    bool m_listArrived = false;
    bool m_failed = false;
    int m_groupRetries = 0;
};
