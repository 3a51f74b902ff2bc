#include "host/systempicture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {
const char Folder[] = "Resources/SystemAvatar/";
constexpr int LongestName = 32;
} // namespace

QString SystemPicture::file(const QString &photoName)
{
    const bool isPlain = !photoName.isEmpty() && photoName.size() <= LongestName &&
                         photoName == QFileInfo(photoName).fileName() &&
                         photoName.endsWith(QLatin1String(".png"));
    if (!isPlain)
        return QString();
    const QString place = QLatin1String(Folder) + photoName;
    // Where the module looks for its pictures.
    for (const QString &root : {QDir::currentPath(), QCoreApplication::applicationDirPath()}) {
        const QString path = root + QLatin1Char('/') + place;
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}
