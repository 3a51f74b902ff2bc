#include "contacts/friendtreewidget.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/groupexpansion.h"
#include "controls/avatarstore.h"
#include "controls/skin.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"

#include <QStackedLayout>

namespace {
constexpr int MaximumGroupRetries = 3;
// How many names a box about a failed batch spells out.
constexpr int MaximumNamesTold = 10;

QString sureButton()
{
    return QString::fromUtf8("确定");
}
} // namespace

FriendTreeWidget::FriendTreeWidget(QWidget *parent)
    : QWidget(parent),
      m_model(new FriendTreeModel(ContactRow, this)),
      m_view(new FriendTreeView(m_model, true, this)),
      m_expansion(new GroupExpansion(m_view, QStringLiteral("/friendTree/expandedGroups"))),
      m_pages(new QStackedLayout(this))
{
    setObjectName(QStringLiteral("FriendTreeWidget"));
    m_pages->addWidget(m_view);
    followSkin(this);
    setAutoFillBackground(true);

    connect(m_view, &FriendTreeView::signal_isexpand, this,
            &FriendTreeWidget::slot_setgroupexpandlist);
    connect(m_view, &FriendTreeView::signal_expandContact, this,
            &FriendTreeWidget::slot_setExpandContact);
    connect(m_view, &FriendTreeView::signal_loadGroupTimeOut, this, &FriendTreeWidget::fail);
    connect(this, &FriendTreeWidget::signal_reloadGroup, m_view,
            &FriendTreeView::slot_getGroupAgain);
    connect(m_model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &parentRow, int first, int last) {
                if (!parentRow.isValid())
                    m_expansion->restore(first, last);
            });
    connectHub();
    loadFromContext();
}

void FriendTreeWidget::connectHub()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    using Page = FriendTreeWidget;
    connect(hub, &Hub::signal_addFriend, this, &Page::slot_addFriend);
    connect(hub, &Hub::signal_addAllFriend, this, &Page::slot_addAllFriend);
    connect(hub, &Hub::signal_delFriend, this, &Page::slot_delFriend);
    connect(hub, &Hub::signal_delFriendFail, this, &Page::slot_delFriendFail);
    connect(hub, &Hub::signal_FriendVcardInfo, this, &Page::slot_updatefriend_new);
    connect(hub, &Hub::signal_FriendFullVcardInfo, this, &Page::slot_updatefriend_new);
    connect(hub, &Hub::signal_notifyFriendRemarkName, this, &Page::slot_updateFriendRemarkName);
    connect(hub, &Hub::signal_UpdateFrdHead, this, &Page::slot_updateFriendHead);
    connect(hub, &Hub::signal_BatchAddFriendFial, this, &Page::slot_BatchAddFriendFial);
    connect(hub, &Hub::signal_updateFriendPresence, this, &Page::slot_updateFriendPresence);
    connect(hub, &Hub::signal_myStatusChanged, this, &Page::slot_myStatusChanged);
    connect(hub, &Hub::signal_myProfileRecv, this, &Page::slot_updateMySelfInfo);
    connect(hub, &Hub::signal_notifyCooperate, this, &Page::slot_notifyCooperate);
    connect(hub, &Hub::signal_addGroup, this, &Page::slot_addGroup);
    connect(hub, &Hub::signal_addAllGroup, this, &Page::slot_addAllGroup);
    connect(hub, &Hub::signal_delGroup, this, &Page::slot_delGroup);
    connect(hub, &Hub::signal_changeGroupName, this, &Page::slot_renameGroupName);
    connect(hub, &Hub::signal_moveitem, this, &Page::slot_moveFriendToNewGroup);
    connect(hub, &Hub::signal_getGroupFail, this, &Page::slot_getGroupAgain);
    connect(hub, &Hub::signal_hidealloff, this, &Page::slot_hidealloffline);
    connect(hub, &Hub::signal_doalloffline, this, &Page::slot_doalloffline);
    connect(hub, &Hub::signal_login, this, &Page::loadFromContext);
}

// --- States ----------------------------------------------------------------------

void FriendTreeWidget::loadFromContext()
{
    m_model->setOwnJid(ctx().ownJid());
    m_expansion->load();
    const QList<GroupData> groups = ctx().groups(true);
    m_model->mergeGroups(groups);
    m_groupsArrived = m_groupsArrived || !groups.isEmpty();
    const QList<FriendData> contacts = ctx().friends();
    if (!contacts.isEmpty())
        slot_addAllFriend(contacts);
    showState();
}

