#include "host/datafolder.h"

#include "common/lockfile.h"
#include "common/platform.h"
#include "sample/samplecompany.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
constexpr int MaximumMark = 64; // bytes

// --reset deletes: without the mark, a mistyped --data could hit a folder of the
// user's own.
const QString markName()
{
    return QStringLiteral(".friendui-host");
}

} // namespace

QString dataFolder(const QString &wanted)
{
    return QDir(wanted.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                                 : wanted)
        .absolutePath();
}

QString dataFolderUser(const QString &folder)
{
    QFile mark(folder + QLatin1Char('/') + markName());
    if (folder.isEmpty() || !mark.open(QIODevice::ReadOnly))
        return QString();
    const QString user = QString::fromUtf8(mark.readLine(MaximumMark)).trimmed();
    // Folders had no users at first.
    return user.isEmpty() ? SampleCompany::uid(0) : user;
}

bool prepareDataFolder(const QString &folder, const QString &user, QString *problem)
{
    // What people say to each other is nobody else's business.
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
        Platform::restrictFolderToOwner(folder);
    const QByteArray owner = user.toUtf8() + '\n';
    QFile mark(folder + QLatin1Char('/') + markName());
    if (QDir().mkpath(folder) &&
        (dataFolderUser(folder) == user ||
         (mark.open(QIODevice::WriteOnly) && mark.write(owner) == owner.size())))
        return true;
    *problem = QStringLiteral("The data folder \"%1\" cannot be written.").arg(folder);
    return false;
}

std::unique_ptr<QLockFile> lockDataFolder(const QString &folder, QString *problem)
{
    auto lock = std::make_unique<QLockFile>(folder + QLatin1String("/host.lock"));
    lock->setStaleLockTime(0); // however long it runs
    if (tryLockFile(lock.get()))
        return lock;
    qint64 process = 0;
    QString machine, program;
    if (lock->error() == QLockFile::LockFailedError &&
        lock->getLockInfo(&process, &machine, &program)) {
        *problem = QStringLiteral("The data folder \"%1\" is in use by process %2. "
                                  "--data takes another one.")
                       .arg(folder)
                       .arg(process);
    } else {
        *problem = QStringLiteral("The data folder \"%1\" cannot be written.").arg(folder);
    }
    return nullptr;
}

bool resetDataFolder(const QString &folder, QString *problem)
{
    if (!QFileInfo::exists(folder))
        return true;
    if (!QFileInfo::exists(folder + QLatin1Char('/') + markName())) {
        *problem = QStringLiteral("\"%1\" is no data folder of this program; nothing was deleted.")
                       .arg(folder);
        return false;
    }
    QLockFile backend(folder + QLatin1String("/backend/lock"));
    backend.setStaleLockTime(0);
    if (QFileInfo::exists(folder + QLatin1String("/backend")) && !tryLockFile(&backend)) {
        *problem = QStringLiteral("The back end in \"%1\" is in use by another host; nothing was "
                                  "deleted.")
                       .arg(folder);
        return false;
    }
    backend.unlock();
    QFile::remove(folder + QLatin1String("/host.ini"));
    QFile::remove(folder + QLatin1String("/allurl.ini"));
    for (const char *part : {"core", "users", "documents", "backend"}) {
        QDir directory(folder + QLatin1Char('/') + QLatin1String(part));
        if (directory.exists() && !directory.removeRecursively()) {
            *problem = QStringLiteral("\"%1\" could not be deleted.").arg(directory.path());
            return false;
        }
    }
    return true;
}
