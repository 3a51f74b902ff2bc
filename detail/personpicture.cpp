#include "detail/personpicture.h"

#include "common/context.h"
#include "hostapi/rosterrecords.h"
#include "http/fileservices.h"

#include <QFileInfo>

QString pictureName(const VcardInfo &profile)
{
    return QFileInfo(profile.photoName).fileName();
}

QString personPicture(const QString &jid, const VcardInfo &profile)
{
    QString file = ctx().headPath(jid);
    if (file.isEmpty() && !profile.photoName.isEmpty())
        file = ctx().headPath(profile.photoName);
    if (file.isEmpty() && !pictureName(profile).isEmpty())
        file = PictureFiles::instance().file(pictureName(profile));
    return file;
}
