#include "host/eventmonitor/payloaddecoder.h"

#include "host/eventmonitor/recordfields.h"

#include <QDataStream>
#include <QIODevice>
#include <QRegularExpression>

namespace {

const QString Mask = QStringLiteral("***");

class Reader
{
public:
    Reader(const QByteArray &payload, PayloadDecoder::Depth depth)
        : m_stream(payload), m_depth(depth)
    {
    }

    bool ok() const { return m_stream.status() == QDataStream::Ok; }
    bool corrupt() const { return m_stream.status() == QDataStream::ReadCorruptData; }
    int bytesLeft() const { return int(m_stream.device()->bytesAvailable()); }
    bool stoppedEarly() const { return m_stoppedEarly; }
    bool hasSecrets() const { return m_hasSecrets; }

    // `isLast`: nothing that is wanted follows, so that a brief decoding may stop
    // inside a long list.
    PayloadNode read(const QString &type, const QString &name, bool isLast);

private:
    template <class T> T number()
    {
        T value{};
        m_stream >> value;
        return value;
    }
    QString readText();
    void skip(const QString &type);
    void skipText();
    void readContainer(PayloadNode &node, const QString &key, const QString &value, bool isLast);
    void readRecord(PayloadNode &node);
    quint32 readCount();

    int shownElements() const { return m_depth == PayloadDecoder::Brief ? 3 : 500; }

    QDataStream m_stream;
    PayloadDecoder::Depth m_depth;
    bool m_stoppedEarly = false;
    bool m_hasSecrets = false;
};

QString shownText(const QString &text, int limit)
{
    QString shown;
    shown.reserve(qMin(text.size(), limit) + 8);
    for (int i = 0; i < text.size() && shown.size() < limit; ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\n'))
            shown += QLatin1String("\\n");
        else if (c == QLatin1Char('\t'))
            shown += QLatin1String("\\t");
        else if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
                 c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            shown += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += c;
    }
    if (text.size() > limit)
        shown += QStringLiteral("… (%1 characters)").arg(text.size());
    return shown;
}

// A secret inside a JSON text or an address.
QString withoutSecrets(QString text)
{
    static const QRegularExpression secret(
        QStringLiteral("((?:password|passwd|ticket|token|cookie|authorization)\"?\\s*[:=]\\s*\"?)"
                       "[^\"&,;\\s}]+"),
        QRegularExpression::CaseInsensitiveOption);
    return text.replace(secret, QStringLiteral("\\1***"));
}

QString presenceWord(qint32 value)
{
    static const char *const words[] = {"offline", "available", "away", "xa", "dnd", "chat"};
    const bool known = value >= 0 && value < 6;
    return known ? QStringLiteral("%1 (%2)").arg(value).arg(QLatin1String(words[value]))
                 : QString::number(value);
}

// "QString,PresenceData" of "QMap<QString,PresenceData>".
QString inner(const QString &type)
{
    const int open = type.indexOf(QLatin1Char('<'));
    return type.mid(open + 1, type.size() - open - 2);
}

QString Reader::readText()
{
    QString text;
    m_stream >> text;
    const QString masked = withoutSecrets(text);
    m_hasSecrets = m_hasSecrets || masked != text;
    return shownText(masked, m_depth == PayloadDecoder::Brief ? 120 : 8192);
}

void Reader::skipText()
{
    const quint32 bytes = number<quint32>();
    if (!ok() || bytes == 0xffffffff)
        return;
    if (qint64(bytes) > bytesLeft())
        m_stream.setStatus(QDataStream::ReadPastEnd);
    else
        m_stream.skipRawData(int(bytes));
}

void Reader::skip(const QString &type)
{
    if (type == QLatin1String("QString")) {
        skipText();
        return;
    }
    const auto &members = RecordFields::of(type);
    if (members.isEmpty()) {
        read(type, QString(), false);
        return;
    }
    for (const EventCatalogue::PayloadField &member : members) {
        if (!ok())
            return;
        skip(member.type);
    }
}

quint32 Reader::readCount()
{
    const quint32 count = number<quint32>();
    if (!ok())
        return 0;
    if (qint64(count) > bytesLeft()) {
        m_stream.setStatus(QDataStream::ReadCorruptData);
        return 0;
    }
    return count;
}

PayloadNode Reader::read(const QString &type, const QString &name, bool isLast)
{
    PayloadNode node;
    node.name = name;
    node.type = type;
    if (type == QLatin1String("QString")) {
        node.value = readText();
        node.quoted = true;
    } else if (type == QLatin1String("int")) {
        node.value = QString::number(number<qint32>());
    } else if (type == QLatin1String("PcShow")) {
        node.value = presenceWord(number<qint32>());
    } else if (type == QLatin1String("qint64")) {
        node.value = QString::number(number<qint64>());
    } else if (type == QLatin1String("bool")) {
        node.value = number<bool>() ? QStringLiteral("true") : QStringLiteral("false");
    } else if (type == QLatin1String("QStringList")) {
        readContainer(node, QString(), QStringLiteral("QString"), isLast);
    } else if (type.startsWith(QLatin1String("QList<"))) {
        readContainer(node, QString(), inner(type), isLast);
    } else if (type.startsWith(QLatin1String("QMap<"))) {
        const QString both = inner(type);
        const int comma = both.indexOf(QLatin1Char(','));
        readContainer(node, both.left(comma), both.mid(comma + 1), isLast);
    } else {
        readRecord(node);
    }
    if (PayloadDecoder::isSecret(name)) {
        node.value = Mask;
        node.children.clear();
        m_hasSecrets = true;
    }
    return node;
}

void Reader::readContainer(PayloadNode &node, const QString &key, const QString &value, bool isLast)
{
    node.isContainer = true;
    const quint32 count = readCount();
    node.count = int(count);
    for (quint32 i = 0; i < count && ok(); ++i) {
        const bool shown = int(i) < shownElements();
        if (!shown && isLast) {
            m_stoppedEarly = true;
            return;
        }
        if (!shown) {
            if (!key.isEmpty())
                skip(key);
            skip(value);
            continue;
        }
        QString name;
        if (!key.isEmpty())
            name = read(key, QString(), false).value;
        const PayloadNode element = read(value, name, false);
        if (ok())
            node.children.append(element);
    }
}

void Reader::readRecord(PayloadNode &node)
{
    const auto &fields = RecordFields::of(node.type);
    if (fields.isEmpty())
        m_stream.setStatus(QDataStream::ReadCorruptData);
    for (const EventCatalogue::PayloadField &field : fields) {
        if (!ok())
            return;
        node.children.append(read(field.type, field.name, false));
    }
}

} // namespace

