// The character set of a vCard file. UTF-8 is tried first; a text that is none is
// taken for GB18030 or Windows-1252, whichever its bytes look like. A short text
// that could be either follows the decision made before in the same file.
#pragma once

#include <QByteArray>
#include <QString>

class VCardText
{
public:
    QString decode(const QByteArray &bytes);
    // With a charset that the file names. *known is false for one that is not
    // among the usual ones; then the text is decoded as above.
    QString decode(const QByteArray &bytes, const QByteArray &charset, bool *known);

    // "=E5=BC=A0" to bytes. A separator that was encoded is data and comes out
    // with a backslash before it, as it would stand in an unencoded value.
    static QByteArray fromQuotedPrintable(const QByteArray &text);

private:
    enum Family
    {
        Unknown,
        Chinese,
        Western
    };
    static Family familyOf(const QByteArray &bytes);

    Family m_family = Unknown;
};
