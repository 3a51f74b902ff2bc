// friendui-host: a window around the contacts plug-in, with a messaging core that
// needs no server.
#include "host/commandline.h"
#include "host/hostapplication.h"
#include "host/hostplace.h"
#include "host/levermenu.h"
#include "host/quitsignals.h"
#include "host/tour/tour.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

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
    // For steps that want the services to fail or to be slow.
    const bool hasOwnBackend =
        !options->noBackend && options->backendAddress.isEmpty() && options->joinFolder.isEmpty();
    if (hasOwnBackend && options->backendControlPort < 0)
        options->backendControlPort = 0;
}

int run(QApplication &application, HostOptions options, HostPlace place)
{
    const bool isTour = !options.tourFolder.isEmpty();
    const QTemporaryDir tourData;
    if (isTour) {
        prepareTour(&options, tourData);
        QString problem;
        if (!settlePlace(&options, &place, &problem))
            return refuseOrShow(refusal(problem));
    }
    HostApplication host(options, place);
    int code = host.start();
    if (code == ExitCode::Success)
        code = isTour ? runTour(host) : application.exec();
    host.shutDown();
    return code;
}

// Asked of the toolkit: those of main() are in the code page of the system on Windows, which
// lacks most characters.
QStringList argumentsOf(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return QCoreApplication::arguments();
}

// Judged before a display is needed, so that --help and a mistake are told where
// there is none.
CommandLineResult judge(const QStringList &arguments, HostPlace *place)
{
    QByteArray name = arguments.constFirst().toLocal8Bit();
    char *argv[] = {name.data(), nullptr};
    int argc = 1;
    const QCoreApplication application(argc, argv);
    CommandLineResult result = parseCommandLine(arguments, LeverMenu::operationNames());
    QString problem;
    // A tour has no place yet.
    const bool isSettled = result.action != CommandLineResult::Run ||
                           !result.options.tourFolder.isEmpty() ||
                           settlePlace(&result.options, place, &problem);
    return isSettled ? result : refusal(problem);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("friendui-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FRIENDUI_VERSION));
    const QStringList arguments = argumentsOf(argc, argv);
    const SplitArguments split = splitArguments(arguments);
    HostPlace place;
    const CommandLineResult commandLine = judge(split.own, &place);
    if (commandLine.action != CommandLineResult::Run)
        return refuseOrShow(commandLine);
    if (!commandLine.options.tourFolder.isEmpty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    // The toolkit keeps the pointers as long as it lives.
    std::vector<QByteArray> texts;
    for (const QString &argument : split.toolkit)
        texts.push_back(argument.toLocal8Bit());
    std::vector<char *> pointers;
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    int count = int(pointers.size());
    pointers.push_back(nullptr);

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(count, pointers.data());
    quitOnSignals(&application);
    return run(application, commandLine.options, place);
}
