#include "virtualteam/waitwgt.h"

WaitWgt::WaitWgt(QWidget *area) : LoadingOverlay(area)
{
    setObjectName(QStringLiteral("WaitWgt"));
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &WaitWgt::note);
}

void WaitWgt::setBusy(bool busy)
{
    if (!busy) {
        m_delay.stop();
        hide();
    } else if (!isVisible() && !m_delay.isActive()) {
        m_delay.start();
    }
}
