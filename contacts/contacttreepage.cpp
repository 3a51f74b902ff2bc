#include "contacts/contacttreepage.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "contacts/contacttreescope.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/groupexpansion.h"
#include "controls/avatarstore.h"
#include "controls/skin.h"
#include "controls/statestack.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"

#include <algorithm>

namespace {
constexpr int MaximumGroupRetries = 3;
} // namespace

ContactTreePage::ContactTreePage(const ContactTreeKind &kind, QWidget *parent)
    : QWidget(parent),
      m_kind(kind),
      m_model(new FriendTreeModel(kind.rows, this)),
      m_view(new FriendTreeView(m_model, kind.isInner(), this)),
      m_expansion(new GroupExpansion(m_view, QString::fromLatin1(kind.expansionKey))),
      m_states(new StateStack)
{
    setObjectName(QString::fromLatin1(kind.name));
    m_states->addWidget(m_view);
    followSkin(this);
    setAutoFillBackground(true);

    connect(m_view, &FriendTreeView::signal_isexpand, this,
            &ContactTreePage::slot_setgroupexpandlist);
    connect(m_view, &FriendTreeView::signal_expandContact, this,
            &ContactTreePage::slot_setExpandContact);
    connect(m_view, &FriendTreeView::signal_loadGroupTimeOut, this, &ContactTreePage::fail);
    connect(this, &ContactTreePage::signal_reloadGroup, m_view,
            &FriendTreeView::slot_getGroupAgain);
    connect(m_model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &parentRow, int first, int last) {
                if (!parentRow.isValid())
                    m_expansion->restore(first, last);
            });
    connect(m_states, &StateStack::buttonClicked, this, [this] {
        if (m_failed)
            retry();
        else
            emptyPageClicked();
    });
}

void ContactTreePage::start()
{
    connectHub();
    loadFromContext();
}

void ContactTreePage::connectHub()
{
    connectContacts();
    connectGroups();
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    using Page = ContactTreePage;
    connect(hub, &Hub::signal_updateFriendPresence, this, &Page::slot_updateFriendPresence);
    connect(hub, &Hub::signal_hidealloff, this, &Page::slot_hidealloffline);
    connect(hub, &Hub::signal_doalloffline, this, &Page::slot_doalloffline);
    connect(hub, &Hub::signal_login, this, &Page::loadFromContext);
    connect(hub, &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected && m_failed)
            retry();
    });
}

void ContactTreePage::connectContacts()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    using Page = ContactTreePage;
    connect(hub, &Hub::signal_addFriend, this, &Page::slot_addFriend);
    connect(hub, &Hub::signal_addAllFriend, this, &Page::slot_addAllFriend);
    connect(hub, m_kind.isInner() ? &Hub::signal_delFriend : &Hub::signal_delOutsideFriend, this,
            &Page::slot_delFriend);
    connect(hub, &Hub::signal_delFriendFail, this, &Page::slot_delFriendFail);
    connect(hub, &Hub::signal_FriendVcardInfo, this, &Page::slot_updatefriend_new);
    connect(hub, &Hub::signal_FriendFullVcardInfo, this, &Page::slot_updatefriend_new);
    connect(hub, &Hub::signal_notifyFriendRemarkName, this, &Page::slot_updateFriendRemarkName);
    connect(hub, &Hub::signal_UpdateFrdHead, this, &Page::slot_updateFriendHead);
    connect(hub, &Hub::signal_notifyCooperate, this, &Page::slot_notifyCooperate);
}

// --- States ----------------------------------------------------------------------

void ContactTreePage::loadFromContext()
{
    m_model->setOwnJid(ctx().ownJid());
    m_expansion->load();
    const QList<GroupData> groups = ctx().groups(m_kind.isInner());
    m_model->mergeGroups(groups);
    m_listArrived = m_listArrived || !groups.isEmpty();
    const QList<FriendData> contacts = ctx().friends();
    if (!contacts.isEmpty())
        slot_addAllFriend(contacts);
    showState();
}

bool ContactTreePage::hasRows() const
{
    return m_model->rowCount() > 0;
}

void ContactTreePage::showState()
{
    if (hasRows()) {
        m_states->setCurrentWidget(m_view);
    } else if (m_failed) {
        m_states->showPage(m_kind.failedText, "Resources/images/icon/ic_lion_load_failure.png",
                           "retry");
    } else if (m_listArrived) {
        showEmptyPage();
    } else {
        m_states->showPage("friendsLoading", "Resources/images/SearchFriend/qora_Loading.gif");
        m_view->waitForGroups();
    }
}

void ContactTreePage::tell(const QString &text)
{
    TipBox::tell(this, text, QString::fromUtf8(m_kind.button));
}

void ContactTreePage::tellAsItStands(const char *text)
{
    TipBox::tell(this, QString::fromUtf8(text), QString::fromUtf8("确定"));
}

void ContactTreePage::fail()
{
    LOG_ERROR("the contact groups could not be loaded");
    m_failed = true;
    m_view->groupsArrived();
    if (hasRows() || m_kind.tellsFirstFailure)
        tell(QObject::tr(m_kind.failedText));
    showState();
}

void ContactTreePage::retry()
{
    m_failed = false;
    showState();
    reload();
}

void ContactTreePage::reload()
{
    m_groupRetries = 0;
    emit signal_reloadGroup();
}

void ContactTreePage::slot_getGroupAgain()
{
    LOG_PAGE_SCOPE("slot_getGroupAgain()");
    // The event does not tell whose groups have failed.
    if (!m_kind.isInner() && !m_view->isWaitingForGroups())
        return;
    // A host that keeps failing is not asked for ever.
    if (m_groupRetries >= MaximumGroupRetries) {
        fail();
        return;
    }
    ++m_groupRetries;
    emit signal_reloadGroup();
}

