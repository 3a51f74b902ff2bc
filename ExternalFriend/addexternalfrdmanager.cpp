#include "ExternalFriend/addexternalfrdmanager.h"

#include "ExternalFriend/addexternalfriend.h"
#include "ExternalFriend/externalrequestrules.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "common/logging.h"
#include "controls/panewindow.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

namespace {

// For what the host opens by itself; the user is told why something cannot be.
bool mayOpenUnasked(const QString &jid)
{
    return isOnline() && !jid.isEmpty() && jid != ctx().ownJid();
}

} // namespace

AddExternalFrdManager *AddExternalFrdManager::instance()
{
    static auto *manager = new AddExternalFrdManager;
    return manager;
}

AddExternalFrdManager::AddExternalFrdManager()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_requestAddFriend, this,
            [this](const QString &jid, const QString &statusText) {
                requestReceived(makeJid(jid), statusText);
            });
    const auto isAnswered = [this](const QString &jid) { setRequested(makeJid(jid), false); };
    connect(hub, &Hub::signal_addFriend, this, isAnswered);
    connect(hub, &Hub::signal_delOutsideFriend, this, isAnswered);
    connect(hub, &Hub::signal_logout, this, [this] {
        m_requested.clear();
        m_sent.clear();
    });
}

AddExternalFriend *AddExternalFrdManager::dialog(const QString &jid) const
{
    return m_dialogs.find(makeJid(jid));
}

AddExternalFriend *AddExternalFrdManager::findOrMake(const QString &jid)
{
    AddExternalFriend *open = m_dialogs.find(jid);
    if (!open && m_dialogs.count() >= MaximumOpened) {
        LOG_ERROR("ContactInfo dialog creat failed!");
        return nullptr;
    }
    return m_dialogs.findOrMake(jid, [this, &jid] {
        auto *made = new AddExternalFriend(jid, paneWindow());
        connect(made, &AddExternalFriend::signal_closed, this,
                &AddExternalFrdManager::slot_closeDialog);
        connect(made, &AddExternalFriend::requestSent, this,
                [this](const QString &asked) { m_requested.insert(asked); });
        connect(made, &AddExternalFriend::signal_openChatDlg, this, [](const QString &person) {
            FriendUIEventProcess::openChat(person, MessageData::Person);
        });
        connect(made, &AddExternalFriend::signal_sendEmail, this,
                [](const QString &person) { FriendUIEventProcess::writeMail({person}); });
        if (isRequested(jid))
            made->setRequested();
        return made;
    });
}

void AddExternalFrdManager::openDialog(const QString &jid)
{
    SearchFriendResultData person;
    person.jid = jid;
    openDialog(person);
}

void AddExternalFrdManager::openDialog(const SearchFriendResultData &person)
{
    LOG_SCOPE("AddExternalFrdManager::openDialog(const SearchFriendResultData &person)");
    if (!isOnline()) {
        TipBox::tell(paneWindow(), QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return;
    }
    const QString jid = makeJid(person.jid);
    if (jid.isEmpty() || jid == ctx().ownJid())
        return;
    const bool isNew = !m_dialogs.find(jid);
    AddExternalFriend *opened = findOrMake(jid);
    if (!opened)
        return;
    if (isNew)
        opened->setPerson(person);
    opened->present();
    if (isNew)
        FriendUIEventProcess::requestProfile(jid, false);
}

void AddExternalFrdManager::slot_closeDialog(const QString &jid)
{
    LOG_SCOPE("AddExternalFrdManager::slot_closeDialog(const QString& jid)");
    if (AddExternalFriend *closed = m_dialogs.take(jid))
        closed->deleteLater();
}

void AddExternalFrdManager::awaitAnswer(const QString &jid)
{
    m_requested.insert(makeJid(jid));
}

void AddExternalFrdManager::setRequested(const QString &jid, bool requested)
{
    if (requested == m_sent.contains(jid))
        return;
    if (requested)
        m_sent.insert(jid);
    else
        m_sent.remove(jid);
    emit requestedChanged(jid);
}

// --- Events of the host ----------------------------------------------------------

void AddExternalFrdManager::requestReceived(const QString &jid, const QString &statusText)
{
    if (!isExternal(jid) || !mayOpenUnasked(jid))
        return;
    const bool isNew = !m_dialogs.find(jid);
    AddExternalFriend *opened = findOrMake(jid);
    if (!opened)
        return;
    opened->asked(statusText);
    opened->present();
    if (isNew)
        FriendUIEventProcess::requestProfile(jid, false);
}

void AddExternalFrdManager::externalContactAnswer(const QString &answeredJid, bool ok, int code,
                                                  int action)
{
    if (action < ExternalRequest::Request || action > ExternalRequest::Blacklist) {
        LOG_ERROR("an answer to nothing that can be asked: " << QString::number(action));
        return;
    }
    const QString jid = makeJid(answeredJid);
    const bool isAwaited = m_requested.remove(jid);
    if (isAwaited && ok && action == ExternalRequest::Request)
        setRequested(jid, true);
    if (AddExternalFriend *open = m_dialogs.find(jid)) {
        open->answered(ok, code, action);
        return;
    }
    if (isAwaited) { // its window was closed
        if (ok)
            return;
        const QString reason = ExternalRequest::isExpired(action, code)
                                   ? QString::fromUtf8("已过期，请重新添加")
                                   : QObject::tr(ExternalRequest::failureKey(action, code));
        TipBox::tell(paneWindow(), displayNameOf(jid) + QLatin1Char('\n') + reason);
        return;
    }
    if (!mayOpenUnasked(jid))
        return;
    AddExternalFriend *opened = findOrMake(jid);
    if (!opened)
        return;
    if (ok)
        opened->asked(QString());
    else
        opened->answered(ok, code, action);
    opened->present();
    FriendUIEventProcess::requestProfile(jid, false);
}
