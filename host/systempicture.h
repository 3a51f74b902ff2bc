// The pictures that come with the product, which people may choose for themselves: known
// to everybody by the names of their files.
#pragma once

#include <QString>

namespace SystemPicture {

// The file with the picture of that name; empty when it is none of them.
QString file(const QString &photoName);

} // namespace SystemPicture
