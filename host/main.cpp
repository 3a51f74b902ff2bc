// friendui-host: a window around the contacts plug-in, with a messaging core that
// needs no server.
#include "host/commandline.h"
#include "host/hostapplication.h"
#include "host/levermenu.h"
#include "host/tour/tour.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

int refuseOrShow(const CommandLineResult &commandLine)
{
    const bool refused = commandLine.action == CommandLineResult::Refuse;
    std::fprintf(refused ? stderr : stdout, "%s", qPrintable(commandLine.text));
    return refused ? ExitCode::BadArguments : ExitCode::Success;
}

// A tour starts from nothing, always looks the same, and leaves the user's own
// data alone.
void prepareTour(HostOptions *options, const QTemporaryDir &folder)
{
    if (options->dataFolder.isEmpty())
        options->dataFolder = folder.path();
    if (options->language.isEmpty())
        options->language = QStringLiteral("zh_CN");
    options->simulation = false;
}

int run(QApplication &application, HostOptions options)
{
    const bool isTour = !options.tourFolder.isEmpty();
    const QTemporaryDir tourData;
    if (isTour)
        prepareTour(&options, tourData);
    HostApplication host(options);
    int code = host.start();
    if (code == ExitCode::Success)
        code = isTour ? runTour(host) : application.exec();
    host.shutDown();
    return code;
}

// Options of the toolkit itself, such as -platform, begin with one dash. Only the
// toolkit's own start can take them out.
bool hasToolkitOptions(int argc, char **argv)
{
    return std::any_of(argv + 1, argv + argc, [](const char *argument) {
        return argument[0] == '-' && argument[1] != '-' && std::strlen(argument) > 2;
    });
}

// Arguments are judged before a display is needed.
bool isSettledWithoutDisplay(int argc, char **argv, int *code)
{
    if (hasToolkitOptions(argc, argv))
        return false;
    const QCoreApplication application(argc, argv);
    const CommandLineResult commandLine =
        parseCommandLine(QCoreApplication::arguments(), LeverMenu::operationNames());
    if (commandLine.action == CommandLineResult::Run) {
        if (!commandLine.options.tourFolder.isEmpty() &&
            qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return false;
    }
    *code = refuseOrShow(commandLine);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("friendui-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FRIENDUI_VERSION));
    int code = ExitCode::Success;
    if (isSettledWithoutDisplay(argc, argv, &code))
        return code;

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    const CommandLineResult commandLine =
        parseCommandLine(QCoreApplication::arguments(), LeverMenu::operationNames());
    if (commandLine.action != CommandLineResult::Run)
        return refuseOrShow(commandLine);
    return run(application, commandLine.options);
}