void FriendTreeWidget::showState()
{
    if (m_model->rowCount() > 0)
        m_pages->setCurrentWidget(m_view);
    else if (m_failed)
        m_pages->setCurrentWidget(statePage(m_failedPage, "friendsFailed",
                                            "Resources/images/icon/ic_lion_load_failure.png",
                                            "retry", &FriendTreeWidget::retry));
    else if (m_groupsArrived)
        m_pages->setCurrentWidget(statePage(m_emptyPage, "friendsEmpty",
                                            "Resources/images/contacts/empty_list.png", "newgroup",
                                            &FriendTreeWidget::createGroup));
    else {
        m_pages->setCurrentWidget(statePage(m_loadingPage, "friendsLoading",
                                            "Resources/images/SearchFriend/qora_Loading.gif",
                                            nullptr, nullptr));
        m_view->waitForGroups();
    }
}

// Made when it is first needed: most users never see any of them.
StatePage *FriendTreeWidget::statePage(StatePage *&page, const char *key, const char *picture,
                                       const char *button, void (FriendTreeWidget::*action)())
{
    if (!page) {
        page = new StatePage(key, QString::fromLatin1(picture), button, this);
        page->setObjectName(QLatin1String(key));
        m_pages->addWidget(page);
        if (action)
            connect(page, &StatePage::buttonClicked, this, action);
    }
    return page;
}

void FriendTreeWidget::createGroup()
{
    m_view->commands()->createGroup();
}

void FriendTreeWidget::fail()
{
    LOG_ERROR("the contact groups could not be loaded");
    m_failed = true;
    if (m_model->rowCount() > 0)
        TipBox::tell(this, QObject::tr("friendsFailed"));
    showState();
}

void FriendTreeWidget::retry()
{
    m_failed = false;
    m_groupRetries = 0;
    showState();
    emit signal_reloadGroup();
}

void FriendTreeWidget::slot_getGroupAgain()
{
    LOG_SCOPE("FriendTreeWidget::slot_getGroupAgain()");
    // A host that keeps failing is not asked for ever.
    if (m_groupRetries >= MaximumGroupRetries) {
        fail();
        return;
    }
    ++m_groupRetries;
    emit signal_reloadGroup();
}

// --- Contacts --------------------------------------------------------------------

void FriendTreeWidget::slot_addFriend(QString friendJid)
{
    LOG_SCOPE("FriendTreeWidget::slot_addFriend(QString friendJid)");
    FriendData contact;
    const bool known = ctx().friendData(friendJid, &contact);
    if (!known)
        contact.jid = friendJid;
    // A row that is there tells more than a bare jid.
    if (known || !m_model->hasContact(friendJid))
        m_model->mergeContacts({contact});
    showState();
}

void FriendTreeWidget::slot_addAllFriend(QList<FriendData> listFriendData)
{
    LOG_SCOPE("FriendTreeWidget::slot_addAllFriend(QList<FriendData> listFriendData)");
    if (listFriendData.isEmpty()) {
        LOG_DEBUG("entry fun FriendTreeWidget::slot_addAllFriend()：listFriendData is 0");
        return;
    }
    m_model->mergeContacts(listFriendData);
    showState();
}

void FriendTreeWidget::slot_delFriend(QString friendJid)
{
    LOG_SCOPE("FriendTreeWidget::slot_delFriend(QString friendJid)");
    delUser(friendJid);
}

void FriendTreeWidget::delUser(const QString &friendJid)
{
    LOG_SCOPE("FriendTreeWidget::delUser( const QString &friendJid )");
    if (!m_model->removeContact(friendJid))
        LOG_DEBUG(" entry fun FriendTreeWidget::delUser user not exist");
    showState();
}

void FriendTreeWidget::slot_delFriendFail(QString friendJid, bool bInnerGroup)
{
    LOG_SCOPE("FriendTreeWidget::slot_delFriendFail(QString friendJid, bool bInnerGroup)");
    FriendData contact;
    if (!bInnerGroup || !m_model->contact(friendJid, &contact))
        return;
    LOG_ERROR("the contact " << logText(friendJid) << " could not be deleted");
    TipBox::tell(this, QObject::tr("deleteContactFailed").arg(contactDisplayName(contact)));
}

void FriendTreeWidget::getFriendDataFromItem(const QString &friendJid, FriendData &friendData)
{
    LOG_SCOPE("FriendTreeWidget::getFriendDataFromItem( const QString &friendJid, FriendData& "
              "friendData )");
    if (!m_model->contact(friendJid, &friendData))
        LOG_DEBUG("user not exist");
}

