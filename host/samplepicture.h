// Pictures for those of the sample company who have no portrait: a coloured square
// with one letter, drawn into the folder where the module keeps pictures.
#pragma once

#include <QString>

class MessagingCore;

namespace SamplePicture {

// The file's path; empty when it could not be written. `variant` changes the colour.
QString draw(const QString &folder, const QString &fileName, const QString &text, int variant = 0);

// Of all channels and service numbers that lack theirs.
void drawServices(const MessagingCore &core, const QString &folder);

} // namespace SamplePicture
