#include "servicenum/cservicenohistory.h"

#include "common/logging.h"

void CServiceNoHistory::showHistory(const QString &code, const QString &)
{
    LOG_DEBUG("the history of " << logText(code) << " cannot be shown yet");
}
