#include "host/vcard/vcardproperty.h"

#include "host/vcard/vcardtext.h"

#include <utility>

namespace {
// Where the value begins: behind the first colon outside quotes. A quote that is
// never closed does not count.
int colonOf(const QByteArray &line)
{
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) == '"')
            quoted = !quoted;
        else if (line.at(i) == ':' && !quoted)
            return i;
    }
    return line.indexOf(':');
}

QList<QByteArray> splitHead(const QByteArray &head)
{
    QList<QByteArray> parts;
    QByteArray part;
    bool quoted = false;
    for (const char c : head) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ';' && !quoted)
            parts.append(std::exchange(part, QByteArray()));
        else
            part.append(c);
    }
    parts.append(part);
    return parts;
}

bool isName(const QByteArray &name)
{
    for (const char c : name) {
        const bool fits = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
        if (!fits)
            return false;
    }
    return !name.isEmpty();
}
} // namespace

bool VCardProperty::parse(const QByteArray &line)
{
    const int colon = colonOf(line);
    if (colon <= 0)
        return false;
    const QList<QByteArray> parts = splitHead(line.left(colon));
    name = parts.first().mid(parts.first().lastIndexOf('.') + 1).trimmed().toUpper();
    if (!isName(name))
        return false;
    parameters.clear();
    for (int i = 1; i < parts.size(); ++i) {
        const QByteArray part = parts.at(i).trimmed();
        const int equals = part.indexOf('=');
        if (equals >= 0) {
            QByteArray &known = parameters[part.left(equals).toUpper()];
            known += known.isEmpty() ? part.mid(equals + 1) : ',' + part.mid(equals + 1);
            continue;
        }
        // Version 2.1 leaves the parameter's name out.
        const QByteArray word = part.toUpper();
        if (word == "QUOTED-PRINTABLE" || word == "BASE64")
            parameters["ENCODING"] = word;
        else
            parameters["TYPE"] += ',' + word;
    }
    raw = line.mid(colon + 1);
    return true;
}

bool VCardProperty::isType(const char *type) const
{
    return parameters.value("TYPE").toUpper().split(',').contains(type);
}

bool VCardProperty::isPreferred() const
{
    return isType("PREF") || parameters.value("PREF") == "1";
}

QString VCardProperty::text(VCardText *decoder, QString *problem) const
{
    QByteArray bytes = raw;
    const QByteArray encoding = parameters.value("ENCODING").toUpper();
    if (encoding == "QUOTED-PRINTABLE")
        bytes = VCardText::fromQuotedPrintable(raw);
    else if (encoding == "BASE64" || encoding == "B")
        bytes = QByteArray::fromBase64(raw);
    bool known = true;
    const QString text = decoder->decode(bytes, parameters.value("CHARSET"), &known);
    if (!known)
        *problem = QStringLiteral("%1 names a character set that is unknown: %2")
                       .arg(QString::fromLatin1(name),
                            QString::fromLatin1(parameters.value("CHARSET").left(40)));
    return text;
}

QString VCardValue::unescaped(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != QLatin1Char('\\') || i + 1 == text.size()) {
            result += c;
            continue;
        }
        const QChar next = text.at(++i);
        if (next == QLatin1Char('n') || next == QLatin1Char('N'))
            result += QLatin1Char('\n');
        else if (QStringLiteral(";,:\\").contains(next))
            result += next;
        else
            result += QString(c) + next;
    }
    return result;
}

QStringList VCardValue::split(const QString &text, QChar separator)
{
    QStringList parts;
    int from = 0;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\\')) {
            ++i;
        } else if (text.at(i) == separator) {
            parts.append(unescaped(text.mid(from, i - from)));
            from = i + 1;
        }
    }
    parts.append(unescaped(text.mid(from)));
    return parts;
}
