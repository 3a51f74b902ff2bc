#include "Resources/frienduiresources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

void initFriendUiResources()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(friendui);
        return true;
    }();
    Q_UNUSED(registered)
}

namespace {
QString besideExecutable(const QString &relativePath)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + relativePath;
}

QString inModule(const QString &relativePath)
{
    initFriendUiResources();
    return QStringLiteral(":/FriendUI/") + relativePath;
}
} // namespace

QString resourcePath(const QString &relativePath)
{
    if (QFile::exists(relativePath))
        return relativePath;
    const QString beside = besideExecutable(relativePath);
    return QFile::exists(beside) ? beside : inModule(relativePath);
}

QStringList resourceNames(const QString &relativeFolder)
{
    QStringList names;
    for (const QString &folder :
         {relativeFolder, besideExecutable(relativeFolder), inModule(relativeFolder)})
        names += QDir(folder).entryList(QDir::Files);
    names.removeDuplicates();
    return names;
}