DecodedPayload PayloadDecoder::decode(const EventInfo *info, const QByteArray &payload, Depth depth)
{
    DecodedPayload decoded;
    const auto fields =
        info ? EventCatalogue::payloadFields(*info) : QVector<EventCatalogue::PayloadField>();
    if (fields.isEmpty()) {
        decoded.bytesLeft = payload.size();
        decoded.status = payload.isEmpty() ? DecodedPayload::Complete : DecodedPayload::Undescribed;
        return decoded;
    }

    Reader reader(payload, depth);
    for (int i = 0; i < fields.size() && reader.ok(); ++i) {
        const bool isLast = i + 1 == fields.size();
        const PayloadNode node = reader.read(fields.at(i).type, fields.at(i).name, isLast);
        // Of a field that could not be read to its end, what is there is shown.
        if (reader.ok() || !node.children.isEmpty())
            decoded.fields.append(node);
    }
    decoded.hasSecrets = reader.hasSecrets();
    if (reader.stoppedEarly())
        decoded.status = DecodedPayload::Shortened;
    else if (reader.corrupt())
        decoded.status = DecodedPayload::Corrupt;
    else if (!reader.ok())
        decoded.status = DecodedPayload::Truncated;
    else if ((decoded.bytesLeft = reader.bytesLeft()) > 0)
        decoded.status = DecodedPayload::TrailingBytes;
    return decoded;
}

bool PayloadDecoder::isSecret(const QString &fieldName)
{
    static const QRegularExpression secret(
        QStringLiteral("password|passwd|ticket|token|cookie|authorization|authid|imtgc|ids_r"),
        QRegularExpression::CaseInsensitiveOption);
    return secret.match(fieldName).hasMatch();
}

QString PayloadDecoder::hexDump(const QByteArray &bytes, int limit)
{
    constexpr int PerLine = 16;
    const int shown = qMin(bytes.size(), limit);
    QString text;
    text.reserve((shown / PerLine + 2) * 76);
    for (int at = 0; at < shown; at += PerLine) {
        QString hex, characters;
        for (int i = at; i < qMin(at + PerLine, shown); ++i) {
            const auto byte = uchar(bytes.at(i));
            hex += QStringLiteral("%1 ").arg(uint(byte), 2, 16, QLatin1Char('0'));
            characters += byte >= 0x20 && byte < 0x7f ? QLatin1Char(char(byte)) : QLatin1Char('.');
        }
        text += QStringLiteral("%1  %2 %3\n")
                    .arg(at, 6, 16, QLatin1Char('0'))
                    .arg(hex, -PerLine * 3)
                    .arg(characters);
    }
    if (bytes.size() > shown)
        text += QStringLiteral("… %1 more bytes\n").arg(bytes.size() - shown);
    return text;
}
