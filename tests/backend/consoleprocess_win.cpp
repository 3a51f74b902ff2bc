#include "tests/backend/consoleprocess.h"

#include <QProcess>

#include <windows.h>

namespace {
BOOL WINAPI ignore(DWORD)
{
    return TRUE;
}
} // namespace

void ConsoleProcess::prepare(QProcess *process)
{
    process->setCreateProcessArgumentsModifier(
        [](QProcess::CreateProcessArguments *arguments) { arguments->flags |= CREATE_NO_WINDOW; });
}

bool ConsoleProcess::askToEnd(QProcess *process)
{
    FreeConsole();
    if (!AttachConsole(DWORD(process->processId())))
        return false;
    // It goes to all that share the console.
    SetConsoleCtrlHandler(ignore, TRUE);
    const bool done = GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0) != 0;
    Sleep(200);
    FreeConsole();
    SetConsoleCtrlHandler(ignore, FALSE);
    return done;
}
