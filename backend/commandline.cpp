#include "backend/commandline.h"

#include "backend/friends/friend.h"
#include "backend/numbers/servicenumberlist.h"
#include "sample/samplecompany.h"

namespace {
constexpr qint64 Day = 24 * 3600;

// Empty: a name that is none.
std::optional<CertificateOptions> certificateNamed(const QString &name)
{
    CertificateOptions options;
    if (name == QLatin1String("expired")) {
        options.validFrom = -30 * Day;
        options.validUntil = -Day;
    } else if (name == QLatin1String("wrong-host")) {
        options.hosts = QStringList{QStringLiteral("elsewhere.example")};
    } else {
        return std::nullopt;
    }
    return options;
}

bool readNumber(const QString &text, qint64 least, qint64 most, int *number)
{
    bool ok = false;
    const qint64 value = text.toLongLong(&ok);
    if (!ok || value < least || value > most)
        return false;
    *number = int(value);
    return true;
}
} // namespace

QString CommandLine::help()
{
    return QStringLiteral(
        "friendui-backend --data FOLDER [options]\n"
        "The web services of the sample company, over HTTPS on 127.0.0.1.\n"
        "\n"
        "  --data FOLDER          certificate, database, files, password; made when missing\n"
        "  --people N             people of the company, 1 to 100000 (300)\n"
        "  --seed N               another number gives other people (1)\n"
        "  --port P               0 to 65535; 0, any free one, when not given\n"
        "  --control-port P       serve the levers for tests on this port; 0: any free one\n"
        "  --department-size N    one more department, D9000, of so many employees\n"
        "  --team-approval        virtual teams of the company need approval\n"
        "  --team-size N          u000000 has a virtual team of so many people\n"
        "  --friend-limit N       external contacts that a user may have (500)\n"
        "  --service-numbers N    so many more service numbers\n"
        "  --certificate KIND     expired or wrong-host, for tests of clients\n"
        "  --end-with-stdin       end when standard input ends\n"
        "  --quiet                no line per request on standard error\n"
        "  --help                 this text\n"
        "\n"
        "Exit codes: 0 ended as asked, 1 cannot serve, 2 wrong command line.\n");
}

CommandLine::Readers CommandLine::readers()
{
    return {
        {QStringLiteral("--data"),
         [this](const QString &value) {
             options.dataFolder = value;
             return !value.isEmpty();
         }},
        {QStringLiteral("--people"),
         [this](const QString &value) {
             return readNumber(value, 1, SampleCompany::MaximumPeople, &options.people);
         }},
        {QStringLiteral("--seed"),
         [this](const QString &value) {
             bool ok = false;
             options.seed = value.toULongLong(&ok);
             return ok;
         }},
        {QStringLiteral("--port"),
         [this](const QString &value) { return readNumber(value, 0, 65535, &options.port); }},
        {QStringLiteral("--control-port"),
         [this](const QString &value) {
             return readNumber(value, 0, 65535, &options.controlPort);
         }},
        {QStringLiteral("--department-size"),
         [this](const QString &value) {
             return readNumber(value, 0, SampleCompany::MaximumPeople, &options.departmentSize);
         }},
        {QStringLiteral("--team-size"),
         [this](const QString &value) {
             return readNumber(value, 0, 2 * SampleCompany::MaximumPeople, &options.teamSize);
         }},
        {QStringLiteral("--friend-limit"),
         [this](const QString &value) {
             return readNumber(value, 0, FriendLimit::MostContacts, &options.friendLimit);
         }},
        {QStringLiteral("--service-numbers"),
         [this](const QString &value) {
             return readNumber(value, 0, ServiceNumberList::MostExtra, &options.serviceNumbers);
         }},
        {QStringLiteral("--certificate"),
         [this](const QString &value) {
             options.specialCertificate = certificateNamed(value);
             return options.specialCertificate.has_value();
         }},
    };
}

bool CommandLine::parse(const QStringList &arguments, QString *problem)
{
    const Readers known = readers();
    const std::map<QString, bool *> flags{
        {QStringLiteral("--end-with-stdin"), &endWithStdin},
        {QStringLiteral("--quiet"), &isQuiet},
        {QStringLiteral("--team-approval"), &options.teamApproval},
        {QStringLiteral("--help"), &wantsHelp},
    };
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &name = arguments.at(i);
        if (const auto flag = flags.find(name); flag != flags.end()) {
            *flag->second = true;
            continue;
        }
        const auto reader = known.find(name);
        if (reader == known.end()) {
            *problem = QStringLiteral("unknown option: ") + name;
            return false;
        }
        if (i + 1 == arguments.size() || !reader->second(arguments.at(++i))) {
            *problem = QStringLiteral("wrong or missing value: ") + name;
            return false;
        }
    }
    if (options.dataFolder.isEmpty() && !wantsHelp) {
        *problem = QStringLiteral("--data is missing");
        return false;
    }
    return true;
}
