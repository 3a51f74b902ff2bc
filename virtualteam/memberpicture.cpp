#include "virtualteam/memberpicture.h"

#include "common/displaytext.h"
#include "http/fileservices.h"

QString memberPicture(const QString &userId, const QString &photoName)
{
    return PictureFiles::instance().ofPerson(makeJid(userId), photoName);
}
