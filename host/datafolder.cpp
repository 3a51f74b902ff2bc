#include "host/datafolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

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

bool prepareDataFolder(const QString &folder, QString *problem)
{
    // What people say to each other is nobody else's business.
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile mark(folder + QLatin1Char('/') + markName());
    if (QDir().mkpath(folder) && (mark.exists() || mark.open(QIODevice::WriteOnly)))
        return true;
    *problem = QStringLiteral("The data folder \"%1\" cannot be written.").arg(folder);
    return false;
}

std::unique_ptr<QLockFile> lockDataFolder(const QString &folder, QString *problem)
{
    auto lock = std::make_unique<QLockFile>(folder + QLatin1String("/host.lock"));
    lock->setStaleLockTime(0); // however long it runs
    if (lock->tryLock(0))
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
