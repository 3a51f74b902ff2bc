#include "common/platform.h"

#include <QFile>
#include <QFileInfo>

QString Platform::registryText(const QString &, const QString &)
{
    return QString();
}

bool Platform::restrictToOwner(const QString &file)
{
    // A device keeps its mode: it may be everybody's.
    if (!QFileInfo(file).isFile())
        return false;
    return QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
}
