#include "servicenum/cservicenuminfomanager.h"

#include "common/logging.h"
#include "controls/panewindow.h"
#include "servicenum/cservicenuminfo.h"

CServiceNumInfoManager *CServiceNumInfoManager::instance()
{
    static auto *manager = new CServiceNumInfoManager;
    return manager;
}

CServiceNumInfoManager::CServiceNumInfoManager() = default;

void CServiceNumInfoManager::showServiceNumInfo(const QString &code)
{
    LOG_SCOPE("CServiceNumInfoManager::showServiceNumInfo(const QString &code)");
    if (code.isEmpty())
        return;
    if (!window(code) && m_windows.count() >= MaximumWindows) {
        LOG_ERROR("too many windows of service numbers are open");
        return;
    }
    m_windows
        .findOrMake(code,
                    [this, code] {
                        auto *made = new CServiceNumInfo(code, paneWindow());
                        connect(made, &BaseDialog::closed, this,
                                [this, code] { onServiceNumInfoClosed(code); });
                        return made;
                    })
        ->present();
}

CServiceNumInfo *CServiceNumInfoManager::window(const QString &code) const
{
    return m_windows.find(code);
}

void CServiceNumInfoManager::onServiceNumInfoClosed(const QString &code)
{
    LOG_SCOPE("CServiceNumInfoManager::onServiceNumInfoClosed(const QString &code)");
    if (!m_windows.take(code))
        LOG_ERROR("CServiceNumServiceManager::onServiceNumInfoClosed,ERROR,窗口未被加入缓存中.");
}
