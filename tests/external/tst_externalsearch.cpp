// Finding people outside the company: which answers count, and what a hit tells.
#include "ExternalFriend/externalhitmodel.h"
#include "ExternalFriend/externalpeoplesearch.h"
#include "ExternalFriend/searchexternalfriend.h"
#include "controls/searchbox.h"
#include "tests/external/externalfixture.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QStackedLayout>
#include <QTreeView>

namespace {
using F = ExternalFixture;
using Search = ExternalPeopleSearch;

SearchFriendResultData person(const QString &jid, const char *name = "Eve")
{
    SearchFriendResultData one;
    one.jid = jid;
    one.nickName = QString::fromUtf8(name);
    return one;
}

void found(const QList<SearchFriendResultData> &people)
{
    FakeHost::send(Inbound::PeopleFound, people, int(people.size()));
}

QString asked(const FakeHost &host)
{
    return std::get<0>(host.arguments<QString>(Outbound::SearchExternalPeople));
}

struct Window
{
    Window()
    {
        SearchExternalFriend::showSearch(nullptr);
        for (QWidget *top : QApplication::topLevelWidgets()) {
            if (auto *one = qobject_cast<SearchExternalFriend *>(top))
                window = one;
        }
    }
    SearchBox *box() const { return window->findChild<SearchBox *>(); }
    QTreeView *list() const { return window->findChild<QTreeView *>(); }
    QString page() const
    {
        return window->findChild<QStackedLayout *>()->currentWidget()->objectName();
    }
    void type(const char *text) const
    {
        box()->setText(QString::fromUtf8(text));
        QTest::keyClick(box(), Qt::Key_Return);
    }
    SearchExternalFriend *window = nullptr;
};
} // namespace

class TstExternalSearch : public QObject
{
    Q_OBJECT

private slots:
    void states_data()
    {
        const Rows<QString, bool, int> row{"text", "online", "state"};
        row("nothing", " ", true, Search::Idle);
        row("one letter", "a", true, Search::TooShort);
        row("one letter of two units", QString::fromUtf8("𠀀"), true, Search::TooShort);
        row("two", QString::fromUtf8("李四"), true, Search::Searching);
        row("offline", "anna", false, Search::Offline);
    }

    void states()
    {
        QFETCH(QString, text);
        QFETCH(bool, online);
        F f;
        f.host.context.settings.setConnected(online);
        Search search;
        search.setText(text);
        QTEST(int(search.state()), "state");
        search.searchNow();
        QCOMPARE(f.host.requests.size(), search.state() == Search::Searching ? 1 : 0);
    }

    void onlyTheAnswerToTheTextOfNowCounts()
    {
        F f;
        Search search;
        QSignalSpy hits(&search, &Search::found);
        search.setText(QStringLiteral("anna"));
        search.searchNow();
        search.setText(QStringLiteral("bert"));
        search.searchNow();
        search.setText(QStringLiteral("carl"));
        search.searchNow();
        QCOMPARE(f.host.count(Outbound::SearchExternalPeople), 1);
        found({person(f.eve(), "Anna")});
        QVERIFY(hits.isEmpty());
        QCOMPARE(f.host.count(Outbound::SearchExternalPeople), 2);
        QCOMPARE(asked(f.host), QStringLiteral("carl"));
        found({person(f.eve(), "Carl")});
        QCOMPARE(hits.size(), 1);
        QCOMPARE(int(search.state()), int(Search::Done));
        found({person(f.eve(), "Unasked")});
        QCOMPARE(hits.size(), 1);
    }

    void emptiedTextDropsTheAnswer()
    {
        F f;
        Search search;
        QSignalSpy hits(&search, &Search::found);
        search.setText(QStringLiteral("anna"));
        search.searchNow();
        search.setText(QString());
        found({person(f.eve())});
        QVERIFY(hits.isEmpty() && search.state() == Search::Idle);
        QCOMPARE(f.host.count(Outbound::SearchExternalPeople), 1);
    }

    void answeredWithinTheRequest()
    {
        F f;
        Search search;
        QSignalSpy hits(&search, &Search::found);
        f.host.onRequest = [](const FakeHost::Request &) { found({person(F::eve())}); };
        search.setText(QStringLiteral("eve"));
        search.searchNow();
        QCOMPARE(hits.size(), 1);
        QCOMPARE(int(search.state()), int(Search::Done));
    }

    void failsWithoutAnAnswer()
    {
        F f;
        Search search;
        search.setText(QStringLiteral("eve"));
        search.searchNow();
        QVERIFY(search.isWaiting());
        FakeHost::send(Inbound::PeopleFound, QList<SearchFriendResultData>(), -1);
        QCOMPARE(int(search.state()), int(Search::Failed));
        search.retry();
        QCOMPARE(int(search.state()), int(Search::Searching));
        QCOMPARE(f.host.count(Outbound::SearchExternalPeople), 2);
    }

