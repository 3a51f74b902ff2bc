// The drawn picture of somebody without an uploaded one.
#pragma once

#include <QByteArray>
#include <QString>

// A head and shoulders in colours that follow from the uid, as PNG of 256 x 256
// pixels. From any thread.
QByteArray drawPortrait(const QString &uid);
