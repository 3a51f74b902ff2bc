#include "host/vcard/vcardreader.h"

#include "host/vcard/vcardlines.h"
#include "host/vcard/vcardproperty.h"
#include "host/vcard/vcardtext.h"

#include <QCoreApplication>
#include <QSet>

namespace {
QString told(const char *text)
{
    return QCoreApplication::translate("VCardImport", text);
}

QString withoutScheme(const QString &value, const char *scheme)
{
    const QString prefix = QString::fromLatin1(scheme);
    return value.startsWith(prefix, Qt::CaseInsensitive) ? value.mid(prefix.size()) : value;
}

VCard::Address addressOf(const VCardProperty &property, const QString &value)
{
    VCard::Address address;
    address.value = value;
    address.mobile =
        property.isType("CELL") || property.isType("MOBILE") || property.isType("IPHONE");
    address.work = property.isType("WORK");
    address.home = property.isType("HOME");
    address.fax = property.isType("FAX") || property.isType("PAGER");
    address.preferred = property.isPreferred();
    return address;
}

bool isSkipped(const QByteArray &name)
{
    static const QSet<QByteArray> names = {"PHOTO", "LOGO", "SOUND", "KEY"};
    return names.contains(name);
}

// Collects the cards and what is wrong with them while the lines go by.
class Collector
{
public:
    Collector(const VCardReader::Limits &limits, VCardReader::Result *result)
        : m_limits(limits), m_result(result)
    {
    }

    // False: enough has been read.
    bool take(const QByteArray &line, int number, bool truncated);
    void finish();
    void problem(int line, const QString &text);

private:
    void begin(int line);
    void end(int line);
    void skip(int line, const QString &reason);
    void property(int number, bool truncated);
    bool fillName(const QString &text);
    bool fillWork(const QString &text);
    bool fillReach(const QString &text);
    void fillRest(const QString &text);

