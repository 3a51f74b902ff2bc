// The event monitor's panel: the recorded events, a filter, the details of the
// chosen event, and copying. Meant for the developer of a client who looks for
// what went over the bus and in which order.
#pragma once

#include "host/eventlog.h"

#include <QTimer>
#include <QWidget>

class EventFilter;
class EventModel;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTableView;

class EventMonitor : public QWidget
{
    Q_OBJECT

public:
    // Watches `log`, which is not owned, from now on, shown or not.
    explicit EventMonitor(EventLog *log, QWidget *parent = nullptr);

    EventModel *model() const { return m_model; }
    QTableView *table() const { return m_table; }

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void record(const EventRecord &record);
    void flush();
    void showDetails();
    void setPaused(bool paused);
    void copyText();
    void copyJson();
    void retranslate();
    void updateState();
    void buildTable();
    QWidget *buildBar();
    QVector<int> chosenRows() const;

    EventModel *m_model;
    EventFilter *m_filter;
    QTableView *m_table;
    QPlainTextEdit *m_details;
    QLineEdit *m_text;
    QLineEdit *m_codes;
    QComboBox *m_direction;
    QLabel *m_state;
    QAction *m_pause;
    QAction *m_clear;
    QAction *m_copy;
    QAction *m_copyJson;
    QTimer m_flushTimer;
    QTimer m_filterTimer;
};
