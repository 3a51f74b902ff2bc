#include "common/desktopshortcut.h"

#include "common/displaytext.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
// A link whose target is gone does not "exist", but is still one. Where links are files,
// the toolkit takes every file of such a name for one until it reads the target.
bool isLink(const QString &file)
{
    const QFileInfo info(file);
    return info.isSymLink() && !info.symLinkTarget().isEmpty();
}
} // namespace

QString DesktopShortcut::file(const QString &jid)
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (jid.isEmpty() || desktop.isEmpty())
        return QString();
    return desktop + QLatin1Char('/') + safeFileName(jid) + QLatin1String(".lnk");
}

bool DesktopShortcut::exists(const QString &jid)
{
    const QString link = file(jid);
    return !link.isEmpty() && isLink(link);
}

bool DesktopShortcut::create(const QString &jid)
{
    const QString link = file(jid);
    if (link.isEmpty())
        return false;
    // The client may have moved since. What is no link of ours would be written over.
    if (!remove(jid) && QFile(link).open(QIODevice::ReadOnly))
        return false;
    return QFile::link(QCoreApplication::applicationFilePath(), link);
}

bool DesktopShortcut::remove(const QString &jid)
{
    return exists(jid) && QFile::remove(file(jid));
}
