#include "virtualteam/cvirtualteaminfomanager.h"

#include "common/logging.h"
#include "virtualteam/dialogs/virtualteaminviteinfopage.h"

namespace {
// Ids are digits and letters: "1" of "23" must not be "12" of "3".
QString keyOf(const QString &vtId, const QString &member)
{
    return vtId + QLatin1Char('|') + member;
}
} // namespace

CVirtualTeamInfoManager *CVirtualTeamInfoManager::instance()
{
    static auto *manager = new CVirtualTeamInfoManager;
    return manager;
}

CVirtualTeamInfoManager::CVirtualTeamInfoManager() = default;

void CVirtualTeamInfoManager::showVirtualTeamInfo(const QString &vtId, const QString &member)
{
    LOG_SCOPE(
        "CVirtualTeamInfoManager::showVirtualTeamInfo(const QString &vtId, const QString &member)");
    if (vtId.isEmpty())
        return;
    m_windows.show(keyOf(vtId, member), [&] {
        auto *made = new VirtualTeamInviteInfoPage(vtId);
        connect(made, &BaseDialog::closed, this,
                [this, vtId, member] { onVirtualTeamInfoClosed(vtId, member); });
        return made;
    });
}

VirtualTeamInviteInfoPage *CVirtualTeamInfoManager::window(const QString &vtId,
                                                           const QString &member) const
{
    return m_windows.find(keyOf(vtId, member));
}

void CVirtualTeamInfoManager::onVirtualTeamInfoClosed(const QString &vtId, const QString &member)
{
    LOG_SCOPE("CVirtualTeamInfoManager::onVirtualTeamInfoClosed(const QString &vtId, "
              "const QString &member)");
    if (!m_windows.forget(keyOf(vtId, member)))
        LOG_ERROR(TeamWindows<VirtualTeamInviteInfoPage>::UnknownWindow);
}
