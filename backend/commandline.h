// The command line of friendui-backend.
#pragma once

#include "backend/backend.h"

#include <QStringList>

#include <functional>
#include <map>

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

private:
    // Of an option's value; false for a wrong one.
    using Readers = std::map<QString, std::function<bool(const QString &)>>;
    Readers readers();
};
