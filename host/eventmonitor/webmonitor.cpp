#include "host/eventmonitor/webmonitor.h"

#include "host/eventmonitor/webrequestmodel.h"
#include "host/eventmonitor/wordfilter.h"
#include "host/serviceevents.h"
#include "host/weblog.h"

#include <QTableView>

namespace {
// The request that waits for events is always under way: only its failures are news.
bool isRoutine(const WebRequestRecord &record)
{
    return record.status == 200 && record.address.endsWith(ServiceEvents::path());
}
} // namespace

WebMonitor::WebMonitor(const WebLog *log, QWidget *parent)
    : WebMonitor(new WebRequestModel, log, parent)
{
}

WebMonitor::WebMonitor(WebRequestModel *model, const WebLog *log, QWidget *parent)
    : MonitorPanel(QStringLiteral("web"), model, new WordFilter,
                   {QStringLiteral("00:00:00.000"), QStringLiteral("DELETE"),
                    QStringLiteral("Status"), QStringLiteral("00000000"),
                    QStringLiteral("Bytes received"), QStringLiteral("Bytes received"),
                    QStringLiteral("https://127.0.0.1:40000/center/vt/"
                                   "getVirtualTeamMemberDetail.do")},
                   parent),
      m_model(model)
{
    if (log) {
        connect(log, &WebLog::recorded, this, [this](const WebRequestRecord &record) {
            if (isRoutine(record))
                return;
            m_model->record(record);
            recorded();
        });
    }
    WebMonitor::retranslate();
}

QString WebMonitor::countText(int shown, int all) const
{
    return shown == all ? tr("%1 requests").arg(all) : tr("%1 of %2 requests").arg(shown).arg(all);
}

void WebMonitor::retranslate()
{
    table()->setAccessibleName(tr("Web requests"));
    MonitorPanel::retranslate();
}
