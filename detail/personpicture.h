// The picture of a person as a local file: what the client has, else what the file
// service has under the name in the profile.
#pragma once

#include <QString>

struct VcardInfo;

// Empty while there is none; then it may be on its way, and PictureFiles::ready() tells
// of pictureName(profile) when it is there.
QString personPicture(const QString &jid, const VcardInfo &profile);
// A base name, since the service's text is no path of ours; empty: no picture.
QString pictureName(const VcardInfo &profile);
