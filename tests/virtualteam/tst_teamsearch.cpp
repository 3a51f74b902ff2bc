// The search in the page of virtual teams: whom it asks, what of the answers is shown,
// and where a hit leads.
#include "controls/skinmenu.h"
#include "tests/support/recordingactions.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teampagefixture.h"
#include "virtualteam/teamsearch.h"
#include "virtualteam/teamsearchpage.h"

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QSignalSpy>

namespace {
const QString SearchPageName = QStringLiteral("VirtualTeamSearchPage");
const QString ListPage = QStringLiteral("VirtualTeamListPage");
const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");
const QString One = QStringLiteral("1");
const QString Two = QStringLiteral("2");
const QString Three = QStringLiteral("3");
} // namespace

class TstTeamSearch : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_f = std::make_unique<TeamPageFixture>(QStringList{One, Two, Three});
        m_f->setHits(One, {m_f->member(A), m_f->member(B)});
        m_f->setHits(Two, {m_f->member(A)});
        m_f->load();
        m_search = m_f->page->findChild<TeamSearch *>();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_f->list->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    void cleanup()
    {
        m_tester.reset();
        m_f.reset();
    }

    void asksForEachTeamOnceNobodyTypes()
    {
        const QString typed = QString::fromUtf8(" 张&=+% ");
        m_f->box->setFocus();
        QTest::keyClicks(m_f->box, QStringLiteral("x"));
        m_f->box->setText(typed);
        QCOMPARE(m_f->shown(), SearchPageName);
        QVERIFY(m_f->visible<QWidget>("searchSearching"));
        QTRY_COMPARE(m_search->state(), TeamSearch::Done);
        QCOMPARE(askedTeams(), (QStringList{One, Two, Three}));
        QCOMPARE(m_f->asked("fuzzySearchVirtualTeamMember", "key").first(), typed.simplified());
        // A row for each team that somebody is in.
        QCOMPARE(m_f->hits(), QStringLiteral("a/1 b/1 a/2"));
        QVERIFY(m_f->list->isVisible());
    }

    void fewAtATime()
    {
        QStringList teams;
        for (int i = 1; i <= 3 * TeamSearch::AtATime; ++i)
            teams.append(QString::number(i));
        m_f->setTeams(teams);
        m_f->page->slot_refreshVirtualTeam();
        QTRY_COMPARE(m_f->model->teamIds(), teams);
        m_f->hold("fuzzySearchVirtualTeamMember");
        m_f->box->setText(A);
        QTRY_COMPARE(m_f->server.unanswered(), TeamSearch::AtATime);
        m_f->failNothing();
        m_f->server.release();
        QTRY_COMPARE(m_search->state(), TeamSearch::Done);
        QCOMPARE(m_f->server.mostUnanswered(), TeamSearch::AtATime);
        teams.sort();
        QCOMPARE(askedTeams(), teams);
    }

    void hitsComeAsTheyArrive_data()
    {
        const Rows<bool, QString> row{"inUse", "hits"};
        row("nobody chooses", false, QStringLiteral("a/1 a/2 c/3"));
        row("somebody chooses", true, QStringLiteral("a/1 c/3 a/2"));
    }
    void hitsComeAsTheyArrive()
    {
        QFETCH(bool, inUse);
        m_f->setHits(One, {m_f->member(A)});
        m_f->setHits(Three, {m_f->member(QStringLiteral("c"))});
        m_f->setSpecial([](const FakeRequest &request, FakeReply *answer) {
            *answer = TeamService::reply("{\"members\":[" + TeamPageFixture::member(A) + "]}");
            answer->onRelease();
            return TeamPageFixture::value(request, "vtId") == Two;
        });
        m_f->box->setText(A);
        QTRY_COMPARE(m_f->hits(), QStringLiteral("a/1 c/3"));
        QCOMPARE(m_search->state(), TeamSearch::Searching);
        QVERIFY(m_f->visible<QWidget>("noticeText"));
        if (inUse)
            QTest::keyClick(m_f->box, Qt::Key_Down);
        m_f->server.release();
        QTRY_COMPARE(m_search->state(), TeamSearch::Done);
        QTEST(m_f->hits(), "hits");
    }

    void lateAnswers()
    {
        m_f->hold("fuzzySearchVirtualTeamMember");
        m_f->box->setText(A);
        QTRY_COMPARE(m_f->searches(), 3);
        m_f->failNothing();
        m_f->setHits(One, {m_f->member(B)});
        m_f->setHits(Two, {});
        m_f->box->setText(B);
        QTRY_COMPARE(m_search->state(), TeamSearch::Done);
        m_f->server.release();
        QTRY_COMPARE(m_f->host.context.webRequests.size(), m_f->server.requests().size());
        QCOMPARE(m_f->hits(), QStringLiteral("b/1"));
        // And one that comes when nothing is searched for any more.
        m_f->hold("fuzzySearchVirtualTeamMember");
        m_f->box->setText(A);
        QTRY_COMPARE(m_f->searches(), 9);
        m_f->box->clear();
        m_f->server.release();
        QTRY_COMPARE(m_f->server.unanswered(), 0);
        QCOMPARE(m_f->shown(), ListPage);
        QCOMPARE(m_f->hits(), QString());
    }

    // More letters find fewer people: the others go when the answer is there.
    void narrowing()
    {
        type("a");
        m_f->hold("fuzzySearchVirtualTeamMember");
        m_f->setHits(One, {m_f->member(B)});
        m_f->setHits(Two, {});
        m_f->setHits(Three, {m_f->member(QStringLiteral("c"))});
        m_f->list->setCurrentIndex(row(B, One));
        m_f->box->setText(QStringLiteral("ab"));
        QCOMPARE(m_f->list->model()->rowCount(), 3);
        QTRY_COMPARE(m_f->server.unanswered(), 3);
        m_f->server.release();
        QTRY_COMPARE(m_f->hits(), QStringLiteral("b/1 c/3"));
        QCOMPARE(m_f->list->currentIndex(), row(B, One));
        m_f->failNothing();
        m_f->box->setText(QStringLiteral("c"));
        QCOMPARE(m_f->hits(), QString());
    }

    void presence()
    {
        const QString jid = QStringLiteral("b@corp.example");
        m_f->setHits(One,
                     {m_f->member(B, QStringLiteral(R"(,"presence":{"av":true,"show":"away"})"))});
        m_f->setHits(Two, {});
        type("b");
        const auto shown = [this] {
            return row(B, One).data(TeamRowRole::Presence).value<PresenceData>().pcShow;
        };
        QCOMPARE(shown(), PresenceData::Away);
        emit m_f->hub()->signal_updateFriendPresence({{jid, PresenceData()}});
        QCOMPARE(shown(), PresenceData::Offline);
        m_f->host.context.presences[jid].pcShow = PresenceData::DoNotDisturb;
        QCOMPARE(shown(), PresenceData::DoNotDisturb);
    }

    void someTeamsFail()
    {
        failFor({Two});
        m_f->box->setText(A);
        QTRY_VERIFY(m_f->visible<QPushButton>("noticeRetry"));
        QCOMPARE(m_f->hits(), QStringLiteral("a/1 b/1"));
        m_f->failNothing();
        QTest::mouseClick(m_f->visible<QPushButton>("noticeRetry"), Qt::LeftButton);
        QTRY_COMPARE(m_f->hits(), QStringLiteral("a/1 b/1 a/2"));
        QVERIFY(!m_f->visible<QPushButton>("noticeRetry"));
        QCOMPARE(m_f->searches(), 4); // only the one that had failed
    }

    void allTeamsFail()
    {
        failFor({One, Two, Three});
        m_f->box->setText(A);
        QTRY_VERIFY(m_f->visible<QWidget>("searchTeamsFailed"));
        m_f->failNothing();
        QTest::mouseClick(m_f->visible<QPushButton>("retry"), Qt::LeftButton);
        QTRY_COMPARE(m_f->list->model()->rowCount(), 3);
        QVERIFY(m_f->list->isVisible());
    }

    void offline()
    {
        m_f->setOnline(false);
        m_f->box->setText(A);
        QVERIFY(m_f->visible<QWidget>("isOfflinePleaseLogin"));
        m_f->setOnline(true);
        QTRY_COMPARE(m_f->list->model()->rowCount(), 3);
        QCOMPARE(m_f->searches(), 3);
    }

    void teamsComeAndGo()
    {
        type("a");
        m_f->setHits(Three, {m_f->member(B)});
        const QString four = QStringLiteral("4");
        m_f->setHits(four, {m_f->member(B)});
        m_f->setTeams({Two, Three, four});
        emit m_f->hub()->signal_position_virtualTeam(true);
        QTRY_COMPARE(m_f->hits(), QStringLiteral("a/2 b/4"));
        QCOMPARE(m_f->searches(), 4);
        QCOMPARE(m_f->shown(), SearchPageName);
    }

    void leadsToTheMember_data()
    {
        const Rows<QString, bool> row{"way", "isLoaded"};
        row("click", QStringLiteral("click"), true);
        row("click, level not loaded", QStringLiteral("click"), false);
        row("double click", QStringLiteral("double"), true);
        row("Enter in the box", QStringLiteral("box"), true);
        row("Enter in the list", QStringLiteral("list"), false);
        row("menu", QStringLiteral("menu"), true);
    }
    void leadsToTheMember()
    {
        QFETCH(QString, way);
        QFETCH(bool, isLoaded);
        m_f->setMembers(One, {m_f->member(A), m_f->member(B)});
        if (isLoaded) {
            m_f->page->tree()->expandTeam(One);
            QTRY_VERIFY(m_f->model->memberIndex(One, A).isValid());
        }
        QSignalSpy chosen(m_f->list, &VirtualTeamSearchResultListView::signal_expendVirtualTeam);
        m_f->setHits(Two, {});
        type("a");
        lead(way, row(A, One));
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(chosen.first().first().toString(), One);
        QVERIFY(m_f->box->text().isEmpty());
        QCOMPARE(m_f->shown(), ListPage);
        QVERIFY(m_f->page->tree()->hasFocus());
        QTRY_VERIFY(m_f->model->memberIndex(One, A).isValid());
        QTRY_COMPARE(m_f->page->tree()->currentIndex(), m_f->model->memberIndex(One, A));
    }

    // The level comes after the user has gone on to something else.
    void nobodyIsCalledBack()
    {
        m_f->setMembers(One, {m_f->member(A)});
        type("a");
        m_f->hold("getVirtualTeamGroup");
        m_f->list->choose(row(A, One));
        QTRY_COMPARE(m_f->levels(), 1);
        m_f->page->tree()->reveal(m_f->model->teamIndex(Two));
        m_f->server.release();
        QTRY_VERIFY(m_f->model->memberIndex(One, A).isValid());
        QCOMPARE(m_f->page->tree()->currentIndex(), m_f->model->teamIndex(Two));
    }

    void keysBetweenBoxAndList()
    {
        m_f->setHits(Two, {});
        type("a");
        QTest::keyClick(m_f->box, Qt::Key_Down);
        QVERIFY(m_f->list->hasFocus());
        QTest::keyClick(m_f->list, Qt::Key_B);
        QVERIFY(m_f->box->hasFocus());
        QCOMPARE(m_f->box->text(), QStringLiteral("ab"));
        QTest::keyClick(m_f->box, Qt::Key_Down);
        QTest::keyClick(m_f->list, Qt::Key_Escape);
        QVERIFY(m_f->box->text().isEmpty());
        QVERIFY(m_f->page->tree()->hasFocus());
        m_f->box->setFocus();
        QTest::keyClick(m_f->box, Qt::Key_X);
        QTest::keyClick(m_f->box, Qt::Key_Escape);
        QVERIFY(m_f->box->text().isEmpty());
        QVERIFY(m_f->page->tree()->hasFocus());
    }

    void menu()
    {
        RecordingActions actions;
        const QString own = m_f->host.context.user;
        m_f->setHits(One, {m_f->member(own), m_f->member(B)});
        m_f->setHits(Two, {});
        type("a");
        SkinMenu *menu = openMenu(row(own, One));
        QVERIFY(!menu->action("invitechat")->isVisible());
        menu->action("viewdetail")->trigger();
        menu->close();
        menu = openMenu(row(B, One));
        menu->action("viewdetail")->trigger();
        QCOMPARE(actions.calls, (QStringList{QStringLiteral("openOwnDetail"),
                                             QStringLiteral("openContactDetail b@corp.example")}));
        menu->action("invitechat")->trigger();
        menu->close();
        const auto [jid, kind] = m_f->host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(jid, QStringLiteral("b@corp.example"));
        QCOMPARE(kind, qint32(MessageData::Person));
    }

    // The host closes its window when a chat is opened.
    void pageGoesInsideARequest()
    {
        m_f->setHits(One, {m_f->member(B)});
        m_f->setHits(Two, {});
        type("b");
        SkinMenu *menu = openMenu(row(B, One));
        m_tester.reset();
        m_f->host.onRequest = [this](const FakeHost::Request &) { m_f->page.reset(); };
        menu->setActiveAction(menu->action("invitechat"));
        QTest::keyClick(menu, Qt::Key_Return);
        QVERIFY(!m_f->page);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_f->host.onRequest = nullptr;
    }

    void marksWhatWasTyped_data()
    {
        const Rows<QString, QString, QString> row{"typed", "name", "beside"};
        const QString plain = QString::fromUtf8("小王 (王小明)");
        row("inside", QString::fromUtf8("小明"), QString::fromUtf8("小王 (王[小明])"), QString());
        row("pinyin", "wangxiaoming", QString::fromUtf8("小王 ([王小明])"), QString());
        row("number", "1234", plain, QStringLiteral("138 0000 [1234]"));
        row("number, blanks", "00001234", plain, QStringLiteral("[138 0000 1234]"));
        row("account", "U0000", plain, QStringLiteral("[u0000]42"));
        row("what the service knows", "dev", plain, QString());
    }
    void marksWhatWasTyped()
    {
        QFETCH(QString, typed);
        CVirtualTeamMemberInfo member;
        member.userId = QStringLiteral("u000042");
        member.nickName = QString::fromUtf8("小王");
        member.name = QString::fromUtf8("王小明");
        member.mobile = QStringLiteral("138 0000 1234");
        TeamSearchModel model;
        model.setTeams({{One, One, 0, 1}});
        model.setText(typed);
        model.setHits(One, {member}, true);
        const QModelIndex row = model.index(0);
        QTEST(bracketed(row.data(TeamHitRole::MarkedName)), "name");
        QTEST(bracketed(row.data(TeamHitRole::Beside)), "beside");
    }

    // What an answer may hold, and what a row makes of it.
    void answersThatMeanNoGood()
    {
        QByteArrayList members{m_f->member(A), m_f->member(A), m_f->member(QString()),
                               R"({"userId":"m","nickName":"<b>x</b>\n","name":"Real",)"
                               R"("companyName":"Co & <i>","mobile":"138-0000 1234"})"};
        for (int i = 0; i < 3 * TeamSearch::MostHits; ++i)
            members.append(m_f->member(QStringLiteral("n") + QString::number(i)));
        m_f->setHits(One, members);
        m_f->setHits(Two, {});
        type("0001");
        QCOMPARE(m_f->list->model()->rowCount(), TeamSearch::MostHits);
        QCOMPARE(row(A, One).row(), 0);
        const QModelIndex m = row(QStringLiteral("m"), One);
        QCOMPARE(m.row(), 1);
        QCOMPARE(m.data(TeamRowRole::Name).toString(), QStringLiteral("<b>x</b> (Real)"));
        QCOMPARE(m.data(TeamHitRole::Second).toString(), QString::fromUtf8("Team 1 · Co & <i>"));
        QCOMPARE(m.data(TeamHitRole::Beside).value<MarkedText>().text,
                 QStringLiteral("138-0000 1234"));
        QVERIFY(!m.data(Qt::ToolTipRole).toString().contains(QLatin1String("<b>")));
    }