void FriendTreeWidget::slot_updatefriend_new(QString friendJid, VcardInfo v_info)
{
    LOG_SCOPE("FriendTreeWidget::slot_updatefriend_new(QString friendJid, VcardInfo v_info)");
    m_model->changeContact(friendJid, [&v_info](FriendData &contact) {
        if (!v_info.nickName.isEmpty())
            contact.nickName = v_info.nickName;
        if (!v_info.userName.isEmpty())
            contact.account = v_info.userName;
        contact.sign = v_info.sign;
        const QString head = ctx().headPath(v_info.photoName);
        if (!head.isEmpty())
            contact.headPath = head;
    });
}

void FriendTreeWidget::slot_updateFriendRemarkName(QString strJid, QString strName)
{
    LOG_SCOPE("FriendTreeWidget::slot_updateFriendRemarkName(QString strJid, QString strName)");
    m_model->changeContact(strJid, [&strName](FriendData &contact) { contact.remark = strName; });
}

void FriendTreeWidget::slot_updateFriendHead(QString jid, QString filepath)
{
    LOG_SCOPE("FriendTreeWidget::slot_updateFriendHead(QString jid, QString filepath)");
    AvatarStore::instance().refresh(filepath);
    m_model->changeContact(jid, [&filepath](FriendData &contact) { contact.headPath = filepath; });
    m_view->viewport()->update();
}

void FriendTreeWidget::slot_updateOutsideFriendStatus(QString friendJid)
{
    LOG_SCOPE("FriendTreeWidget::slot_updateOutsideFriendStatus(QString friendJid)");
    FriendData contact;
    if (!ctx().friendData(friendJid, &contact))
        return;
    if (contact.outside != 0)
        delUser(friendJid);
    else if (m_model->hasContact(friendJid))
        m_model->mergeContacts({contact});
}

void FriendTreeWidget::slot_BatchAddFriendFial(QStringList listUids)
{
    LOG_SCOPE("FriendTreeWidget::slot_BatchAddFriendFial(QStringList listUids)");
    if (listUids.isEmpty())
        return;
    QStringList names;
    for (const QString &uid : listUids.mid(0, MaximumNamesTold)) {
        FriendData contact;
        contact.jid = makeJid(uid);
        VcardInfo profile;
        ctx().friendData(contact.jid, &contact);
        ctx().vcard(contact.jid, &profile);
        names.append(contactDisplayName(contact, profile));
    }
    if (listUids.size() > MaximumNamesTold)
        names.append(QStringLiteral("..."));
    const QString count = QStringLiteral(" (%1): ").arg(listUids.size());
    TipBox::tell(this,
                 QObject::tr("conatct") + count + names.join(QStringLiteral(", ")) +
                     QLatin1Char('\n') + QObject::tr("addfail"),
                 sureButton());
}

bool FriendTreeWidget::locate(const QString &friendJid)
{
    if (!m_model->hasContact(friendJid))
        return false;
    if (!m_model->contactIndex(friendJid).isValid())
        slot_inithidealloffline(false);
    m_view->reveal(m_model->contactIndex(friendJid));
    m_view->setFocus();
    return true;
}

// --- Presence --------------------------------------------------------------------

void FriendTreeWidget::slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap)
{
    LOG_SCOPE("FriendTreeWidget::slot_updateFriendPresence(QMap<QString,PresenceData> "
              "presencDataMap)");
    m_model->setPresence(presencDataMap);
}

void FriendTreeWidget::slot_myStatusChanged()
{
    LOG_SCOPE("FriendTreeWidget::slot_myStatusChanged()");
    const QString own = ctx().ownJid();
    m_model->setPresence({{own, ctx().presence(own)}});
}

void FriendTreeWidget::slot_updateMySelfInfo()
{
    LOG_SCOPE("FriendTreeWidget::slot_updateMySelfInfo()");
    VcardInfo profile;
    if (ctx().vcard(ctx().ownJid(), &profile))
        slot_updatefriend_new(ctx().ownJid(), profile);
}

void FriendTreeWidget::slot_notifyCooperate(QMap<QString, bool> mapCooperateRelation)
{
    LOG_SCOPE("FriendTreeWidget::slot_notifyCooperate(QMap<QString,bool> mapCooperateRelation)");
    m_model->setCooperation(mapCooperateRelation);
}

void FriendTreeWidget::slot_doalloffline()
{
    LOG_SCOPE("FriendTreeWidget::slot_doalloffline()");
    m_model->setAllOffline();
}

void FriendTreeWidget::setPresenceUnknown(bool unknown)
{
    m_model->setPresenceUnknown(unknown);
}

void FriendTreeWidget::slot_hidealloffline(bool bNeedhide, bool)
{
    LOG_SCOPE("FriendTreeWidget::slot_hidealloffline(bool bNeedhide, bool bInnerGroup)");
    slot_inithidealloffline(bNeedhide);
}

