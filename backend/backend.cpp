#include "backend/backend.h"

#include "backend/call.h"
#include "backend/context.h"
#include "backend/control.h"
#include "backend/dispatcher.h"
#include "backend/filestore.h"
#include "backend/levers.h"
#include "backend/peopleindex.h"
#include "backend/routes/routes.h"
#include "backend/teamcontrol.h"
#include "backend/transfers.h"
#include "backend/webserver.h"

struct BackEnd::Private
{
    explicit Private(const BackEndOptions &wanted)
        : options(wanted),
          context(wanted.people, wanted.seed, wanted.departmentSize, wanted.friendLimit)
    {
        context.numbers.setExtraAtStart(wanted.serviceNumbers);
    }
    bool open(QString *problem);
    void addServices();

    BackEndOptions options;
    BackEndContext context;
    Services services;
    Levers levers;
    std::unique_ptr<Dispatcher> dispatcher;
    WebServer server;
    ControlServer control{context, levers};
    QString caFile;
};

BackEnd::BackEnd(const BackEndOptions &options) : d(new Private(options)) {}

BackEnd::~BackEnd()
{
    stop();
}

void BackEnd::Private::addServices()
{
    services = Services();
    addPassportServices(&services, context);
    addOrganisationServices(&services, context);
    const auto index = std::make_shared<const PeopleIndex>(context.people);
    addPeopleSearch(&services, context, index);
    addSettingsServices(&services, context);
    const auto store = std::make_shared<FileStore>(context);
    addFileServices(&services, store);
    addMultipartServices(&services, std::make_shared<Transfers>(context, store));
    addMonitoringServices(&services);
    addTeamServices(&services, context);
    addTeamFoundingServices(&services, context);
    addTeamPeopleServices(&services, context, index);
    addEventServices(&services, context);
    addCompanyServices(&services, context);
    addFriendServices(&services, context);
    addFriendSearch(&services, context, index);
    addPictureServices(&services, store);
    addServiceNumbers(&services, context);
    addNumberHistory(&services, context);
}

bool BackEnd::Private::open(QString *problem)
{
    if (!context.folder.open(options.dataFolder, problem))
        return false;
    context.password = context.folder.password(problem);
    if (context.password.isEmpty() ||
        !context.database.open(context.folder.path(QStringLiteral("backend.sqlite")), problem))
        return false;
    context.sessions.tidy();
    if (options.teamApproval)
        requireTeamApproval(&context);
    if (options.teamSize > 0 && !provideTeam(options.teamSize, &context)) {
        *problem = QStringLiteral("there are not enough people for the team");
        return false;
    }
    const CertificateOptions *special =
        options.specialCertificate ? &*options.specialCertificate : nullptr;
    const Certificates::Files files = Certificates::provide(context.folder, special, problem);
    if (files.leaf.isNull() || !server.open(files.leaf, options.port, problem))
        return false;
    caFile = files.authority;
    context.address = QStringLiteral("https://127.0.0.1:%1").arg(server.port());
    addServices();
    if (options.controlPort >= 0 && !control.start(options.controlPort, problem))
        return false;
    context.bell.setOn(true);
    dispatcher = std::make_unique<Dispatcher>(services, context, levers, options.log);
    server.run(*dispatcher);
    return true;
}

bool BackEnd::start(QString *problem)
{
    stop();
    try {
        if (d->open(problem))
            return true;
    } catch (const std::exception &error) {
        *problem = QString::fromUtf8(error.what());
    }
    stop();
    return false;
}

void BackEnd::stop()
{
    d->levers.stop();
    d->context.bell.setOn(false);
    d->control.stop();
    d->server.stop();
    d->context.database.close();
    d->context.folder.close();
}

int BackEnd::port() const
{
    return d->server.port();
}

int BackEnd::controlPort() const
{
    return d->control.port();
}

QString BackEnd::address() const
{
    return d->context.address;
}

QString BackEnd::caFile() const
{
    return d->caFile;
}

QString BackEnd::password() const
{
    return d->context.password;
}

QString BackEnd::passwordFile() const
{
    return d->context.folder.passwordFile();
}