private:
    static QString bracketed(const QVariant &line)
    {
        auto [text, marks] = line.value<MarkedText>();
        for (const SearchMark &mark : marks)
            text.insert(mark.first + mark.second, QLatin1Char(']'))
                .insert(mark.first, QLatin1Char('['));
        return text;
    }
    void type(const char *text)
    {
        m_f->box->setFocus();
        m_f->box->setText(QLatin1String(text));
        QTRY_COMPARE(m_search->state(), TeamSearch::Done);
    }
    QStringList askedTeams() const
    {
        QStringList teams = m_f->asked("fuzzySearchVirtualTeamMember", "vtId");
        teams.sort();
        return teams;
    }
    QModelIndex row(const QString &user, const QString &team) const
    {
        const QAbstractItemModel *model = m_f->list->model();
        const auto rows = model->match(model->index(0, 0), TeamRowRole::Id, user, -1,
                                       Qt::MatchExactly | Qt::MatchCaseSensitive);
        for (const QModelIndex &index : rows) {
            if (static_cast<const TeamSearchModel *>(model)->at(index.row()).vtId == team)
                return index;
        }
        return QModelIndex();
    }
    void failFor(const QStringList &teams)
    {
        m_f->setSpecial([teams](const FakeRequest &request, FakeReply *answer) {
            *answer = TeamService::reply("{}", 10001);
            return teams.contains(TeamPageFixture::value(request, "vtId"));
        });
    }
    SkinMenu *openMenu(const QModelIndex &index) const
    {
        const QPoint pos = m_f->list->visualRect(index).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos,
                                m_f->list->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(m_f->list->viewport(), &event);
        return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
    }
    void lead(const QString &way, const QModelIndex &index) const
    {
        QWidget *viewport = m_f->list->viewport();
        const QPoint pos = m_f->list->visualRect(index).center();
        if (way == QLatin1String("box")) {
            QTest::keyClick(m_f->box, Qt::Key_Return);
        } else if (way == QLatin1String("list")) {
            QTest::keyClick(m_f->box, Qt::Key_Down);
            QTest::keyClick(m_f->list, Qt::Key_Return);
        } else if (way == QLatin1String("menu")) {
            SkinMenu *menu = openMenu(index);
            menu->action("locateFound")->trigger();
            menu->close();
        } else {
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
            if (way == QLatin1String("double"))
                QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, pos);
        }
    }

    std::unique_ptr<TeamPageFixture> m_f;
    TeamSearch *m_search = nullptr; // of the page
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

FRIENDUI_TEST(TstTeamSearch)
#include "tst_teamsearch.moc"
