#include "backend/endwait.h"

#include <windows.h>

#include <thread>

namespace {
HANDLE wakeUp = nullptr;

// In a thread of the system's.
BOOL WINAPI wake(DWORD event)
{
    SetEvent(wakeUp);
    // When this returns, the process is ended: it may end itself first.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

// A pipe, a console, a file or nothing at all.
void readToTheEnd(HANDLE input)
{
    const bool isPipe = GetFileType(input) == FILE_TYPE_PIPE;
    // Of a pipe also a writer who writes nothing is heard.
    const auto goesOn = [=] {
        return isPipe && PeekNamedPipe(input, nullptr, 0, nullptr, nullptr, nullptr);
    };
    char skipped[256];
    DWORD count = 0;
    while (ReadFile(input, skipped, sizeof skipped, &count, nullptr) && (count > 0 || goesOn()))
        ;
    SetEvent(wakeUp);
}
} // namespace

void prepareForEnd()
{
    wakeUp = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (wakeUp)
        SetConsoleCtrlHandler(wake, TRUE);
}

void waitForEnd(bool withStdin)
{
    if (!wakeUp)
        return;
    // The process ends while it reads.
    if (withStdin)
        std::thread(readToTheEnd, GetStdHandle(STD_INPUT_HANDLE)).detach();
    WaitForSingleObject(wakeUp, INFINITE);
}
