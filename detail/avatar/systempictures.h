// The pictures that come with the program for everybody to choose from.
#pragma once

#include <QString>
#include <QStringList>

namespace SystemPictures {

constexpr int Maximum = 240; // more of them nobody would look through

// The names in a listing such as <avatars><avatar>1.png</avatar></avatars>, in its
// order, each once; only the last component of a path counts. Of a spoilt listing, what
// stands before the fault. Empty for anything else.
QStringList namesIn(const QByteArray &xml);

// The names of those that are there.
QStringList names();

// The path of a name, for resourcePath() and loadPicture().
QString path(const QString &name);

} // namespace SystemPictures
