#include "host/quitsignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
// A handler may call next to nothing; a byte through a pipe wakes the event loop.
int s_pipe[2] = {-1, -1};

void wakeEventLoop(int)
{
    const char byte = 0;
    const ssize_t written = write(s_pipe[1], &byte, 1);
    Q_UNUSED(written);
}
} // namespace

void quitOnSignals(QObject *parent)
{
    if (pipe(s_pipe) != 0)
        return;
    for (const int end : s_pipe)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    auto *notifier = new QSocketNotifier(s_pipe[0], QSocketNotifier::Read, parent);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = wakeEventLoop;
    action.sa_flags = int(SA_RESTART | SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
}