// --- Contacts --------------------------------------------------------------------

void ContactTreePage::slot_addFriend(QString friendJid)
{
    LOG_PAGE_SCOPE("slot_addFriend(QString friendJid)");
    FriendData contact;
    const bool known = ctx().friendData(friendJid, &contact);
    if (!known) {
        contact.jid = friendJid;
        contact.outside = isExternal(friendJid) ? 1 : 0;
    }
    // A row that is there tells more than a bare jid.
    if (known || !m_model->hasContact(friendJid))
        m_model->mergeContacts({contact});
    showState();
}

void ContactTreePage::slot_addAllFriend(QList<FriendData> listFriendData)
{
    LOG_PAGE_SCOPE("slot_addAllFriend(QList<FriendData> listFriendData)");
    if (isEmptyList(listFriendData))
        LOG_DEBUG(m_kind.emptyListLine);
    // Who has no external contacts may have no groups of them either.
    m_listArrived = m_listArrived || !m_kind.isInner();
    m_model->mergeContacts(listFriendData);
    showState();
}

// Most lists tell of both kinds, and many users have no external contacts.
bool ContactTreePage::isEmptyList(const QList<FriendData> &contacts) const
{
    if (m_kind.isInner())
        return contacts.isEmpty();
    return std::none_of(contacts.cbegin(), contacts.cend(),
                        [](const FriendData &contact) { return contact.outside != 0; });
}

void ContactTreePage::slot_delFriend(QString friendJid)
{
    LOG_PAGE_SCOPE("slot_delFriend(QString friendJid)");
    delUser(friendJid);
}

void ContactTreePage::delUser(const QString &friendJid)
{
    LOG_PAGE_SCOPE("delUser( const QString &friendJid )");
    if (!m_model->removeContact(friendJid))
        LOG_DEBUG(" entry fun " << m_kind.name << "::delUser user not exist");
    showState();
}

void ContactTreePage::slot_delFriendFail(QString friendJid, bool bInnerGroup)
{
    LOG_PAGE_SCOPE("slot_delFriendFail(QString friendJid, bool bInnerGroup)");
    FriendData contact;
    if (!isMine(bInnerGroup) || !m_model->contact(friendJid, &contact))
        return;
    LOG_ERROR("the contact " << logText(friendJid) << " could not be deleted");
    const QString text = QObject::tr(m_kind.removalFailed);
    tell(text.contains(QLatin1String("%1")) ? text.arg(contactDisplayName(contact)) : text);
}

void ContactTreePage::getFriendDataFromItem(const QString &friendJid, FriendData &friendData)
{
    LOG_PAGE_SCOPE("getFriendDataFromItem( const QString &friendJid, FriendData& friendData )");
    if (!m_model->contact(friendJid, &friendData))
        LOG_DEBUG("user not exist");
}

void ContactTreePage::slot_updatefriend_new(QString friendJid, VcardInfo v_info)
{
    LOG_PAGE_SCOPE("slot_updatefriend_new(QString friendJid, VcardInfo v_info)");
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
    m_model->profileChanged(friendJid);
}

void ContactTreePage::slot_updateFriendRemarkName(QString strJid, QString strName)
{
    LOG_PAGE_SCOPE("slot_updateFriendRemarkName(QString strJid, QString strName)");
    m_model->changeContact(strJid, [&strName](FriendData &contact) { contact.remark = strName; });
}

void ContactTreePage::slot_updateFriendHead(QString jid, QString filepath)
{
    LOG_PAGE_SCOPE("slot_updateFriendHead(QString jid, QString filepath)");
    AvatarStore::instance().refresh(filepath);
    m_model->changeContact(jid, [&filepath](FriendData &contact) { contact.headPath = filepath; });
    m_view->viewport()->update();
}

void ContactTreePage::slot_updateOutsideFriendStatus(QString friendJid)
{
    LOG_PAGE_SCOPE("slot_updateOutsideFriendStatus(QString friendJid)");
    FriendData contact;
    if (ctx().friendData(friendJid, &contact))
        m_model->mergeContacts({contact});
    showState();
}

bool ContactTreePage::locate(const QString &friendJid)
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

void ContactTreePage::slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap)
{
    LOG_PAGE_SCOPE("slot_updateFriendPresence(QMap<QString,PresenceData> presencDataMap)");
    m_model->setPresence(presencDataMap);
}

void ContactTreePage::slot_notifyCooperate(QMap<QString, bool> mapCooperateRelation)
{
    LOG_PAGE_SCOPE("slot_notifyCooperate(QMap<QString,bool> mapCooperateRelation)");
    m_model->setCooperation(mapCooperateRelation);
}

void ContactTreePage::slot_doalloffline()
{
    LOG_PAGE_SCOPE("slot_doalloffline()");
    m_model->setAllOffline();
}

void ContactTreePage::slot_hidealloffline(bool bNeedhide, bool)
{
    LOG_PAGE_SCOPE("slot_hidealloffline(bool bNeedhide, bool bInnerGroup)");
    slot_inithidealloffline(bNeedhide);
}

void ContactTreePage::slot_inithidealloffline(bool needhide)
{
    LOG_PAGE_SCOPE("slot_inithidealloffline(bool needhide)");
    if (needhide)
        LOG_DEBUG("m_hidealloff is true");
    m_view->setHideOffline(needhide);
    m_model->setHideOffline(needhide);
}
