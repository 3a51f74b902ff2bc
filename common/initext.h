// What an INI text would become when QSettings reads it.
#pragma once

#include <QByteArray>
#include <QString>

namespace IniText {

// Whether QSettings could make an object of one of the values, instead of a text
// or a list of texts, by reading a serialised one: it does so without limits. Errs
// on the safe side: a text in quotes that has ", @Variant(" inside counts, too.
bool holdsObjects(const QByteArray &ini);

bool hasByteOrderMark(const QByteArray &ini);

// Whether every line is a setting, a section, a comment or blank, and every quote
// ends. Other lines would be lost when the file is rewritten.
bool isWellFormed(const QByteArray &ini);

// Whether a file with this value still reads as free of objects.
bool isWritable(const QString &value);

} // namespace IniText