    void hitsAreTidied()
    {
        F f;
        Search search;
        QSignalSpy hits(&search, &Search::found);
        search.setText(QStringLiteral("eve"));
        search.searchNow();
        QList<SearchFriendResultData> many{person(f.eve()), person(f.eve()), person(QString()),
                                           person(QStringLiteral("me@corp.example")),
                                           person(QStringLiteral("uid"))};
        for (int i = 0; i < 1000; ++i)
            many.append(person(QStringLiteral("p%1@other.example").arg(i)));
        found(many);
        const auto people = hits.at(0).at(0).value<QList<SearchFriendResultData>>();
        QCOMPARE(people.size(), Search::MostHits);
        QCOMPARE(people.at(0).jid, f.eve());
        QCOMPARE(people.at(1).jid, QStringLiteral("uid@corp.example"));
    }

    void searchesAgainWhenConnected()
    {
        F f;
        f.setOffline();
        Search search;
        search.setText(QStringLiteral("eve"));
        FakeHost::send(Inbound::ConnectionChanged, true);
        QCOMPARE(int(search.state()), int(Search::Searching));
    }

    // --- The window ----------------------------------------------------------------

    void offlineOpensNone()
    {
        F f;
        f.setOffline();
        QVERIFY(!Window().window);
        QCOMPARE(f.boxes(), 1);
    }

    void fromTheTextToTheRequest()
    {
        F f;
        const Window w;
        QAbstractItemModelTester tester(w.list()->model());
        QCOMPARE(w.page(), QStringLiteral("outsideSearchHint"));
        w.type("eve");
        QCOMPARE(w.page(), QStringLiteral("searchSearching"));
        found({person(f.eve(), "<b>Eve</b>")});
        QCOMPARE(w.list()->model()->rowCount(), 1);
        const QModelIndex row = w.list()->model()->index(0, 0);
        const auto state = [&] { return row.data(ExternalHitRole::State).toInt(); };
        QCOMPARE(row.data().toString(), QStringLiteral("<b>Eve</b>"));
        QVERIFY(row.data(Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;b&gt;")));
        QCOMPARE(state(), int(ExternalHitModel::MayAdd));
        QTest::keyClick(w.box(), Qt::Key_Return);
        QVERIFY(f.dialog());
        QCOMPARE(f.text(f.dialog(), "lblName"), QStringLiteral("<b>Eve</b>"));
        f.click(f.dialog(), "btnSend");
        f.answer(true, 0, 0);
        QCOMPARE(state(), int(ExternalHitModel::Requested));
        QVERIFY(row.data(Qt::AccessibleTextRole)
                    .toString()
                    .contains(QStringLiteral("outsideRequested")));
        f.makeContact();
        QCOMPARE(state(), int(ExternalHitModel::Added));
    }

    void pages()
    {
        F f;
        const Window w;
        w.type("x");
        QCOMPARE(w.page(), QStringLiteral("outsideSearchShort"));
        w.type("xy");
        found({});
        QCOMPARE(w.page(), QStringLiteral("searchNothing"));
        w.type("xyz");
        FakeHost::send(Inbound::PeopleFound, QList<SearchFriendResultData>(), -1);
        QCOMPARE(w.page(), QStringLiteral("outsideSearchFailed"));
        w.box()->setText(QStringLiteral("abc"));
        f.setOffline();
        w.type("abcd");
        QCOMPARE(w.page(), QStringLiteral("isOfflinePleaseLogin"));
    }

    void otherTextTakesOldHitsAway()
    {
        F f;
        const Window w;
        w.type("eve");
        found({person(f.eve())});
        w.box()->setText(QStringLiteral("ev"));
        QCOMPARE(w.list()->model()->rowCount(), 0);
    }

    void byMouseAndKeys()
    {
        F f;
        const Window w;
        w.type("eve");
        found({person(f.eve()), person(QStringLiteral("eva@other.example"))});
        QTest::keyClick(w.box(), Qt::Key_Down);
        QTest::keyClick(w.list(), Qt::Key_Down);
        QTest::keyClick(w.list(), Qt::Key_Return);
        QVERIFY(f.manager()->dialog(QStringLiteral("eva@other.example")));
        const QRect row = w.list()->visualRect(w.list()->model()->index(0, 0));
        QTest::mouseClick(w.list()->viewport(), Qt::LeftButton, {}, row.center());
        QVERIFY(f.dialog());
        QTest::keyClick(w.box(), Qt::Key_Escape);
        QVERIFY(w.box()->text().isEmpty() && w.window->isVisible());
        QPointer<SearchExternalFriend> alive(w.window);
        QTest::keyClick(w.box(), Qt::Key_Escape);
        f.settle();
        QVERIFY(!alive);
    }
};

FRIENDUI_TEST(TstExternalSearch)

#include "tst_externalsearch.moc"
