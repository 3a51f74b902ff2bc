#include "backend/backend.h"
#include "backend/commandline.h"
#include "backend/endwait.h"
#include "backend/reply.h"

#include <QCoreApplication>

#include <json/value.h>

#include <cstdio>
#include <mutex>

namespace {
enum ExitCode
{
    EndedAsAsked = 0,
    CannotServe = 1,
    WrongCommandLine = 2
};

int fail(ExitCode code, const QString &problem)
{
    std::fprintf(stderr, "friendui-backend: %s\n", problem.toUtf8().constData());
    return code;
}

void logLine(const std::string &line)
{
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    std::fprintf(stderr, "%s\n", line.c_str());
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
    std::printf("%s\n", jsonLine(line).c_str());
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
        std::printf("%s", CommandLine::help().toUtf8().constData());
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
