#include "virtualteam/companynames.h"

#include "common/context.h"
#include "common/logging.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
using Operation = CHttpVirtualTeamOperation;
}

CompanyNames &CompanyNames::instance()
{
    static auto *names = new CompanyNames;
    return *names;
}

CompanyNames::CompanyNames() : m_owner(ctx().ownJid())
{
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &CompanyNames::clear);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_login, this,
            &CompanyNames::forgetOtherUser);
}

void CompanyNames::forgetOtherUser()
{
    if (m_owner != ctx().ownJid())
        clear();
    m_owner = ctx().ownJid();
}

void CompanyNames::clear()
{
    m_names.clear();
    m_failed.clear();
    m_waiting.clear();
    for (Operation *operation : qAsConst(m_running)) {
        operation->disconnect(this);
        operation->deleteLater();
    }
    m_running.clear();
}

QString CompanyNames::of(const CVirtualTeamMemberInfo &member) const
{
    return member.companyName.isEmpty() ? m_names.value(member.companyCode) : member.companyName;
}

QString CompanyNames::foreign(const CVirtualTeamMemberInfo &member) const
{
    const bool isOwn = !member.companyCode.isEmpty() && member.companyCode == ctx().companyCode();
    return isOwn ? QString() : of(member);
}

void CompanyNames::learn(const QString &code, const QString &name)
{
    if (code.isEmpty() || name.isEmpty() || m_names.value(code) == name)
        return;
    m_names.insert(code, name);
    m_failed.remove(code);
    emit learned();
}

void CompanyNames::learn(const QList<CVirtualTeamMemberInfo> &members)
{
    for (const CVirtualTeamMemberInfo &member : members)
        learn(member.companyCode, member.companyName);
}

// --- Asking ------------------------------------------------------------------------

bool CompanyNames::isToBeAsked(const QString &code) const
{
    if (code.isEmpty() || code == ctx().companyCode() || m_names.contains(code) ||
        m_running.contains(code))
        return false;
    const auto failure = m_failed.constFind(code);
    if (failure != m_failed.constEnd() && !failure->hasExpired(RetryAfter))
        return false;
    return std::none_of(m_waiting.begin(), m_waiting.end(),
                        [&code](const Wish &wish) { return wish.code == code; });
}

void CompanyNames::find(const QString &vtId, const QList<CVirtualTeamMemberInfo> &members)
{
    if (!isOnline())
        return;
    for (const CVirtualTeamMemberInfo &member : members) {
        if (m_waiting.size() >= MostWaiting)
            break;
        if (member.companyName.isEmpty() && isToBeAsked(member.companyCode))
            m_waiting.push_back({member.companyCode, vtId, member.userId});
    }
    ask();
}

void CompanyNames::ask()
{
    while (m_running.size() < AtATime && !m_waiting.empty()) {
        const Wish wish = m_waiting.front();
        m_waiting.pop_front();
        if (m_names.contains(wish.code))
            continue;
        auto *operation = new Operation(this);
        m_running.insert(wish.code, operation);
        connect(operation, &Operation::signal_GetVirtualTeamMemberInfoFinish, this,
                [this, code = wish.code](bool ok, const CVirtualTeamMemberInfo &member) {
                    answered(code, ok, member.companyName);
                });
        operation->getVirtualTeamMemberInfo(wish.vtId, wish.userId);
    }
}

void CompanyNames::answered(const QString &code, bool ok, const QString &name)
{
    m_running.remove(code);
    if (ok && !name.isEmpty()) {
        learn(code, name);
    } else if (!m_names.contains(code)) {
        LOG_ERROR("no name is known for the company " << logText(code));
        m_failed[code].start();
    }
    ask();
}
