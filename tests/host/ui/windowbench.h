// The host's window with a recording core, for the tests of its parts.
#pragma once

#include "host/eventlog.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/hostlanguage.h"
#include "host/mainwindow.h"
#include "host/requesttable.h"
#include "host/windows/hostwindows.h"
#include "tests/host/ui/fakecore.h"

#include <QStatusBar>
#include <QTemporaryDir>

inline FriendData person(const QString &uid, const QString &name)
{
    FriendData data;
    data.jid = uid + QLatin1String("@corp.example");
    data.nickName = name;
    return data;
}

inline MessageData message(const QString &session, const QString &from, const QString &body)
{
    MessageData data;
    data.sessionJid = session;
    data.fromJid = from;
    data.body = body;
    data.time = QStringLiteral("2024-01-02 03:04:05");
    return data;
}

inline QString hostile()
{
    return QString::fromUtf8("<img src=/etc/passwd><b>O'Brien</b> & \"Co\"\nforged");
}

struct WindowBench
{
    QTemporaryDir folder;
    FakeCore core;
    HostContext context{&core, folder.path()};
    EventLog log;
    HostBus bus{&log};
    HostLanguage language;
    MainWindow window{{&core, &context, &bus, &log, &language, nullptr}};

    WindowBench()
    {
        core.people = {person(QStringLiteral("u1"), QString::fromUtf8("李雷")),
                       person(QStringLiteral("u2"), hostile())};
        installRequestHandlers(bus, {&core, window.windows()});
    }
    ~WindowBench() { context.shutDown(); }

    QString status() const { return window.statusBar()->currentMessage(); }
    template <class T> T *find(const char *name) const
    {
        return window.findChild<T *>(QString::fromLatin1(name));
    }
};

inline QString u1()
{
    return QStringLiteral("u1@corp.example");
}
inline QString u2()
{
    return QStringLiteral("u2@corp.example");
}