void FriendTreeWidget::slot_inithidealloffline(bool needhide)
{
    LOG_SCOPE("FriendTreeWidget::slot_inithidealloffline(bool needhide)");
    if (needhide)
        LOG_DEBUG("m_hidealloff is true");
    m_view->setHideOffline(needhide);
    m_model->setHideOffline(needhide);
}

// --- Groups ----------------------------------------------------------------------

void FriendTreeWidget::slot_addGroup(QString strGroupId, QString groupName, bool bIsSuccess,
                                     bool bInnerGroup)
{
    LOG_SCOPE("FriendTreeWidget::slot_addGroup(QString strGroupId, QString groupName, bool "
              "bIsSuccess, bool bInnerGroup)");
    if (!bInnerGroup)
        return;
    if (bIsSuccess)
        m_model->mergeGroups({{strGroupId, groupName}});
    else
        LOG_ERROR("the group " << logText(groupName) << " could not be created");
    showState();
    m_view->commands()->groupCreated(groupName, bIsSuccess);
}

void FriendTreeWidget::slot_addAllGroup(QList<GroupData> &groupList, bool bInnerGroup)
{
    LOG_SCOPE("FriendTreeWidget::slot_addAllGroup(QList<GroupData>& groupList, bool bInnerGroup)");
    if (!bInnerGroup)
        return;
    m_groupsArrived = true;
    m_failed = false;
    m_groupRetries = 0;
    m_view->groupsArrived();
    m_model->mergeGroups(groupList);
    showState();
}

void FriendTreeWidget::tellGroupFailure(const QString &text)
{
    TipBox::tell(this, text, sureButton());
}

void FriendTreeWidget::slot_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup)
{
    LOG_SCOPE(
        "FriendTreeWidget::slot_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup)");
    if (!bInnerGroup)
        return;
    if (!bSuccess) {
        LOG_ERROR("the group " << logText(strGroupId) << " could not be deleted");
        tellGroupFailure(QString::fromUtf8("重命名删除失败，请重试！"));
    } else if (!m_model->removeGroup(strGroupId)) {
        LOG_DEBUG("删除的组不存在");
    }
    showState();
}

void FriendTreeWidget::slot_renameGroupName(QString strGroupId, QString newGroupName, bool bSuccess,
                                            bool bInnerGroup)
{
    LOG_SCOPE("FriendTreeWidget::slot_renameGroupName(QString strGroupId, QString newGroupName, "
              "bool bSuccess, bool bInnerGroup)");
    if (!bInnerGroup)
        return;
    if (!bSuccess) {
        LOG_ERROR("the group " << logText(strGroupId) << " could not be renamed");
        tellGroupFailure(QString::fromUtf8("重命名删除失败，请重试！"));
        return;
    }
    const QString oldName = m_model->groupName(strGroupId);
    if (m_model->renameGroup(strGroupId, newGroupName)) {
        m_expansion->noteRename(oldName, m_model->groupName(strGroupId));
        return;
    }
    LOG_DEBUG("组名不存在");
    tellGroupFailure(QString::fromUtf8("组名不存在"));
}

void FriendTreeWidget::slot_moveFriendToNewGroup(bool bSuccess, QString frdjid, QString oldgroupId,
                                                 QString newgroupId, bool bInnerGroup)
{
    LOG_SCOPE("FriendTreeWidget::slot_moveFriendToNewGroup(bool bSuccess, QString frdjid, QString "
              "oldgroupId, QString newgroupId, bool bInnerGroup)");
    if (!bInnerGroup)
        return;
    if (!bSuccess) {
        LOG_ERROR("the contact " << logText(frdjid) << " could not be moved");
        TipBox::tell(this, QString::fromUtf8("移动分组失败，请重试！"));
    } else if (!m_model->hasContact(frdjid)) {
        LOG_DEBUG(":user not exist");
    } else if (oldgroupId == newgroupId) {
        LOG_DEBUG("move group is same");
    } else if (!m_model->moveContact(frdjid, newgroupId)) {
        LOG_ERROR("the group " << logText(newgroupId) << " is unknown");
    }
}

void FriendTreeWidget::slot_setExpandContact(bool bExpandContact)
{
    LOG_SCOPE("FriendTreeWidget::slot_setExpandContact(bool bExpandContact)");
    m_expansion->setAll(bExpandContact);
}

void FriendTreeWidget::slot_setgroupexpandlist(bool isexpanded, QString groupname)
{
    LOG_SCOPE("FriendTreeWidget::slot_setgroupexpandlist(bool isexpanded, QString groupname)");
    m_expansion->note(isexpanded, groupname);
}
