#include "common/desktopshortcut.h"

#include "common/displaytext.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

QString DesktopShortcut::file(const QString &jid)
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (jid.isEmpty() || desktop.isEmpty())
        return QString();
    return desktop + QLatin1Char('/') + safeFileName(jid) + QLatin1String(".lnk");
}

bool DesktopShortcut::create(const QString &jid)
{
    const QString link = file(jid);
    if (link.isEmpty())
        return false;
    remove(jid); // the client may have moved since
    return QFile::link(QCoreApplication::applicationFilePath(), link);
}

bool DesktopShortcut::remove(const QString &jid)
{
    const QString link = file(jid);
    // A link whose target is gone does not "exist", but is still one.
    return !link.isEmpty() && QFileInfo(link).isSymLink() && QFile::remove(link);
}
