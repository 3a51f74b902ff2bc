#include "host/commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

namespace {

struct Option
{
    const char *name;
    const char *valueName; // null: a switch
    const char *description;
};

constexpr Option options[] = {
    {"people", "N", "People in the sample company, 1 to 100000 (default 300)."},
    {"user", "UID",
     "Be this user of the sample company, such as u000001, or x000000 of another company; an "
     "account does as well (default: the data folder's user, else u000000). Everybody has a "
     "data folder of their own."},
    {"import", "FILE.vcf",
     "Fill the friend tree from a vCard file (2.1, 3.0 or 4.0). Starts without "
     "--people show it from then on."},
    {"data", "DIR", "Keep databases, settings and log in DIR."},
    {"plugin", "PATH", "Load this plug-in module."},
    {"lang", "zh_CN|en", "Language of the window (default: the last choice, else the system's)."},
    {"skin", "light|dark", "Skin of the window (default: the last choice, else light)."},
    {"offline", nullptr, "Start without a connection."},
    {"fail", "OPERATION", "Let an operation of the core fail, or all. May be given repeatedly."},
    {"silent", "OPERATION", "Never answer an operation, or all. May be repeated."},
    {"backend", "ADDRESS",
     "Use the web services that run at this address, with --password-file and --ca, "
     "instead of starting some."},
    {"ca", "FILE", "PEM file with the authority to trust for --backend."},
    {"password-file", "FILE", "File with the password of the own user for --backend."},
    {"join", "DIR",
     "Use the web services of the host that runs with the data folder DIR. Hosts without "
     "--data share them anyway."},
    {"no-backend", nullptr, "Start without web services."},
    {"backend-control-port", "N",
     "Let the started web services be scripted on this port of the loopback interface; "
     "0 takes any free one."},
    {"tour", "DIR", "Drive the main flows, leave one picture of each in DIR, and end."},
    {"tour-steps", "NAMES", "Only these steps of the tour, separated by commas."},
    {"no-simulation", nullptr, "People neither come and go nor answer."},
    {"reset", nullptr, "Forget what was changed and start with a new company."},
};

QString valueOf(const QCommandLineParser &parser, const char *name)
{
    return parser.value(QString::fromLatin1(name));
}

bool isSet(const QCommandLineParser &parser, const char *name)
{
    return parser.isSet(QString::fromLatin1(name));
}

// One of `allowed` in its own spelling; empty with *problem set otherwise.
QString oneOf(const QString &value, const QStringList &allowed, const char *option,
              QString *problem)
{
    for (const QString &name : allowed) {
        if (name.compare(value, Qt::CaseInsensitive) == 0)
            return name;
    }
    *problem = QStringLiteral("--%1 takes one of %2, not \"%3\".")
                   .arg(QLatin1String(option), allowed.join(QLatin1String(", ")), value);
    return QString();
}

QStringList operationsOf(const QCommandLineParser &parser, const char *option,
                         const QStringList &allowed, QString *problem)
{
    QStringList names;
    const QStringList values = parser.values(QString::fromLatin1(option));
    for (const QString &value : values) {
        const QStringList parts = value.split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString &part : parts)
            names.append(oneOf(part, allowed, option, problem));
    }
    return names;
}

void readPeople(const QCommandLineParser &parser, HostOptions *result, QString *problem)
{
    if (!isSet(parser, "people"))
        return;
    result->peopleGiven = true;
    const QString text = valueOf(parser, "people");
    bool isNumber = false;
    result->people = text.toInt(&isNumber);
    if (!isNumber || result->people < 1 || result->people > 100000)
        *problem =
            QStringLiteral("--people takes a number from 1 to 100000, not \"%1\".").arg(text);
}

void readPaths(const QCommandLineParser &parser, HostOptions *result, QString *problem)
{
    const struct
    {
        const char *name;
        QString *target;
        bool mustBeFile;
    } paths[] = {{"import", &result->importFile, true},
                 {"plugin", &result->pluginFile, false}, // the window tells when it is missing
                 {"data", &result->dataFolder, false},
                 {"join", &result->joinFolder, false},
                 {"ca", &result->caFile, true},
                 {"password-file", &result->passwordFile, true},
                 {"tour", &result->tourFolder, false}};
    for (const auto &path : paths) {
        if (!isSet(parser, path.name))
            continue;
        *path.target = valueOf(parser, path.name);
        if (path.target->isEmpty())
            *problem = QStringLiteral("--%1 needs a path.").arg(QLatin1String(path.name));
        else if (path.mustBeFile && !QFileInfo(*path.target).isFile())
            *problem = QStringLiteral("The file \"%1\" does not exist.").arg(*path.target);
    }
    for (const QString &folder : {result->dataFolder, result->tourFolder}) {
        if (!folder.isEmpty() && QFileInfo(folder).isFile())
            *problem = QStringLiteral("\"%1\" is a file, not a folder.").arg(folder);
    }
}

void readUser(const QCommandLineParser &parser, HostOptions *result, QString *problem)
{
    if (!isSet(parser, "user"))
        return;
    result->user = valueOf(parser, "user").trimmed();
    if (result->user.isEmpty())
        *problem = QStringLiteral("--user needs a uid or an account.");
}

