// Importing vCard files into the friend tree, once and again.
#include "host/core/vcardimport.h"
#include "tests/host/corefixture.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QBuffer>

class TstVCardImport : public CoreFixture
{
    Q_OBJECT

public:
    TstVCardImport() { m_sampleFriends = false; }

private slots:
    void theFileFillsTheTree()
    {
        QCOMPARE(m_core->contacts().size(), 1); // the own user; no sample friends
        QSignalSpy contacts(m_core.get(), &EmbeddedCore::contactsReceived);
        const VCardImportSummary summary = importText(
            "BEGIN:VCARD\nUID:1\nFN:Anna\nORG:Example;Lab\nTITLE:Head\nTEL;TYPE=HOME,CELL:7\n"
            "TEL;TYPE=CELL:8\nTEL;TYPE=WORK,FAX:5\nTEL;TYPE=WORK:9\nTEL:10\nEMAIL:a@corp.example\n"
            "EMAIL;TYPE=pref:anna@corp.example\nGENDER:F\nBDAY:1990-01-02\nADR:;;Street;Berlin;;;\n"
            "NOTE:one\\ntwo\nCATEGORIES:myContacts,Work\nEND:VCARD\n"
            "BEGIN:VCARD\nUID:2\nFN:Bo\nEND:VCARD\n"
            "BEGIN:VCARD\nUID:urn:uuid:3\nFN:Cy\nEND:VCARD\n"
            "BEGIN:VCARD\nUID:9\nKIND:group\nFN:Club\nMEMBER:urn:uuid:3\nEND:VCARD\n"
            "BEGIN:VCARD\nUID:4\nTITLE:nobody\nEND:VCARD\n"
            "BEGIN:VCARD\nUID:2\nFN:Bo again\nEND:VCARD\n");
        QVERIFY(summary.ok);
        QCOMPARE(summary.added, 3);
        QCOMPARE(summary.skipped, 2);
        QCOMPARE(summary.problems.size(), 2);
        QVERIFY(summary.problems.at(0).startsWith(QLatin1String("line 33: ")));
        QVERIFY(summary.problems.at(1).contains(QLatin1String("line 19 ")));
        QCOMPARE(contacts.size(), 1);

        for (int round = 0; round < 2; ++round, start()) {
            QCOMPARE(named(QStringLiteral("Anna")).groupName, QStringLiteral("Work"));
            QCOMPARE(named(QStringLiteral("Bo")).groupId, QString::fromLatin1(""));
            QCOMPARE(named(QStringLiteral("Cy")).groupName, QStringLiteral("Club"));
            VcardInfo profile;
            QVERIFY(m_core->profile(named(QStringLiteral("Anna")).jid, &profile));
            const QStringList fields{profile.mobile, profile.otherPhone, profile.personalMobile,
                                     profile.email,  profile.orgName,    profile.companyName,
                                     profile.duty,   profile.sex,        profile.bday,
                                     profile.sign,   profile.locality};
            QCOMPARE(fields.join(QLatin1Char('|')),
                     QString::fromUtf8(
                         "8|9|7|anna@corp.example|Lab|Example|Head|女|1990-01-02|one two|Berlin"));
        }
    }

