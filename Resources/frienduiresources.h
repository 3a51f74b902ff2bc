// The pictures compiled into the module, below ":/FriendUI/".
#pragma once

#include <QString>
#include <QStringList>

// Makes the pictures available. Nothing is registered before the first call,
// so that loading the module costs nothing; further calls do nothing.
void initFriendUiResources();

// The file behind a path such as "Resources/images/icon/x.png": in the current
// folder, beside the executable, or inside the module, in this order.
QString resourcePath(const QString &relativePath);

// The names of the files that resourcePath() finds in such a folder, in any of the places.
QStringList resourceNames(const QString &relativeFolder);
