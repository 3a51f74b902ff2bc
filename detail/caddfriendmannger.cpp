#include "detail/caddfriendmannger.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "common/logging.h"
#include "controls/panewindow.h"
#include "controls/tipbox.h"
#include "detail/addfriend.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

CAddFriendMannger *CAddFriendMannger::instance()
{
    static auto *manager = new CAddFriendMannger;
    return manager;
}

CAddFriendMannger::CAddFriendMannger()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_configreceived, this, &CAddFriendMannger::policyReceived);
    connect(hub, &Hub::signal_addFriend, this, &CAddFriendMannger::succeeded);
    connect(hub, &Hub::signal_addFriendFail, this, &CAddFriendMannger::failed);
    connect(hub, &Hub::signal_addsucess, this, [this](const QString &jid, bool isaddsucess) {
        if (isaddsucess)
            succeeded(jid);
        else
            failed(jid);
    });
    connect(hub, &Hub::signal_logout, this, [this] { m_requested.clear(); });
}

AddFriend *CAddFriendMannger::dialog(const QString &jid) const
{
    return m_dialogs.find(makeJid(jid));
}

bool CAddFriendMannger::mayAddContact(const QString &jid) const
{
    return mayBecomeContact(jid);
}

AddFriend *CAddFriendMannger::makeDialog(const QString &jid)
{
    if (!isOnline()) {
        TipBox::tell(paneWindow(), QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return nullptr;
    }
    if (jid == ctx().ownJid()) {
        TipBox::tell(paneWindow(), QObject::tr("notaddcontacts"));
        return nullptr;
    }
    return m_dialogs.findOrMake(jid, [this, &jid] {
        auto *made = new AddFriend(jid, paneWindow());
        connect(made, &AddFriend::signal_closeaddfrd, this, &CAddFriendMannger::slot_closeDialog);
        connect(made, &AddFriend::requestSent, this,
                [this](const QString &asked) { m_requested.insert(asked); });
        return made;
    });
}

void CAddFriendMannger::openDialog(const QString &jidOrUid, const QString &groupId)
{
    LOG_SCOPE("CAddFriendMannger::openDialog(const QString& jid, const QString& groupId)");
    const QString jid = makeJid(jidOrUid);
    if (jid.isEmpty())
        return;
    AddFriend *open = isOnline() ? dialog(jid) : nullptr;
    if (open) {
        open->present();
        return;
    }
    if (AddFriend *made = makeDialog(jid)) {
        made->chooseGroup(groupId);
        made->present();
        made->askPolicy();
    }
}

void CAddFriendMannger::slot_closeDialog(const QString &jid)
{
    LOG_SCOPE("CAddFriendMannger::slot_closeDialog(const QString& jid)");
    if (AddFriend *closed = m_dialogs.take(jid))
        closed->deleteLater();
}

// --- Answers of the host ---------------------------------------------------------

void CAddFriendMannger::policyReceived(const QString &userjid, const QString &userconfig,
                                       const QString &strMoveToGpName,
                                       const QString &strDisplayName, bool bNeedOpenDilog)
{
    const QString jid = makeJid(userjid);
    AddFriend *open = dialog(jid);
    // Unlike a user who asks for it, a host that does is not told what cannot be.
    const bool mayOpen = isOnline() && !jid.isEmpty() && jid != ctx().ownJid();
    if (!open && bNeedOpenDilog && mayOpen && !isExternal(jid)) {
        if (m_dialogs.count() >= MaximumOpened) {
            LOG_ERROR("too many windows for adding contacts are open");
            return;
        }
        open = makeDialog(jid);
        open->present();
    }
    if (open)
        open->policyReceived(userconfig, strMoveToGpName, strDisplayName);
}

void CAddFriendMannger::succeeded(const QString &answeredJid)
{
    const QString jid = makeJid(answeredJid);
    m_requested.remove(jid);
    if (AddFriend *open = dialog(jid))
        open->added();
}

void CAddFriendMannger::failed(const QString &answeredJid)
{
    const QString jid = makeJid(answeredJid);
    const bool isRequested = m_requested.remove(jid);
    AddFriend *open = dialog(jid);
    if (open && open->isWaiting())
        open->slot_addFriendFail();
    else if (!open && isRequested) // its window was closed, but the answer counts
        TipBox::tell(paneWindow(),
                     displayNameOf(jid) + QLatin1Char('\n') + QObject::tr("addcontactsfailed"));
}
