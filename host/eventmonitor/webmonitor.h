// The event monitor's second panel: the web requests of module and host, a filter,
// and copying.
#pragma once

#include "hostapi/webrequestrecord.h"

#include <QTimer>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QTableView;
class WebLog;
class WebRequestModel;
class WordFilter;

class WebMonitor : public QWidget
{
    Q_OBJECT

public:
    // Watches `log`, which is not owned and may be null, from now on, shown or not.
    explicit WebMonitor(const WebLog *log, QWidget *parent = nullptr);

    WebRequestModel *model() const { return m_model; }
    QTableView *table() const { return m_table; }

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *buildBar();
    void record(const WebRequestRecord &record);
    void flush();
    void copy();
    void updateState();
    void retranslate();

    WebRequestModel *m_model;
    WordFilter *m_filter;
    QTableView *m_table;
    QLineEdit *m_text;
    QLabel *m_state;
    QAction *m_clear;
    QAction *m_copy;
    QTimer m_flushTimer;
    QTimer m_filterTimer;
};
