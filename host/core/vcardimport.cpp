#include "host/core/vcardimport.h"

#include "host/core/embeddedcore.h"
#include "host/vcard/vcardreader.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QHash>

namespace {
QString told(const char *text)
{
    return QCoreApplication::translate("VCardImport", text);
}

constexpr int LongestField = 1000; // characters

// One line of printable text, as the profile fields hold it.
QString field(const QString &text)
{
    QString plain = text.left(LongestField);
    for (QChar &c : plain) {
        if (c.category() == QChar::Other_Control)
            c = QLatin1Char(' ');
    }
    return plain.simplified();
}

QString firstAddress(const QList<VCard::Address> &addresses)
{
    for (const VCard::Address &address : addresses) {
        if (address.preferred)
            return address.value;
    }
    return addresses.isEmpty() ? QString() : addresses.first().value;
}

// Takes the first number that fits out of the list.
template <class Fits> QString take(QList<VCard::Address> *phones, Fits fits)
{
    for (int i = 0; i < phones->size(); ++i) {
        if (!phones->at(i).fax && fits(phones->at(i)))
            return phones->takeAt(i).value;
    }
    return {};
}

QString uidOf(const VCard &card)
{
    QString key = QStringLiteral("uid:") + card.uid;
    if (card.uid.isEmpty()) {
        QString address = card.mails.isEmpty() ? QString() : card.mails.first().value;
        if (address.isEmpty() && !card.phones.isEmpty())
            address = card.phones.first().value;
        if (address.isEmpty())
            address = card.organisation;
        key = QStringLiteral("name:") + card.displayName() + QChar(0) + address.toLower();
    }
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256);
    return QLatin1Char('v') + QString::fromLatin1(hash.toHex().left(16));
}

VcardInfo profileOf(const VCard &card)
{
    VcardInfo profile;
    profile.nickName = field(card.displayName());
    profile.userName = field(card.nickname);
    profile.sign = field(card.note).left(200);
    profile.bday = field(card.birthday);
    profile.locality = field(card.locality);
    if (!card.gender.isEmpty())
        profile.sex =
            card.gender == QLatin1String("M") ? QString::fromUtf8("男") : QString::fromUtf8("女");
    profile.empStatus = 1;
    profile.duty = field(card.title.isEmpty() ? card.role : card.title);
    profile.orgName = field(card.unit);
    profile.companyName = field(card.organisation);
    profile.email = field(firstAddress(card.mails));

    using Address = VCard::Address;
    QList<Address> phones = card.phones;
    profile.mobile = field(take(&phones, [](const Address &a) { return a.mobile && !a.home; }));
    if (profile.mobile.isEmpty())
        profile.mobile = field(take(&phones, [](const Address &a) { return a.mobile; }));
    profile.otherPhone = field(take(&phones, [](const Address &a) { return a.work; }));
    profile.personalMobile = field(take(&phones, [](const Address &) { return true; }));
    return profile;
}

QString categoryOf(const VCard &card, const QHash<QString, QString> &groupOfMember)
{
    for (const QString &category : card.categories) {
        const QString name = field(category);
        const QString bare = name.startsWith(QLatin1String("* ")) ? name.mid(2) : name;
        if (!name.isEmpty() && bare.compare(QLatin1String("myContacts"), Qt::CaseInsensitive) != 0)
            return name;
    }
    return card.uid.isEmpty() ? QString() : groupOfMember.value(card.uid);
}

EmbeddedCore::ImportedContact contactOf(const VCard &card, const QString &uid,
                                        const QString &category)
{
    EmbeddedCore::ImportedContact imported;
    imported.profile = profileOf(card);
    imported.group = category;
    FriendData &contact = imported.contact;
    contact.jid = uid + QLatin1Char('@') + SampleCompany::domain();
    contact.subscription = QStringLiteral("both");
    contact.nickName = imported.profile.nickName;
    contact.account = imported.profile.email.section(QLatin1Char('@'), 0, 0);
    contact.sign = imported.profile.sign;
    return imported;
}

QList<EmbeddedCore::ImportedContact> contactsOf(const VCardReader::Result &result,
                                                VCardImportSummary *summary)
{
    QHash<QString, QString> groupOfMember;
    for (const VCard &card : result.cards) {
        for (const QString &member : card.isGroup ? card.members : QStringList()) {
            if (!groupOfMember.contains(member))
                groupOfMember.insert(member, field(card.displayName()));
        }
    }
    QList<EmbeddedCore::ImportedContact> contacts;
    QHash<QString, int> lines; // id -> line of the card that had it first
    for (const VCard &card : result.cards) {
        if (card.isGroup)
            continue;
        const QString uid = uidOf(card);
        if (lines.contains(uid)) {
            summary->problems.append(
                told("line %1: This card is the one of line %2 again; it was left out.")
                    .arg(card.line)
                    .arg(lines.value(uid)));
            ++summary->skipped;
            continue;
        }
        lines.insert(uid, card.line);
        contacts.append(contactOf(card, uid, categoryOf(card, groupOfMember)));
    }
    return contacts;
}
} // namespace

QString VCardImportSummary::text() const
{
    if (!ok)
        return problems.value(0);
    return told("%1 contacts added, %2 updated, %3 unchanged, %4 cards left out.")
        .arg(added)
        .arg(updated)
        .arg(unchanged)
        .arg(skipped);
}

VCardImportSummary importVCards(QIODevice &device, EmbeddedCore *core)
{
    const VCardReader::Result result = VCardReader().read(device);
    VCardImportSummary summary;
    summary.skipped = result.skipped;
    for (const VCardReader::Problem &problem : result.problems) {
        summary.problems.append(problem.line > 0
                                    ? told("line %1: %2").arg(problem.line).arg(problem.text)
                                    : problem.text);
    }
    if (!result.isVCard)
        return summary;
    EmbeddedCore::ImportCounts counts;
    const QList<EmbeddedCore::ImportedContact> contacts = contactsOf(result, &summary);
    summary.ok = core->importContacts(contacts, &counts);
    summary.added = counts.added;
    summary.updated = counts.updated;
    summary.unchanged = counts.unchanged;
    if (!summary.ok)
        summary.problems.prepend(told("The contacts could not be stored."));
    return summary;
}

VCardImportSummary importVCardFile(const QString &fileName, EmbeddedCore *core)
{
    QFile file(fileName);
    VCardImportSummary summary;
    if (!file.open(QIODevice::ReadOnly))
        summary.problems.append(QStringLiteral("%1: %2").arg(fileName, file.errorString()));
    else
        summary = importVCards(file, core);
    if (!summary.ok && file.isOpen() && !summary.problems.isEmpty())
        summary.problems.first().prepend(fileName + QStringLiteral(": "));
    return summary;
}
