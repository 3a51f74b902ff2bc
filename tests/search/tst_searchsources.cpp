// What the pane hears of arrives in the index, and leaves it.
#include "contacts/search/searchsources.h"

#include "plugin/frienduisignalsender.h"
#include "tests/org/orgmaker.h"
#include "tests/search/searchfixture.h"
#include "tests/support/testrunner.h"

#include <memory>

namespace {

QString jid(const char *user)
{
    return QString::fromLatin1(user) + QStringLiteral("@corp.example");
}

CServiceNumData serviceNumber(const QString &code, const QString &name)
{
    CServiceNumData data;
    data.code = code;
    data.name = name;
    return data;
}

CSChannelData channel(const QString &id, const QString &name)
{
    CSChannelData data;
    data.id = id;
    data.name = name;
    return data;
}

MucData room(const QString &roomJid, const QString &name)
{
    MucData data;
    data.roomJid = roomJid;
    data.roomName = name;
    return data;
}

} // namespace

class TstSearchSources : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<FakeHost>();
        m_host->context.user = QStringLiteral("me");
        m_host->context.company = QStringLiteral("P1");
        m_organisation.clear();
    }
    void cleanup()
    {
        m_sources.reset();
        m_host.reset();
    }

    void whatTheHostKnowsAlready()
    {
        FriendData anna = contactNamed(QStringLiteral("anna"), QStringLiteral("Anna"));
        anna.remark = QStringLiteral("boss");
        m_host->context.addContact(anna);
        VcardInfo profile;
        profile.mobile = QStringLiteral("139-1234-5678");
        profile.employeeCode = QStringLiteral("E77");
        m_host->context.profiles.insert(anna.jid, profile);
        m_host->context.innerGroups = {{QStringLiteral("g1"), QStringLiteral("Alpha")}};
        m_organisation.insert(QStringLiteral("D1"), makeDepartment(QStringLiteral("D1"), QString(),
                                                                   QStringLiteral("Works")));
        make();
        for (const char *text : {"boss", "Anna", "13912345678", "E77"})
            QCOMPARE(found(text), QStringList{anna.jid});
        QCOMPARE(found("alpha"), QStringList{QStringLiteral("g1")});
        QCOMPARE(found("works"), QStringList{QStringLiteral("D1")});
    }

    void contactsComeAndGo()
    {
        make();
        emit FriendUISignalSender::instance()->signal_addAllFriend(
            QList<FriendData>{contactNamed(QStringLiteral("anna"), QStringLiteral("Anna")),
                              contactNamed(QStringLiteral("bob"), QStringLiteral("Bob"))});
        QTRY_COMPARE(found("anna"), QStringList{jid("anna")});
        emit FriendUISignalSender::instance()->signal_notifyFriendRemarkName(jid("anna"),
                                                                             QStringLiteral("Zoe"));
        QCOMPARE(found("zoe"), QStringList{jid("anna")});
        emit FriendUISignalSender::instance()->signal_delFriend(jid("anna"));
        QCOMPARE(found("zoe"), QStringList());
        QCOMPARE(found("bob"), QStringList{jid("bob")});
    }

    // The order of events is kept though the large batch is taken in by and by.
    void newsOfSomebodyInABatch()
    {
        make();
        QList<FriendData> many;
        for (int i = 0; i < 3000; ++i)
            many.append(contactNamed(QStringLiteral("u%1").arg(i), QStringLiteral("Old%1").arg(i)));
        emit FriendUISignalSender::instance()->signal_addAllFriend(many);
        emit FriendUISignalSender::instance()->signal_notifyFriendRemarkName(
            jid("u2999"), QStringLiteral("Fresh"));
        emit FriendUISignalSender::instance()->signal_delFriend(jid("u2998"));
        QVERIFY(m_sources->isBusy());
        QTRY_VERIFY(!m_sources->isBusy());
        QCOMPARE(found("fresh"), QStringList{jid("u2999")});
        QCOMPARE(found("old2998"), QStringList());
    }

    void aColleagueIsFoundAfterTheContactIsDeleted()
    {
        m_host->context.addContact(contactNamed(QStringLiteral("anna"), QStringLiteral("Anna")));
        make();
        const OrgElement anna =
            makeEmployee(QStringLiteral("anna"), QStringLiteral("D1"), QStringLiteral("Anna"));
        emit HttpMgr::instance()->signal_searchOrgElements({anna}, QStringLiteral("P1"));
        QTRY_VERIFY(!m_sources->isBusy());
        QCOMPARE(found("anna"), QStringList{jid("anna")}); // once
        emit FriendUISignalSender::instance()->signal_delFriend(jid("anna"));
        QCOMPARE(found("anna"), QStringList{jid("anna")});
        QVERIFY(!m_sources->index().find(SearchEntry::Person, jid("anna"))->isContact);
    }

    void otherKinds()
    {
        make();
        const QString roomJid = QStringLiteral("r1@conference.corp.example");
        auto *hub = FriendUISignalSender::instance();
        emit hub->signal_addMuc(room(roomJid, QStringLiteral("Lunch")), true);
        QCOMPARE(found("lunch"), QStringList{roomJid});
        emit hub->signal_roomSubjectChanged(roomJid, QStringLiteral("Dinner"), QString());
        QCOMPARE(found("lunch"), QStringList());
        QCOMPARE(found("dinner"), QStringList{roomJid});
        emit hub->signal_roomSubjectChanged(QStringLiteral("unknown"), QStringLiteral("Dinner"),
                                            QString());
        QCOMPARE(found("dinner"), QStringList{roomJid});
        emit hub->signal_removedRoom(roomJid);
        QCOMPARE(found("dinner"), QStringList());

        emit hub->signal_notifyAddServiceNum(
            {serviceNumber(QStringLiteral("s1"), QStringLiteral("Payroll"))});
        QCOMPARE(found("payroll"), QStringList{QStringLiteral("s1")});
        emit hub->signal_notifyCancelSubServiceNum(QStringLiteral("s1"), QString(), false);
        QCOMPARE(found("payroll"), QStringList{QStringLiteral("s1")});
        emit hub->signal_notifyCancelSubServiceNum(QStringLiteral("s1"), QString(), true);
        QCOMPARE(found("payroll"), QStringList());

        emit hub->signal_notifyAddChannel(
            channel(QStringLiteral("c1"), QStringLiteral("Helpdesk")));
        QCOMPARE(found("helpdesk"), QStringList{QStringLiteral("c1")});
        emit hub->signal_notifyRemoveChannel(QStringLiteral("c1"));
        QCOMPARE(found("helpdesk"), QStringList());

        emit hub->signal_addGroup(QStringLiteral("g1"), QStringLiteral("Tennis"), true, true);
        emit hub->signal_addGroup(QStringLiteral("g2"), QStringLiteral("Tennis"), false, true);
        QCOMPARE(found("tennis"), QStringList{QStringLiteral("g1")});
        emit hub->signal_changeGroupName(QStringLiteral("g1"), QStringLiteral("Golf"), true, true);
        QCOMPARE(found("golf"), QStringList{QStringLiteral("g1")});
        emit hub->signal_delGroup(true, QStringLiteral("g1"), true);
        QCOMPARE(found("golf"), QStringList());
    }

    void somebodyLogsIn()
    {
        m_host->context.addContact(contactNamed(QStringLiteral("anna"), QStringLiteral("Anna")));
        make();
        QSignalSpy cleared(m_sources.get(), &SearchSources::cleared);
        m_host->context.addContact(contactNamed(QStringLiteral("zoe"), QStringLiteral("Zoe")));
        m_host->context.contacts.remove(jid("anna")); // while nobody was logged in
        emit FriendUISignalSender::instance()->signal_login();
        QTRY_VERIFY(!m_sources->isBusy());
        QCOMPARE(found("zoe"), QStringList{jid("zoe")}); // the same user again
        QCOMPARE(found("anna"), QStringList());
        QCOMPARE(cleared.size(), 0);
        m_host->context.user = QStringLiteral("you");
        m_host->context.contacts.clear();
        m_host->context.addContact(contactNamed(QStringLiteral("bob"), QStringLiteral("Bob")));
        emit FriendUISignalSender::instance()->signal_login();
        QCOMPARE(cleared.size(), 1);
        QTRY_COMPARE(found("bob"), QStringList{jid("bob")});
        QCOMPARE(found("zoe"), QStringList());
    }

private:
    void make()
    {
        m_sources = std::make_unique<SearchSources>(&m_organisation);
        m_sources->start();
        QTRY_VERIFY(!m_sources->isBusy());
    }
    QStringList found(const char *typed)
    {
        QStringList ids;
        const auto hits = m_sources->index().search(QString::fromLatin1(typed), 10);
        for (const SearchHit &hit : hits)
            ids.append(m_sources->index().at(hit.entry).id);
        return ids;
    }

    OrgElementMap m_organisation;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<SearchSources> m_sources;
};

FRIENDUI_TEST(TstSearchSources)
#include "tst_searchsources.moc"
