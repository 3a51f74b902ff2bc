// Code page 936, that of Chinese systems, the same on every system. The toolkit's GBK codec
// is the system's where it has one, and of a later standard where it has not.
#pragma once

#include <QByteArray>
#include <QString>

// An invisible character has no bytes, any other that the code page lacks is "?".
QByteArray toCodePage936(const QString &text);

// The character of two bytes from 0xA1 on; private ones may be missing.
QChar fromCodePage936(const char *bytes);
