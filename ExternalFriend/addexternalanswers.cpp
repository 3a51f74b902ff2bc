// What the window asks of the host, and what becomes of it with the answers.
#include "ExternalFriend/addexternalfriend.h"

#include "ExternalFriend/addexternalfriendparts.h"
#include "ExternalFriend/externalrequestrules.h"
#include "common/context.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "controls/validationedit.h"
#include "plugin/frienduieventprocess.h"

#include <QTimer>

// --- Answers ---------------------------------------------------------------------

void AddExternalFriend::answered(bool ok, int code, int action)
{
    if (action == ExternalRequest::Request)
        emit signal_addOutsideFriend(m_jid, ok, code);
    else
        emit signal_confirmOutsideFriend(m_jid, action, ok, code);
}

void AddExternalFriend::slot_addOutsideFriend(const QString &jid, bool ok, int code)
{
    LOG_SCOPE("AddExternalFriend::slot_addOutsideFriend(const QString& jid, bool ok, int code)");
    if (jid != m_jid || m_state == Added)
        return;
    if (!ok)
        failed(ExternalRequest::Request, code);
    else if (isContact())
        becomeContact();
    else {
        settle();
        enter(Sent);
    }
}

void AddExternalFriend::slot_confirmOutsideFriend(const QString &jid, int action, bool ok, int code)
{
    LOG_SCOPE("AddExternalFriend::slot_confirmOutsideFriend(const QString& jid, int action, "
              "bool ok, int code)");
    if (jid != m_jid)
        return;
    if (!ok && m_state != Added)
        failed(action, code);
    else if (ok && action == ExternalRequest::Confirmation)
        becomeContact();
    else if (ok) {
        settle();
        enter(Blocked);
    }
}

// The answer is here, or will not come.
void AddExternalFriend::settle()
{
    m_pending.reset();
    m_wait->stop();
    m_buttons->setRequestsEnabled(true);
    m_validation->setEditable(true);
}

void AddExternalFriend::failed(int action, int code)
{
    LOG_ERROR("the request about " << logText(m_jid) << " has failed with "
                                   << QString::number(code));
    const bool isWaiting = m_pending == action;
    settle();
    if (ExternalRequest::isExpired(action, code)) {
        enter(Asking);
        say({"已过期，请重新添加", false, TipLabel::Warning});
        return;
    }
    const char *key = ExternalRequest::failureKey(action, code);
    // Somebody who asked before this request did still waits for the user.
    if (action == ExternalRequest::Request && !m_request.isEmpty())
        enter(Asked);
    say({key, true, TipLabel::Warning});
    if (isWaiting)
        TipBox::tell(this, QObject::tr(key));
}

// --- Requests --------------------------------------------------------------------

bool AddExternalFriend::mayRequest(State from)
{
    if (m_isClosed || m_pending || m_state != from)
        return false;
    if (isOnline())
        return true;
    TipBox::tell(this, QObject::tr("offlineCannotAdd"));
    return false;
}

void AddExternalFriend::begin(int action)
{
    m_pending = action;
    m_wait->start();
    say(Said());
    emit requestSent(m_jid);
}

void AddExternalFriend::slot_sendReq()
{
    LOG_SCOPE("AddExternalFriend::slot_sendReq()");
    if (!mayRequest(Asking))
        return;
    begin(ExternalRequest::Request);
    FriendUIEventProcess::addExternalContact(m_jid, m_validation->edit()->validation().trimmed());
}

void AddExternalFriend::slot_confirmReq()
{
    LOG_SCOPE("AddExternalFriend::slot_confirmReq()");
    if (!mayRequest(Asked))
        return;
    begin(ExternalRequest::Confirmation);
    FriendUIEventProcess::confirmExternalContact(m_jid, true);
}

void AddExternalFriend::slot_addBlackList()
{
    LOG_SCOPE("AddExternalFriend::slot_addBlackList()");
    if (!mayRequest(Asked))
        return;
    begin(ExternalRequest::Blacklist);
    FriendUIEventProcess::blacklistExternalContact(m_jid);
}
