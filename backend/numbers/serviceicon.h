// The drawn icon of a service number.
#pragma once

#include <QByteArray>
#include <QString>

// A sign on a coloured ground, which follow from the code, as PNG of 180 x 180 pixels.
// From any thread.
QByteArray drawServiceIcon(const QString &code);
