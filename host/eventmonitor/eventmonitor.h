// The event monitor's panel: the recorded events, a filter, the details of the
// chosen event, and copying. Meant for the developer of a client who looks for
// what went over the bus and in which order.
#pragma once

#include "host/eventlog.h"
#include "host/eventmonitor/monitorpanel.h"

class EventFilter;
class EventModel;
class QComboBox;
class QPlainTextEdit;

class EventMonitor : public MonitorPanel
{
    Q_OBJECT

public:
    // Watches `log`, which is not owned, from now on, shown or not.
    explicit EventMonitor(EventLog *log, QWidget *parent = nullptr);

    EventModel *model() const { return m_model; }

protected:
    void applyFilter() override;
    QString countText(int shown, int all) const override;
    void retranslate() override;

private:
    EventMonitor(EventModel *model, EventFilter *filter, const EventLog *log, QWidget *parent);
    void addFilters();
    void addDetails();
    void showDetails();
    void copyJson();

    EventModel *m_model;
    EventFilter *m_filter;
    QPlainTextEdit *m_details;
    QLineEdit *m_codes;
    QComboBox *m_direction;
    QAction *m_copyJson;
};
