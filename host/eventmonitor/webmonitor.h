// The event monitor's second panel: the web requests of module and host.
#pragma once

#include "host/eventmonitor/monitorpanel.h"

class WebLog;
class WebRequestModel;

class WebMonitor : public MonitorPanel
{
    Q_OBJECT

public:
    // Watches `log`, which is not owned and may be null, from now on, shown or not.
    explicit WebMonitor(const WebLog *log, QWidget *parent = nullptr);

    WebRequestModel *model() const { return m_model; }

protected:
    QString countText(int shown, int all) const override;
    void retranslate() override;

private:
    WebMonitor(WebRequestModel *model, const WebLog *log, QWidget *parent);

    WebRequestModel *m_model;
};
