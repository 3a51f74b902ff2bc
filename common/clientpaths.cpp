#include "common/clientpaths.h"

#include "common/displaytext.h"
#include "common/platform.h"
#include "common/settingsfile.h"
#include "common/settingskeys.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {
QString below(const QString &folder, const QString &rest)
{
    return folder.isEmpty() ? QString() : folder + rest;
}
} // namespace

QString ClientPaths::normalized(const QString &path)
{
    QString result = path;
    result.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (result.contains(QLatin1String("//")))
        result.replace(QLatin1String("//"), QLatin1String("/"));
    // Where two slashes lead to a server, one leads nowhere.
    return Platform::isNetworkPath(path) ? QLatin1Char('/') + result : result;
}

QString ClientPaths::documentsFolder()
{
    const QString wanted = ctx().documentsFolder();
    if (!wanted.isEmpty())
        return normalized(wanted);
    const QString reported = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString folder = reported;
    if (folder.isEmpty()) {
        folder = Platform::registryText(
            QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\"
                           "Explorer\\User Shell Folders"),
            QStringLiteral("Personal"));
    }
    if (folder.isEmpty())
        folder = QDir(reported).absolutePath();
    return normalized(folder);
}

QString ClientPaths::clientDataFolder()
{
    return documentsFolder() + QLatin1String("/VeltraIm/");
}

QString ClientPaths::allUsersDatabaseFile()
{
    return QDir(clientDataFolder()).absolutePath() + QLatin1String("/UserInfo.db");
}

QString ClientPaths::versionFile()
{
    return clientDataFolder() + QLatin1String("Version.ini");
}

QString ClientPaths::clientInformationFile()
{
    return clientDataFolder() + QLatin1String("newIMInfo.ini");
}

QString ClientPaths::applicationDataFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).absolutePath();
}

QString ClientPaths::applicationFolder()
{
    const QString folder = ctx().applicationFolder();
    return folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder;
}

QString ClientPaths::serviceAddressFile()
{
    return applicationFolder() + QLatin1String("/allurl.ini");
}

QString ClientPaths::installedVersion()
{
    const QString registered = Platform::registryText(
        QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Veltra\\IM"), QStringLiteral("ThisVersion"));
    if (!registered.isEmpty())
        return registered;
    return SettingsFile(versionFile()).text(SettingsKeys::InstalledVersion);
}

bool ClientPaths::isSafeUserId(const QString &userId)
{
    if (userId.isEmpty() || userId.contains(QLatin1String("..")))
        return false;
    // "C:", "file:stream" and ":/resource" lead elsewhere, too.
    for (const QChar c : userId) {
        if (c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char(':') ||
            c.category() == QChar::Other_Control)
            return false;
    }
    // Windows drops what ends a name, and so makes two users one.
    const QChar last = userId.at(userId.size() - 1);
    return last != QLatin1Char('.') && last != QLatin1Char(' ') && !isReservedFileName(userId);
}

QString ClientPaths::allUsersFile()
{
    return below(ctx().userBaseFolder(), QStringLiteral("/allusers/usersInfo.ini"));
}

QString ClientPaths::userFolder(const QString &userId)
{
    if (!isSafeUserId(userId))
        return QString();
    return below(ctx().userBaseFolder(), QLatin1Char('/') + userId);
}

QString ClientPaths::userSettingsFile(const QString &userId)
{
    return below(userFolder(userId), QStringLiteral("/newConfig.ini"));
}

QString ClientPaths::localDatabaseFile(const QString &userId)
{
    const QString folder = userFolder(userId);
    return folder.isEmpty() ? QString()
                            : QDir(folder).absolutePath() + QLatin1String("/localData.db");
}

QString ClientPaths::designedHeadImagesFolder(const QString &userId)
{
    return below(userFolder(userId), QStringLiteral("/designHeadImage/"));
}
