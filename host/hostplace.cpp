#include "host/hostplace.h"

#include "host/backendnotice.h"
#include "host/datafolder.h"
#include "sample/samplecompany.h"

#include <QDir>
#include <QStandardPaths>

namespace {

const char FolderPrefix[] = "user-";

QString firstUser()
{
    return SampleCompany::uid(0);
}

QString folderOf(const QString &user)
{
    const QString home = defaultDataFolder();
    return user == firstUser() ? home
                               : home + QLatin1Char('/') + QLatin1String(FolderPrefix) + user;
}

QStringList defaultFolders()
{
    const QDir home(defaultDataFolder());
    QStringList folders{home.path()};
    const QStringList others =
        home.entryList({QLatin1String(FolderPrefix) + QLatin1Char('*')}, QDir::Dirs, QDir::Name);
    for (const QString &name : others)
        folders.append(home.filePath(name));
    return folders;
}

bool takePeople(const SharedBackend &backend, HostOptions *options, QString *problem)
{
    if (options->peopleGiven && options->people != backend.people) {
        *problem = QStringLiteral("The back end that is joined has %1 people, not %2. "
                                  "--data takes a folder with a back end of its own.")
                       .arg(backend.people)
                       .arg(options->people);
        return false;
    }
    options->people = backend.people;
    return true;
}

bool settleBackend(HostOptions *options, HostPlace *place, QString *problem)
{
    SharedBackend found;
    if (!options->joinFolder.isEmpty()) {
        place->mayStartBackend = false;
        place->backendsOfOthers = QStringList{dataFolder(options->joinFolder)};
        if (BackendNotice::read(place->backendsOfOthers.first(), &found))
            return takePeople(found, options, problem);
        *problem = QStringLiteral("No host with a back end of its own runs with the data folder "
                                  "\"%1\".")
                       .arg(place->backendsOfOthers.first());
        return false;
    }
    const bool usesAnother = !options->backendAddress.isEmpty() || options->noBackend;
    if (!options->dataFolder.isEmpty() || usesAnother || options->backendControlPort >= 0)
        return true;
    place->backendsOfOthers = defaultFolders();
    for (const QString &folder : qAsConst(place->backendsOfOthers)) {
        if (BackendNotice::read(folder, &found))
            return takePeople(found, options, problem);
    }
    return true;
}

bool settleUser(const HostOptions &options, HostPlace *place, QString *problem)
{
    const QString given = options.dataFolder.isEmpty() ? QString() : dataFolder(options.dataFolder);
    const QString owner = dataFolderUser(given);
    if (options.user.isEmpty()) {
        place->user = owner.isEmpty() ? firstUser() : owner;
    } else {
        place->user = options.user;
    }
    const SampleCompany company(options.people);
    const QString uid = company.uidOf(place->user);
    if (uid.isEmpty()) {
        *problem =
            QStringLiteral("Nobody in the sample company has the uid or account \"%1\"; "
                           "there are %2 to %3, and x000000 to %4 of other companies.")
                .arg(place->user, SampleCompany::uid(0), SampleCompany::uid(company.people() - 1),
                     company.outsider(SampleCompany::OutsiderCount - 1).uid);
        return false;
    }
    place->user = uid;
    place->folder = given.isEmpty() ? folderOf(uid) : given;
    if (!owner.isEmpty() && owner != uid && !options.reset) {
        *problem = QStringLiteral("The data folder \"%1\" belongs to the user %2, not to %3. "
                                  "--data takes another one.")
                       .arg(given, owner, uid);
        return false;
    }
    return true;
}

} // namespace

QString defaultDataFolder()
{
    return dataFolder(QString());
}

bool settlePlace(HostOptions *options, HostPlace *place, QString *problem)
{
    if (!settleBackend(options, place, problem) || !settleUser(*options, place, problem))
        return false;
    const bool isDefault = options->dataFolder.isEmpty();
    place->backendFolder =
        (isDefault ? defaultDataFolder() : place->folder) + QLatin1String("/backend");
    return true;
}