void readControlPort(const QCommandLineParser &parser, HostOptions *result, QString *problem)
{
    if (!isSet(parser, "backend-control-port"))
        return;
    const QString text = valueOf(parser, "backend-control-port");
    bool isNumber = false;
    result->backendControlPort = text.toInt(&isNumber);
    if (!isNumber || result->backendControlPort < 0 || result->backendControlPort > 65535)
        *problem =
            QStringLiteral("--backend-control-port takes a number from 0 to 65535, not \"%1\".")
                .arg(text);
}

void readBackend(const QCommandLineParser &parser, HostOptions *result, QString *problem)
{
    readControlPort(parser, result, problem);
    result->noBackend = isSet(parser, "no-backend");
    const bool isNamed = isSet(parser, "backend");
    result->backendAddress = valueOf(parser, "backend");
    while (result->backendAddress.endsWith(QLatin1Char('/')))
        result->backendAddress.chop(1);
    const QUrl url(result->backendAddress, QUrl::StrictMode);
    const bool isHttps = url.isValid() && url.scheme() == QLatin1String("https") &&
                         !url.host().isEmpty() && url.userInfo().isEmpty() && !url.hasQuery() &&
                         !url.hasFragment();
    if (isNamed && !isHttps)
        *problem = QStringLiteral("--backend takes an address such as https://host:8443, not "
                                  "\"%1\".")
                       .arg(result->backendAddress);
    else if (isNamed && result->passwordFile.isEmpty())
        *problem = QStringLiteral("--backend needs --password-file.");
    else if (!isNamed && (isSet(parser, "ca") || isSet(parser, "password-file")))
        *problem = QStringLiteral("--ca and --password-file need --backend.");
    else if (int(isNamed) + int(result->noBackend) + int(result->backendControlPort >= 0) +
                 int(isSet(parser, "join")) >
             1)
        *problem = QStringLiteral("Only one of --backend, --no-backend, --backend-control-port "
                                  "and --join can be given.");
}

} // namespace

SplitArguments splitArguments(const QStringList &arguments)
{
    const auto isOption = [](const QString &text) { return text.startsWith(QLatin1Char('-')); };
    SplitArguments split{arguments.mid(0, 1), arguments.mid(0, 1)};
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        const bool isLong = argument.startsWith(QLatin1String("--"));
        const bool isToolkits = (isOption(argument) && !isLong && argument.size() > 2) ||
                                argument.startsWith(QLatin1String("--platform"));
        if (!isToolkits) {
            split.own.append(argument);
            continue;
        }
        split.toolkit.append(argument);
        const bool hasValue = !argument.contains(QLatin1Char('=')) && i + 1 < arguments.size() &&
                              !isOption(arguments.at(i + 1));
        if (hasValue)
            split.toolkit.append(arguments.at(++i));
    }
    return split;
}

CommandLineResult refusal(const QString &problem)
{
    return {CommandLineResult::Refuse, HostOptions(),
            problem + QLatin1String("\n--help lists the options.\n")};
}

CommandLineResult parseCommandLine(const QStringList &arguments, const QStringList &operations)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Reference host for the contacts plug-in FriendUI, with a sample company."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    for (const Option &option : options) {
        QCommandLineOption added(QString::fromLatin1(option.name),
                                 QString::fromLatin1(option.description));
        if (option.valueName)
            added.setValueName(QString::fromLatin1(option.valueName));
        parser.addOption(added);
    }

    CommandLineResult result;
    QString problem;
    if (!parser.parse(arguments)) {
        problem = parser.errorText();
    } else if (parser.isSet(help)) {
        return {CommandLineResult::ShowText, HostOptions(), parser.helpText()};
    } else if (parser.isSet(version)) {
        return {CommandLineResult::ShowText, HostOptions(),
                QCoreApplication::applicationName() + QLatin1Char(' ') +
                    QCoreApplication::applicationVersion() + QLatin1Char('\n')};
    } else if (!parser.positionalArguments().isEmpty()) {
        problem = QStringLiteral("Unexpected argument \"%1\".")
                      .arg(parser.positionalArguments().constFirst());
    }

    HostOptions &chosen = result.options;
    if (problem.isEmpty()) {
        const QStringList allowed = QStringList{QStringLiteral("all")} + operations;
        readPeople(parser, &chosen, &problem);
        readUser(parser, &chosen, &problem);
        readPaths(parser, &chosen, &problem);
        readBackend(parser, &chosen, &problem);
        if (isSet(parser, "lang"))
            chosen.language =
                oneOf(valueOf(parser, "lang"), {QStringLiteral("zh_CN"), QStringLiteral("en")},
                      "lang", &problem);
        if (isSet(parser, "skin"))
            chosen.skin =
                oneOf(valueOf(parser, "skin"), {QStringLiteral("light"), QStringLiteral("dark")},
                      "skin", &problem);
        chosen.failing = operationsOf(parser, "fail", allowed, &problem);
        chosen.silent = operationsOf(parser, "silent", allowed, &problem);
        chosen.offline = isSet(parser, "offline");
        chosen.simulation = !isSet(parser, "no-simulation");
        chosen.reset = isSet(parser, "reset");
        chosen.tourSteps =
            valueOf(parser, "tour-steps").split(QLatin1Char(','), Qt::SkipEmptyParts);
        if (!chosen.tourSteps.isEmpty() && chosen.tourFolder.isEmpty())
            problem = QStringLiteral("--tour-steps needs --tour.");
    }
    return problem.isEmpty() ? result : refusal(problem);
}
