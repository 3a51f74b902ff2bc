#include "common/platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

bool Platform::hasRegistry()
{
    return false;
}

QString Platform::registryText(const QString &, const QString &)
{
    return QString();
}

bool Platform::isNetworkPath(const QString &)
{
    return false;
}

QString Platform::nativePath(const QString &path)
{
    return path;
}

QString Platform::moduleFolder()
{
    Dl_info module = {};
    const bool isKnown = dladdr(reinterpret_cast<void *>(&Platform::moduleFolder), &module) != 0;
    const QFileInfo file(isKnown ? QFile::decodeName(module.dli_fname) : QString());
    // An executable is known by what it was called with.
    return file.isAbsolute() ? file.path() : QCoreApplication::applicationDirPath();
}

QString Platform::libraryFileName(const QString &name)
{
#ifdef Q_OS_MACOS
    const QLatin1String suffix(".dylib");
#else
    const QLatin1String suffix(".so");
#endif
    return QLatin1String("lib") + name + suffix;
}

QString Platform::programFileName(const QString &name)
{
    return name;
}

bool Platform::waitUntilClosed(const QString &, int)
{
    return true;
}