    void importingAgainUpdates()
    {
        const QByteArray file = "BEGIN:VCARD\nUID:1\nFN:Anna\nCATEGORIES:Work\nEND:VCARD\n"
                                "BEGIN:VCARD\nFN:Bo\nEMAIL:bo@corp.example\nTEL:1\nEND:VCARD\n";
        importText(file);
        const QString anna = named(QStringLiteral("Anna")).jid;
        const QString bo = named(QStringLiteral("Bo")).jid;

        VCardImportSummary again = importText(file);
        QCOMPARE(again.added + again.updated, 0);
        QCOMPARE(again.unchanged, 2);

        // What the user arranged stays while the file says the same of it.
        const QString home = newGroup(QStringLiteral("Home"));
        m_core->moveContact(anna, named(QStringLiteral("Anna")).groupId, home);
        m_core->setRemark(anna, QStringLiteral("sister"));
        QTRY_COMPARE(record(anna).remark, QStringLiteral("sister"));
        start();
        again = importText("BEGIN:VCARD\nUID:1\nFN:Anna B.\nCATEGORIES:Work\nEND:VCARD\n"
                           "BEGIN:VCARD\nFN:Bo\nEMAIL:bo@corp.example\nTEL:2\nEND:VCARD\n");
        QCOMPARE(again.updated, 2);
        QCOMPARE(m_core->contacts().size(), 3);
        QCOMPARE(record(anna).nickName, QStringLiteral("Anna B."));
        QCOMPARE(record(anna).remark, QStringLiteral("sister"));
        QCOMPARE(record(anna).groupId, home);
        VcardInfo profile;
        QVERIFY(m_core->profile(bo, &profile));
        QCOMPARE(profile.personalMobile, QStringLiteral("2"));

        // A category that changed in the file moves the contact.
        again = importText("BEGIN:VCARD\nUID:1\nFN:Anna B.\nCATEGORIES:Club\nEND:VCARD\n");
        QCOMPARE(again.updated, 1);
        QCOMPARE(record(anna).groupName, QStringLiteral("Club"));
    }

    void groupsOfAnyNameAreMadeOnce()
    {
        // The user cannot make it, but a file may bring it.
        QVERIFY(newGroup(QString::fromUtf8("常用联系人")).isEmpty());
        QByteArray file;
        for (int i = 0; i < 600; ++i) {
            file += "BEGIN:VCARD\nUID:" + QByteArray::number(i) + "\nFN:n\nCATEGORIES:g" +
                    QByteArray::number(i % 300) + "\nEND:VCARD\n";
        }
        file += "BEGIN:VCARD\nUID:f\nFN:Frequent\nCATEGORIES:常用联系人\nEND:VCARD\n"
                "BEGIN:VCARD\nUID:d\nFN:Default\nCATEGORIES:我的好友\nEND:VCARD\n"
                "BEGIN:VCARD\nUID:x\nFN:Quote\nCATEGORIES:<b>'\\;--\nEND:VCARD\n";
        QVERIFY(importText(file).ok);
        QCOMPARE(m_core->groups(true).size(), 1 + 300 + 1 + 1);
        QCOMPARE(named(QStringLiteral("Default")).groupId, QString::fromLatin1(""));
        QCOMPARE(named(QStringLiteral("Frequent")).groupName, QString::fromUtf8("常用联系人"));
        QCOMPARE(named(QStringLiteral("Quote")).groupName, QStringLiteral("<b>';--"));
    }

    void filesThatCannotBeUsedGiveOneMessage()
    {
        const QString none = m_folder->filePath(QStringLiteral("missing.vcf"));
        VCardImportSummary summary = importVCardFile(none, m_core.get());
        QVERIFY(!summary.ok);
        QCOMPARE(summary.problems.size(), 1);
        QVERIFY(summary.text().contains(none));

        const QString text = m_folder->filePath(QStringLiteral("plain.vcf"));
        writeFile(text, "nothing of the kind\n");
        summary = importVCardFile(text, m_core.get());
        QVERIFY(!summary.ok);
        QCOMPARE(summary.problems.size(), 1);
        QVERIFY(summary.text().contains(text));
        QCOMPARE(m_core->contacts().size(), 1);
    }

private:
    VCardImportSummary importText(QByteArray text)
    {
        QBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly);
        return importVCards(buffer, m_core.get());
    }

    FriendData named(const QString &name) const
    {
        for (const FriendData &contact : m_core->contacts()) {
            if (contact.nickName == name)
                return contact;
        }
        return {};
    }

    QString newGroup(const QString &name)
    {
        QSignalSpy created(m_core.get(), &EmbeddedCore::groupCreated);
        m_core->createGroup(name);
        return created.wait() ? created.first().at(0).toString() : QString();
    }
};

FRIENDUI_TEST(TstVCardImport)
#include "tst_vcardimport.moc"
