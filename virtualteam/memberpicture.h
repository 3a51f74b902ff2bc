// The picture of a team's member as a local file: what the client has of the person,
// else what the file service has under the name in the record.
#pragma once

#include <QString>

// Empty while there is none; then it may be on its way, and PictureFiles::ready() tells
// when it is there.
QString memberPicture(const QString &userId, const QString &photoName);
