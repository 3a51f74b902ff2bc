// The command line of friendui-backend.
#pragma once

#include "backend/backend.h"

#include <QStringList>

struct CommandLine
{
    BackEndOptions options;
    bool endWithStdin = false;
    bool isQuiet = false;
    bool wantsHelp = false;

    static QString help();
    // `arguments` without the program's name. False with *problem set when it cannot
    // be understood.
    bool parse(const QStringList &arguments, QString *problem);
};
