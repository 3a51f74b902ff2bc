#include "backend/backend.h"
#include "backend/commandline.h"
#include "backend/endwait.h"
#include "backend/reply.h"
#include "common/terminal.h"

#include <QCoreApplication>

#include <json/value.h>

#include <cstdio>

namespace {
enum ExitCode
{
    EndedAsAsked = 0,
    CannotServe = 1,
    WrongCommandLine = 2
};

int fail(ExitCode code, const QString &problem)
{
    Terminal::complain(QStringLiteral("friendui-backend: %1\n").arg(problem));
    return code;
}

void logLine(const std::string &line)
{
    Terminal::complain(QString::fromStdString(line) + QLatin1Char('\n'));
}

// One line of JSON, for the program that started this one.
void announce(const BackEnd &backEnd)
{
    Json::Value line(Json::objectValue);
    line["port"] = backEnd.port();
    line["controlPort"] = backEnd.controlPort();
    line["address"] = backEnd.address().toStdString();
    line["caFile"] = backEnd.caFile().toStdString();
    line["passwordFile"] = backEnd.passwordFile().toStdString();
    std::printf("%s\n", jsonLine(line).c_str()); // UTF-8, whoever reads it
    std::fflush(stdout);
}
} // namespace

int main(int argc, char **argv)
{
    prepareForEnd();
    const QCoreApplication app(argc, argv); // for the picture readers
    CommandLine commandLine;
    QString problem;
    if (!commandLine.parse(app.arguments().mid(1), &problem))
        return fail(WrongCommandLine, problem);
    if (commandLine.wantsHelp) {
        Terminal::say(CommandLine::help());
        return EndedAsAsked;
    }
    if (!commandLine.isQuiet)
        commandLine.options.log = logLine;
    BackEnd backEnd(commandLine.options);
    if (!backEnd.start(&problem))
        return fail(CannotServe, problem);
    announce(backEnd);
    waitForEnd(commandLine.endWithStdin);
    backEnd.stop();
    return EndedAsAsked;
}
