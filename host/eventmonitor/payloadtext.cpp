// The forms in which a decoded payload is shown and copied.
#include "host/eventmonitor/payloaddecoder.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString leaf(const PayloadNode &node)
{
    return node.quoted ? QLatin1Char('"') + node.value + QLatin1Char('"') : node.value;
}

// What names a record in one line: its first two members that are set.
QString shortRecord(const PayloadNode &node)
{
    QStringList parts;
    for (const PayloadNode &member : node.children) {
        const bool unset = member.value.isEmpty() || member.value == QLatin1String("0") ||
                           member.value == QLatin1String("false");
        if (!member.children.isEmpty() || (unset && !node.name.isEmpty()))
            continue;
        if (!unset)
            parts.append(member.name + QLatin1Char('=') + leaf(member));
        if (parts.size() == 3)
            break;
    }
    return QLatin1Char('{') + parts.join(QLatin1String(", ")) + QLatin1Char('}');
}

QString oneLine(const PayloadNode &node)
{
    if (!node.isContainer)
        return node.children.isEmpty() ? leaf(node) : shortRecord(node);
    QStringList elements;
    for (const PayloadNode &element : node.children) {
        const QString text = oneLine(element);
        elements.append(element.name.isEmpty() ? text : element.name + QLatin1String(": ") + text);
    }
    if (node.count > node.children.size())
        elements.append(QStringLiteral("… %1 more").arg(node.count - node.children.size()));
    return QStringLiteral("%1 × [%2]").arg(node.count).arg(elements.join(QLatin1String(", ")));
}

void appendLines(QString &text, const PayloadNode &node, int depth, int index)
{
    text += QString(depth * 4, QLatin1Char(' '));
    if (!node.name.isEmpty())
        text += node.name;
    else if (index >= 0)
        text += QStringLiteral("[%1]").arg(index);
    if (depth == 0)
        text += QStringLiteral(" (%1)").arg(node.type);
    if (node.isContainer)
        text += QStringLiteral(": %1 element(s)\n").arg(node.count);
    else if (node.children.isEmpty())
        text += QLatin1String(": ") + leaf(node) + QLatin1Char('\n');
    else
        text += QLatin1Char('\n');

    for (int i = 0; i < node.children.size(); ++i)
        appendLines(text, node.children.at(i), depth + 1, node.isContainer ? i : -1);
    if (node.isContainer && node.count > node.children.size()) {
        text += QString((depth + 1) * 4, QLatin1Char(' ')) +
                QStringLiteral("… %1 more\n").arg(node.count - node.children.size());
    }
}

QJsonValue toJson(const PayloadNode &node)
{
    const bool isMap = node.type.startsWith(QLatin1String("QMap<"));
    if (node.isContainer && !isMap) {
        QJsonArray array;
        for (const PayloadNode &element : node.children)
            array.append(toJson(element));
        return array;
    }
    if (isMap || !node.children.isEmpty()) {
        QJsonObject object;
        for (const PayloadNode &member : node.children)
            object.insert(member.name, toJson(member));
        return object;
    }
    if (node.type == QLatin1String("bool"))
        return node.value == QLatin1String("true");
    if (node.type == QLatin1String("int"))
        return node.value.toInt();
    return node.value;
}

} // namespace

QString DecodedPayload::summary() const
{
    QStringList parts;
    for (const PayloadNode &field : fields)
        parts.append(field.name + QLatin1Char('=') + oneLine(field));
    const bool worthTelling = status != Complete && status != Shortened;
    if (worthTelling)
        parts.append(QLatin1Char('<') + statusText() + QLatin1Char('>'));
    return parts.join(QLatin1String(", "));
}

QString DecodedPayload::text() const
{
    QString lines;
    for (const PayloadNode &field : fields)
        appendLines(lines, field, 0, -1);
    if (status != Complete)
        lines += QLatin1Char('<') + statusText() + QLatin1String(">\n");
    return lines;
}

QJsonValue DecodedPayload::json() const
{
    QJsonObject object;
    for (const PayloadNode &field : fields)
        object.insert(field.name, toJson(field));
    return object;
}

QString DecodedPayload::statusText() const
{
    switch (status) {
    case Complete:
        return QString();
    case Truncated:
        return QStringLiteral("payload ends before its last field");
    case Corrupt:
        return QStringLiteral("a count or length exceeds the payload");
    case TrailingBytes:
        return QStringLiteral("%1 byte(s) behind the last field").arg(bytesLeft);
    case Undescribed:
        return QStringLiteral("%1 byte(s), fields unknown").arg(bytesLeft);
    case Shortened:
        return QStringLiteral("shortened");
    }
    return QString();
}