    const VCardReader::Limits &m_limits;
    VCardReader::Result *m_result;
    VCardText m_text;
    VCardProperty m_property;
    VCard m_card;
    bool m_inCard = false;
    bool m_strayTold = false;
    bool m_agentExpected = false; // version 2.1 may hold a card in a card
    int m_nested = 0;
    int m_properties = 0;
    bool m_tooMany = false;
};

void Collector::problem(int line, const QString &text)
{
    if (m_result->problems.size() < m_limits.problems)
        m_result->problems.append({line, text});
    else if (m_result->problems.size() == m_limits.problems)
        m_result->problems.append({line, told("There are more problems than are listed.")});
}

bool Collector::take(const QByteArray &line, int number, bool truncated)
{
    if (line.trimmed().isEmpty())
        return true;
    if (!m_property.parse(line)) {
        if (m_inCard)
            problem(number, told("This line is no property of a card; it was left out."));
        else if (!m_strayTold)
            problem(number, told("There is text outside a card; it was left out."));
        m_strayTold = m_strayTold || !m_inCard;
        return true;
    }
    const bool isCard = m_property.raw.trimmed().toUpper() == "VCARD";
    if (m_property.name == "BEGIN" && isCard) {
        if (!m_inCard && m_result->cards.size() >= m_limits.cards) {
            problem(number, told("The file has more than %1 cards; the rest was left out.")
                                .arg(m_limits.cards));
            return false;
        }
        begin(number);
    } else if (m_property.name == "END" && isCard) {
        end(number);
    } else if (m_inCard && m_nested == 0) {
        property(number, truncated);
    } else if (!m_inCard && !m_strayTold) {
        problem(number, told("There is text outside a card; it was left out."));
        m_strayTold = true;
    }
    return true;
}

void Collector::begin(int line)
{
    if (m_inCard && (m_agentExpected || m_nested > 0)) {
        ++m_nested;
        return;
    }
    if (m_inCard)
        skip(m_card.line, told("This card has no end; it was left out."));
    m_result->isVCard = true;
    m_card = VCard();
    m_card.line = line;
    m_inCard = true;
    m_properties = 0;
    m_tooMany = false;
    m_agentExpected = false;
}

void Collector::end(int line)
{
    if (m_nested > 0) {
        --m_nested;
        m_agentExpected = false;
        return;
    }
    if (!m_inCard) {
        problem(line, told("A card ends here that was never begun."));
        return;
    }
    m_inCard = false;
    m_strayTold = false;
    if (m_tooMany)
        skip(m_card.line, told("This card has more than %1 properties; it was left out.")
                              .arg(m_limits.propertiesPerCard));
    else if (m_card.displayName().isEmpty())
        skip(m_card.line, told("This card has no name; it was left out."));
    else
        m_result->cards.append(m_card);
}

void Collector::skip(int line, const QString &reason)
{
    problem(line, reason);
    ++m_result->skipped;
}

void Collector::finish()
{
    if (m_inCard)
        skip(m_card.line, told("The file ends inside this card; it was left out."));
}

void Collector::property(int number, bool truncated)
{
    if (++m_properties > m_limits.propertiesPerCard) {
        m_tooMany = true;
        return;
    }
    m_agentExpected = m_property.name == "AGENT" && m_property.raw.trimmed().isEmpty();
    if (isSkipped(m_property.name))
        return;
    QString trouble;
    const QString text = m_property.text(&m_text, &trouble);
    if (truncated)
        trouble = QStringLiteral("%1 is longer than %2 bytes; its end was cut off.")
                      .arg(QString::fromLatin1(m_property.name))
                      .arg(m_limits.lineBytes);
    if (!trouble.isEmpty())
        problem(number, trouble);
    if (!fillName(text) && !fillWork(text) && !fillReach(text))
        fillRest(text);
}

bool Collector::fillName(const QString &text)
{
    const QByteArray &name = m_property.name;
    if (name == "FN") {
        // Another one is the name in another language.
        if (m_card.formattedName.isEmpty() || m_property.isPreferred())
            m_card.formattedName = VCardValue::unescaped(text).simplified();
    } else if (name == "N") {
        const QStringList parts = VCardValue::split(text, QLatin1Char(';'));
        m_card.family = parts.value(0).simplified();
        m_card.given = parts.value(1).simplified();
        m_card.additional = parts.value(2).simplified();
    } else if (name == "NICKNAME") {
        if (m_card.nickname.isEmpty())
            m_card.nickname = VCardValue::split(text, QLatin1Char(',')).value(0).simplified();
    } else {
        return false;
    }
    return true;
}

bool Collector::fillWork(const QString &text)
{
    const QByteArray &name = m_property.name;
    if (name == "ORG") {
        if (m_card.organisation.isEmpty() && m_card.unit.isEmpty()) {
            QStringList parts = VCardValue::split(text, QLatin1Char(';'));
            m_card.organisation = parts.takeFirst().simplified();
            parts.removeAll(QString());
            m_card.unit = parts.join(QStringLiteral(" / ")).simplified();
        }
    } else if (name == "TITLE") {
        m_card.title = VCardValue::unescaped(text).simplified();
    } else if (name == "ROLE") {
        m_card.role = VCardValue::unescaped(text).simplified();
    } else if (name == "CATEGORIES") {
        for (const QString &category : VCardValue::split(text, QLatin1Char(','))) {
            if (!category.trimmed().isEmpty())
                m_card.categories.append(category.simplified());
        }
    } else {
        return false;
    }
    return true;
}

bool Collector::fillReach(const QString &text)
{
    const QByteArray &name = m_property.name;
    if (name == "TEL") {
        const QString number = withoutScheme(VCardValue::unescaped(text).simplified(), "tel:");
        if (!number.isEmpty())
            m_card.phones.append(addressOf(m_property, number));
    } else if (name == "EMAIL") {
        const QString mail = withoutScheme(VCardValue::unescaped(text).simplified(), "mailto:");
        if (!mail.isEmpty())
            m_card.mails.append(addressOf(m_property, mail));
    } else if (name == "ADR") {
        const QString city = VCardValue::split(text, QLatin1Char(';')).value(3).simplified();
        if (m_card.locality.isEmpty() || m_property.isType("WORK"))
            m_card.locality = city.isEmpty() ? m_card.locality : city;
    } else {
        return false;
    }
    return true;
}

void Collector::fillRest(const QString &text)
{
    const QByteArray &name = m_property.name;
    const QString value = VCardValue::unescaped(text).trimmed();
    if (name == "UID") {
        m_card.uid = withoutScheme(value, "urn:uuid:");
    } else if (name == "NOTE") {
        m_card.note = value;
    } else if (name == "BDAY") {
        m_card.birthday = value.left(10);
    } else if (name == "GENDER" || name == "X-GENDER" || name == "X-WAB-GENDER") {
        const QString first = value.left(1).toUpper();
        if (first == QLatin1String("M") || (name == "X-WAB-GENDER" && first == QLatin1String("2")))
            m_card.gender = QStringLiteral("M");
        else if (first == QLatin1String("F") || first == QLatin1String("1"))
            m_card.gender = QStringLiteral("F");
    } else if (name == "KIND" || name == "X-ADDRESSBOOKSERVER-KIND") {
        m_card.isGroup = value.compare(QLatin1String("group"), Qt::CaseInsensitive) == 0;
    } else if (name == "MEMBER" || name == "X-ADDRESSBOOKSERVER-MEMBER") {
        m_card.members.append(withoutScheme(value, "urn:uuid:"));
    }
}

bool isChinese(const QString &text)
{
    return !text.isEmpty() && text.at(0).unicode() >= 0x3400 && text.at(0).unicode() <= 0x9fff;
}
} // namespace

QString VCard::displayName() const
{
    if (!formattedName.isEmpty())
        return formattedName;
    if (isChinese(family) || isChinese(given))
        return family + given;
    QStringList parts{given, additional, family};
    parts.removeAll(QString());
    if (!parts.isEmpty())
        return parts.join(QLatin1Char(' '));
    for (const QString &other : {nickname, organisation}) {
        if (!other.isEmpty())
            return other;
    }
    if (!mails.isEmpty())
        return mails.first().value;
    return phones.isEmpty() ? QString() : phones.first().value;
}

VCardReader::Result VCardReader::read(QIODevice &device)
{
    Result result;
    VCardLines lines(&device, m_limits.lineBytes);
    Collector collector(m_limits, &result);
    bool more = true;
    while (more && lines.next()) {
        more = collector.take(lines.line(), lines.number(), lines.isTruncated());
        if (!result.isVCard && lines.bytesRead() > m_limits.bytesWithoutCard)
            break;
    }
    if (!result.isVCard) {
        result.problems = {{0, told("This is no vCard file: no card begins in it.")}};
        return result;
    }
    if (more)
        collector.finish();
    return result;
}
