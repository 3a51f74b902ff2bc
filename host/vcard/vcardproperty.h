// One unfolded vCard line taken apart: name, parameters, value.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

class VCardText;

struct VCardProperty
{
    QByteArray name;                          // upper case, without the group before it
    QHash<QByteArray, QByteArray> parameters; // names in upper case
    QByteArray raw;                           // the value as it stands

    bool isType(const char *type) const; // by TYPE=..., or the bare word of version 2.1
    bool isPreferred() const;

    // Splits "item1.TEL;TYPE=CELL:+86 ..." . False: not a property line.
    bool parse(const QByteArray &line);

    // The value's text with its encoding and character set undone, escapes still
    // in it. *problem is set when it could not be read as announced.
    QString text(VCardText *decoder, QString *problem) const;
};

namespace VCardValue {
// Undoes \n \, \; \\ and \: .
QString unescaped(const QString &text);
// Splits at a separator that is not escaped, and unescapes the pieces.
QStringList split(const QString &text, QChar separator);
} // namespace VCardValue
