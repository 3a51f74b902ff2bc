// The second half of a search: when the service is asked, and whose answer counts.
#include "contacts/search/peoplesearch.h"

#include "tests/search/searchfixture.h"
#include "tests/support/testrunner.h"

#include <memory>

class TstPeopleSearch : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<FakeHost>();
        m_host->context.user = QStringLiteral("me");
        m_host->context.company = QStringLiteral("P1");
        m_service = std::make_unique<PeopleService>();
        m_search = std::make_unique<PeopleSearch>();
        m_found.clear();
        connect(m_search.get(), &PeopleSearch::found, this,
                [this](const QVector<SearchResult> &results) {
                    for (const SearchResult &result : results)
                        m_found.append(result.entry.name);
                });
    }
    void cleanup()
    {
        m_search.reset();
        m_service.reset();
        m_host.reset();
    }

    void whenItIsAsked_data()
    {
        const Rows<QString, bool, bool, int> row{"text", "online", "right", "state"};
        row("one letter", "a", true, true, PeopleSearch::Idle);
        row("two letters", "an", true, true, PeopleSearch::Searching);
        row("one Chinese character", QString::fromUtf8("张"), true, true, PeopleSearch::Searching);
        row("one outside the first plane", QString::fromUtf8("𠮷"), true, true,
            PeopleSearch::Searching);
        row("nothing", "", true, true, PeopleSearch::Idle);
        row("offline", "an", false, true, PeopleSearch::Offline);
        row("no right", "an", true, false, PeopleSearch::Idle);
    }

    void whenItIsAsked()
    {
        QFETCH(QString, text);
        QFETCH(bool, online);
        QFETCH(bool, right);
        QFETCH(int, state);
        m_host->context.settings.setConnected(online);
        if (!right)
            m_host->context.deniedRights.insert(ApplicationContext::Org);
        m_search->setText(text);
        QCOMPARE(int(m_search->state()), state);
        if (state == PeopleSearch::Searching)
            QTRY_COMPARE(m_service->asks, QStringList{QStringLiteral("page 1 ") + text});
    }

    void onlyTheLastOfWhatIsTypedFast()
    {
        for (const char *text : {"an", "ann", "anna"})
            m_search->setText(QString::fromLatin1(text));
        QTRY_VERIFY(!m_service->asks.isEmpty());
        QCOMPARE(m_service->asks, QStringList{QStringLiteral("page 1 anna")});
    }

    void aLateAnswerIsNotShown()
    {
        ask("an");
        ask("bo");
        m_service->answer(0, {PeopleService::user(QStringLiteral("anna"))});
        QCOMPARE(m_found, QStringList());
        QCOMPARE(m_search->state(), PeopleSearch::Searching);
        m_service->fail(0); // twice answered
        m_service->answer(1, {PeopleService::user(QStringLiteral("bob"))});
        QCOMPARE(m_found, QStringList{QStringLiteral("bob")});
        QCOMPARE(m_search->state(), PeopleSearch::Done);
        m_service->answer(1, {PeopleService::user(QStringLiteral("bob"))});
        QCOMPARE(m_found.size(), 1);
    }

    void typedAgainWhileItIsAskedFor()
    {
        ask("an");
        m_search->setText(QStringLiteral("ann"));
        m_search->setText(QStringLiteral("an"));
        m_service->answer(0, {PeopleService::user(QStringLiteral("anna"))});
        QCOMPARE(m_found, QStringList{QStringLiteral("anna")});
        QCOMPARE(m_search->state(), PeopleSearch::Done);
        QCOMPARE(m_service->asks.size(), 1);
    }

    void aSlowServiceIsNotFlooded()
    {
        ask("aa");
        ask("bb");
        m_search->setText(QStringLiteral("cc"));
        PeopleSearch other; // asks when the first one would
        other.setText(QStringLiteral("dd"));
        QTRY_COMPARE(m_service->asks.size(), 3);
        QCOMPARE(m_service->asks.last(), QStringLiteral("page 1 dd"));
        m_service->fail(0);
        QTRY_COMPARE(m_service->asks.last(), QStringLiteral("page 1 cc"));
    }

    void pageByPage()
    {
        ask("us");
        m_service->answer(0, PeopleService::users(QStringLiteral("us"), PeopleSearch::PageSize));
        QCOMPARE(m_search->state(), PeopleSearch::More);
        m_search->fetchMore();
        m_search->fetchMore(); // one at a time
        QCOMPARE(m_service->asks.size(), 2);
        QCOMPARE(m_service->asks.last(), QStringLiteral("page 2 us"));
        m_service->fail(1);
        QCOMPARE(m_search->state(), PeopleSearch::Failed);
        m_search->retry();
        QCOMPARE(m_service->asks.last(), QStringLiteral("page 2 us"));
        m_service->answer(2, {PeopleService::user(QStringLiteral("ursula"))});
        QCOMPARE(m_search->state(), PeopleSearch::Done);
        QCOMPARE(m_found.size(), PeopleSearch::PageSize + 1);
    }

    void everyPageTheSame()
    {
        const auto users = PeopleService::users(QStringLiteral("us"), PeopleSearch::PageSize);
        ask("us");
        m_service->answer(0, users);
        m_search->fetchMore();
        m_service->answer(1, users);
        QCOMPARE(m_search->state(), PeopleSearch::Done);
    }

    void moreThanWasAskedFor()
    {
        ask("us");
        m_service->answer(
            0, PeopleService::users(QStringLiteral("us"), 3 * PeopleSearch::MostPerAnswer));
        QCOMPARE(m_found.size(), int(PeopleSearch::MostPerAnswer));
        QCOMPARE(m_search->state(), PeopleSearch::More);
    }

    void whenTheConnectionComesBack()
    {
        m_host->context.settings.setConnected(false);
        m_search->setText(QStringLiteral("an"));
        m_host->context.settings.setConnected(true);
        FakeHost::send(Inbound::ConnectionChanged, true);
        QTRY_COMPARE(m_service->asks, QStringList{QStringLiteral("page 1 an")});
    }

private:
    void ask(const char *text)
    {
        const int before = m_service->asks.size();
        m_search->setText(QString::fromLatin1(text));
        QTRY_COMPARE(m_service->asks.size(), before + 1);
    }

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<PeopleService> m_service;
    std::unique_ptr<PeopleSearch> m_search;
    QStringList m_found; // names
};

FRIENDUI_TEST(TstPeopleSearch)
#include "tst_peoplesearch.moc"
