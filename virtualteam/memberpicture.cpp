#include "virtualteam/memberpicture.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "http/fileservices.h"

#include <QFileInfo>

QString memberPicture(const QString &userId, const QString &photoName)
{
    const QString own = ctx().headPath(makeJid(userId));
    // The service's name is no path of ours.
    const QString name = QFileInfo(photoName).fileName();
    if (!own.isEmpty() || name.isEmpty())
        return own;
    const QString known = ctx().headPath(name);
    return known.isEmpty() ? PictureFiles::instance().file(name) : known;
}
