// The embedded core as somebody else's than the first person's.
#include "tests/host/corefixture.h"
#include "tests/support/testrunner.h"

class TstOtherUsers : public CoreFixture
{
    Q_OBJECT

private slots:
    void theCoreIsTheUsers_data()
    {
        const Rows<QString, QString> row{"user", "companyCode"};
        row("colleague", "u000017", "C1");
        row("of another company", "x000001", "C3");
        row("personal account", "x000005", "");
    }
    void theCoreIsTheUsers()
    {
        QFETCH(QString, user);
        QFETCH(QString, companyCode);
        m_user = user;
        restart(); // of the same folder: a file of the other user must not be taken
        const QString jid = user + QStringLiteral("@corp.example");
        QCOMPARE(m_core->ownUid(), user);
        QCOMPARE(m_core->companyCode(), companyCode);
        QVERIFY(m_core->presence(jid).isOnline());
        VcardInfo own;
        QVERIFY(m_core->profile(jid, &own));
        QCOMPARE(own.jid, jid);
        QCOMPARE(own.companyName.isEmpty(), companyCode.isEmpty());
        QCOMPARE(record(jid).outside, 0);

        QVERIFY(!m_core->rooms().isEmpty());
        for (const MucData &room : m_core->rooms()) {
            QVERIFY(isMember(room.roomJid, jid));
            QCOMPARE(room.companyCode, companyCode);
        }
        int ofOthers = 0;
        for (const MessageData &message : m_core->backlog().messages) {
            QVERIFY(message.fromJid == jid || message.toJid == jid ||
                    message.kind == MessageData::Room);
            ofOthers += message.kind == MessageData::Person && message.fromJid != jid ? 1 : 0;
        }
        QVERIFY(ofOthers > 0);
    }

    void theFirstPersonIsSomebodyLikeOthers()
    {
        m_user = QStringLiteral("u000017");
        restart();
        const QString first = QStringLiteral("u000000@corp.example");
        QSignalSpy added(m_core.get(), &EmbeddedCore::contactAdded);
        FriendData known;
        if (m_core->contact(first, &known)) {
            QSignalSpy removed(m_core.get(), &EmbeddedCore::contactRemoved);
            m_core->removeContact(first);
            QVERIFY(removed.wait());
        }
        m_core->setConfirmationDelay(0);
        m_core->addContact(first, QString(), QString(), QString());
        QVERIFY(added.wait());
        QCOMPARE(record(first).outside, 0);
    }

private:
    bool isMember(const QString &room, const QString &jid) const
    {
        const QList<MucMemberData> members = m_core->roomMembers(room);
        return std::any_of(members.begin(), members.end(),
                           [&](const MucMemberData &member) { return member.jid == jid; });
    }
};

FRIENDUI_TEST(TstOtherUsers)
#include "tst_otherusers.moc"
