#include "Resources/frienduiresources.h"

#include <QCoreApplication>
#include <QFile>

void initFriendUiResources()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(friendui);
        return true;
    }();
    Q_UNUSED(registered)
}

QString resourcePath(const QString &relativePath)
{
    if (QFile::exists(relativePath))
        return relativePath;
    const QString beside = QCoreApplication::applicationDirPath() + QLatin1Char('/') + relativePath;
    if (QFile::exists(beside))
        return beside;
    initFriendUiResources();
    return QStringLiteral(":/FriendUI/") + relativePath;
}
