// Where the host gets its back end from when none is named: from another host that shares
// its own, else from a process of its own, which it then shares. When the other host ends,
// this one starts a back end itself, or waits for the next host that does.
#pragma once

#include "host/backendnotice.h"
#include "host/backendprocess.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

class BackendSource : public QObject
{
    Q_OBJECT

public:
    static constexpr int LookMs = 1000;        // from one look at the others' to the next
    static constexpr int LongestPause = 30000; // ms; between starts that fail

    struct Options
    {
        BackendProcess::Options process;
        bool mayStart = true;
        QString shareIn;      // the data folder in which other hosts find the back end
        QStringList lookedIn; // data folders of hosts that may share theirs
    };

    explicit BackendSource(const Options &options, QObject *parent = nullptr);
    // Ends the process, as stop() does.
    ~BackendSource() override;

    // One of ready() and failed() follows, never inside this call. Does nothing while
    // there is a back end or one is starting.
    void start();
    // Ends a back end of its own: at most 3 seconds. No signal follows.
    void stop();

    bool hasBackend() const { return !m_address.address.isEmpty(); }
    const BackendAddress &address() const { return m_address; }

signals:
    void ready();
    void lost(const QString &reason); // another ready() may follow by itself
    void failed(const QString &reason);

private:
    void look();
    bool findOther(SharedBackend *found) const;
    void join(const BackendAddress &address);
    void launch();
    void share();
    void processFailed(const QString &reason);

    Options m_options;
    BackendProcess m_process;
    BackendNotice m_notice;
    BackendAddress m_address;
    QTimer m_look;
    QTimer m_pause; // before it starts a back end again
    int m_nextPause = LookMs;
    bool m_toldFailure = false;
};
