// The reference host's command line.
#pragma once

#include <QString>
#include <QStringList>

struct HostOptions
{
    int people = 300;
    bool peopleGiven = false;
    QString importFile;
    QString user; // uid or account of the sample company; empty: the data folder's, else the first
    QString dataFolder; // empty: the platform's folder for application data
    QString pluginFile; // empty: the module beside the program
    QString language;   // "zh_CN" or "en"; empty: the last choice, else the system's
    QString skin;       // "light" or "dark"; empty: the last choice, else light
    bool offline = false;
    QStringList failing; // names of core operations, or "all"
    QStringList silent;
    QString tourFolder;    // empty: no tour
    QStringList tourSteps; // empty: all
    bool noBackend = false;
    QString joinFolder;     // data folder of the host whose back end is used; empty: none
    QString backendAddress; // of one that runs already; empty: the host's own
    QString caFile;         // PEM; both for backendAddress only
    QString passwordFile;
    int backendControlPort = -1; // -1: off
    bool simulation = true;
    bool reset = false;
};

struct CommandLineResult
{
    enum Action
    {
        Run,
        ShowText, // help or version: `text` goes to the standard output
        Refuse    // `text` tells what is wrong with the arguments
    };
    Action action = Run;
    HostOptions options;
    QString text;
};

// How the program ends.
namespace ExitCode {
constexpr int Success = 0;
constexpr int TourFailed = 1;
constexpr int BadArguments = 2;
constexpr int ImportFailed = 3; // the file could not be read at all
constexpr int StorageFailed = 4;
constexpr int PluginFailed = 5; // in a tour; otherwise the window tells it
} // namespace ExitCode

// The arguments apart: those of this program, and those of the toolkit, such as
// "-platform offscreen", which begin with one dash. The toolkit must not see the
// former: it has a --plugin of its own. Both lists begin with the program's name.
struct SplitArguments
{
    QStringList own;
    QStringList toolkit;
};
SplitArguments splitArguments(const QStringList &arguments);

// The answer to arguments with this mistake.
CommandLineResult refusal(const QString &problem);

// `arguments` begin with the program's name. `operations` are the names that
// --fail and --silent take, in any case; "all" is understood as well.
CommandLineResult parseCommandLine(const QStringList &arguments, const QStringList &operations);
