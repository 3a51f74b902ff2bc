#include "common/platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

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

QString Platform::moduleFolder()
{
    Dl_info module = {};
    const bool isKnown = dladdr(reinterpret_cast<void *>(&Platform::moduleFolder), &module) != 0;
    const QFileInfo file(isKnown ? QFile::decodeName(module.dli_fname) : QString());
    // An executable is known by what it was called with.
    return file.isAbsolute() ? file.path() : QCoreApplication::applicationDirPath();
}
