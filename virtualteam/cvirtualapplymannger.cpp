#include "virtualteam/cvirtualapplymannger.h"

#include "common/logging.h"
#include "virtualteam/dialogs/cvirtualapply.h"

CVirtualApplyMannger *CVirtualApplyMannger::instance()
{
    static auto *manager = new CVirtualApplyMannger;
    return manager;
}

CVirtualApplyMannger::CVirtualApplyMannger() = default;

void CVirtualApplyMannger::showVirtualApply(const QString &vtId, const QString &member)
{
    LOG_SCOPE("CVirtualApplyMannger::showVirtualApply(const QString &vtId, const QString &member)");
    if (vtId.isEmpty())
        return;
    m_windows.show(vtId, [&] {
        auto *made = new CVirtualApply(vtId, member);
        connect(made, &BaseDialog::closed, this, [this, vtId] { onVirtualApplyClosed(vtId); });
        return made;
    });
}

CVirtualApply *CVirtualApplyMannger::window(const QString &vtId) const
{
    return m_windows.find(vtId);
}

void CVirtualApplyMannger::onVirtualApplyClosed(const QString &vtId)
{
    LOG_SCOPE("CVirtualApplyMannger::onVirtualApplyClosed(const QString &vtId)");
    if (!m_windows.forget(vtId))
        LOG_ERROR(TeamWindows<CVirtualApply>::UnknownWindow);
}
