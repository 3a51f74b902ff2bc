#include "host/childprocess.h"

#include <QProcess>

#include <windows.h>

void ChildProcess::startUnseen(QProcess *process)
{
    process->setCreateProcessArgumentsModifier(
        [](QProcess::CreateProcessArguments *arguments) { arguments->flags |= CREATE_NO_WINDOW; });
}
