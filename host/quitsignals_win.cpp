#include "host/quitsignals.h"

#include <QCoreApplication>

#include <windows.h>

#include <atomic>

namespace {
std::atomic<bool> s_asked{false};

// In a thread of the system's. The end of the session comes to the windows as well; it is
// a program without any that is told here.
BOOL WINAPI takeControl(DWORD event)
{
    if (s_asked.exchange(true))
        return FALSE; // the process ends at once
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                              Qt::QueuedConnection);
    // When this returns, the process is ended: it may end itself first.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

struct Handler : QObject
{
    using QObject::QObject;
    ~Handler() override { SetConsoleCtrlHandler(takeControl, FALSE); }
};
} // namespace

void quitOnSignals(QObject *parent)
{
    if (SetConsoleCtrlHandler(takeControl, TRUE))
        new Handler(parent);
}
