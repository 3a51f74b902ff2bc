#include "tests/backend/consoleprocess.h"

#include <QProcess>

void ConsoleProcess::prepare(QProcess *) {}

bool ConsoleProcess::askToEnd(QProcess *process)
{
    process->terminate();
    return true;
}
