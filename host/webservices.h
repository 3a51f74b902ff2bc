// The web services as the host has them: runs the reference back end or uses one
// that is named, tells the module its address, and keeps the user logged in.
#pragma once

#include "host/backendsource.h"
#include "host/websession.h"

#include <QObject>
#include <QString>

#include <memory>

class HostContext;

class WebServices : public QObject
{
    Q_OBJECT

public:
    enum Source
    {
        None,
        Found, // another host's, or a process of its own
        Named  // one that runs already
    };
    struct Options
    {
        Source source = Found;
        BackendAddress named;
        BackendSource::Options found;
    };
    enum State
    {
        Off,
        Starting,
        LoggingIn,
        Ready,
        Unreachable, // tries again by itself
        Failed       // tryAgain() is the way on
    };

    // The context is not owned and outlives this object. With None nothing is
    // started, and a service address file written by hand is used.
    WebServices(HostContext *context, const Options &options, QObject *parent = nullptr);
    ~WebServices() override;

    // Returns at once; changed() tells what becomes of it.
    void start();
    void tryAgain() { start(); }
    // Ends the back end: at most 3 seconds.
    void stop();

    State state() const { return m_state; }
    QString stateText() const;                                  // for a status bar
    QString problem() const { return m_problem; }               // why, unless all is well
    const BackendAddress &address() const { return m_address; } // empty until it serves

signals:
    void changed();
    // Something that the user should read once.
    void note(const QString &text);

private:
    void use(const BackendAddress &address);
    void withdraw();
    void fail(const QString &problem);
    void setState(State state);
    void followSession();

    HostContext *m_context;
    Options m_options;
    std::unique_ptr<BackendSource> m_found;
    WebSession m_session;
    BackendAddress m_address;
    State m_state = Off;
    QString m_problem;
};
