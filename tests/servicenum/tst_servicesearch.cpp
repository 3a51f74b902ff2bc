// The window that searches service numbers and subscribes to them.
#include "controls/searchbox.h"
#include "servicenum/cservicenuminfo.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/servicenumfinder.h"
#include "servicenum/servicenumlistview.h"
#include "tests/servicenum/servicepagefixture.h"
#include "tests/support/looks.h"

namespace {
using F = ServicePageFixture;
const QString A = QStringLiteral("a");

class SearchFixture : public F
{
public:
    SearchFixture()
    {
        setFound({number("a", "Alpha"), number("b", "Beta")});
        open();
    }
    ~SearchFixture() { delete window; }

    void open()
    {
        window = CServiceNumSearch::showSearch();
        list = window->list();
        box = window->findChild<SearchBox *>();
        listTester = std::make_unique<QAbstractItemModelTester>(
            list->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    QString found() const { return rows(list->model()); }
    QModelIndex row(const QString &code) const { return list->model()->indexOf(code); }
    // What has been searched for, in the order of the requests.
    QStringList searched() const
    {
        QStringList names;
        for (const FakeRequest &request : server.requests()) {
            if (request.path == Search)
                names.append(QString::fromUtf8(
                    QByteArray::fromPercentEncoding(request.body.split('&').value(0).mid(5))));
        }
        return names;
    }
    // Finds what the name contains.
    void answerByName()
    {
        server.replyElsewhere([](const FakeRequest &) { return FakeReply::of(404); });
    }
    void pressButton(const QModelIndex &index) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->buttonArea(index).center());
    }
    bool isSubscribed() const { return row(A).data(ServiceRole::State).toBool(); }

    QPointer<CServiceNumSearch> window;
    ServiceNumListView *list = nullptr;
    SearchBox *box = nullptr;
    std::unique_ptr<QAbstractItemModelTester> listTester;
};
} // namespace

class TstServiceSearch : public QObject
{
    Q_OBJECT

private slots:
    void opensWithAll()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        QCOMPARE(f.searched(), QStringList{QString()});
        QVERIFY(f.box->hasFocus());
        QPointer<CServiceNumSearch> window = f.window;
        QCOMPARE(CServiceNumSearch::showSearch(), window.data());
        emit FriendUISignalSender::instance()->signal_logout();
        QTRY_VERIFY(!window);
    }

    // An answer that comes late is about a text that nobody asks for any more.
    void newestWins()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.server.forget();
        f.server.reply(F::Search, {F::list({F::number("x", "Old")}).onRelease(),
                                   F::list({F::number("y", "New")})});
        QTest::keyClicks(f.box, QStringLiteral("o"));
        QTRY_COMPARE(f.server.unanswered(), 1);
        QTest::keyClicks(f.box, QStringLiteral("ld"));
        QTRY_COMPARE(f.found(), QStringLiteral("y"));
        f.server.release();
        QTRY_COMPARE(f.server.unanswered(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(f.found(), QStringLiteral("y"));
        QCOMPARE(f.searched(), (QStringList{QStringLiteral("o"), QStringLiteral("old")}));
    }

    void eachChangeSearches()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.server.forget();
        const QStringList texts{QStringLiteral("a"), QStringLiteral("al"), QStringLiteral("a"),
                                QString()};
        for (const QString &text : texts) {
            f.box->setText(text);
            QTRY_COMPARE(f.searched().value(f.searched().size() - 1, QStringLiteral("-")), text);
            QTRY_COMPARE(f.server.unanswered(), 0);
            QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        }
        QCOMPARE(f.searched(), texts);
        // Blanks around change nothing that the service would see.
        f.box->setText(QStringLiteral("  a&b=c + "));
        QTRY_COMPARE(f.searched().last(), QStringLiteral("a&b=c +"));
    }

    // Who types fast asks once for what was typed first and once for the whole.
    void typedFast()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.server.forget();
        QSignalSpy shown(f.window->findChild<ServiceNumFinder *>(), &ServiceNumFinder::found);
        QTest::keyClicks(f.box, QStringLiteral("announcements"));
        QTRY_COMPARE(f.searched().value(f.searched().size() - 1), QStringLiteral("announcements"));
        QTRY_VERIFY(!shown.isEmpty());
        QCOMPARE(shown.first().first().toString(), QStringLiteral("announcements"));
        QVERIFY2(f.searched().size() <= 2, qPrintable(f.searched().join(QLatin1Char('|'))));
    }

    void states_data()
    {
        const Rows<QByteArray, QString> row{"reply", "seen"};
        row("nothing", R"({"code":0,"data":[]})", "searchNothing");
        row("refused", R"({"code":3})", "searchServiceNumbersFailed");
        row("wrong kinds", R"({"code":0,"data":{"list":[{"iServiceCode":"a"}]}})", "searchNothing");
        row("no codes", R"({"code":0,"data":[{"name":"n"},{"iServiceCode":""},7,null]})",
            "searchNothing");
    }
    void states()
    {
        QFETCH(QByteArray, reply);
        QFETCH(QString, seen);
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.server.reply(F::Search, FakeReply::json(reply));
        f.box->setText(QStringLiteral("z"));
        QTRY_COMPARE(F::state(f.window), seen);
        f.setFound({F::number("c", "Gamma")});
        if (seen == QLatin1String("searchServiceNumbersFailed")) {
            f.window->findChild<QPushButton *>(QStringLiteral("retry"))->click();
            QTRY_COMPARE(f.found(), QStringLiteral("c"));
        }
    }

    void offline()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.setOnline(false);
        f.server.forget();
        f.box->setText(QStringLiteral("z"));
        f.box->setText(QStringLiteral("b"));
        QVERIFY(f.found().isEmpty() ? F::state(f.window) == QLatin1String("yourImIsOffline")
                                    : !F::notice(f.window).isEmpty());
        QCOMPARE(f.searched(), QStringList());
        f.setFound({F::number("b", "Beta")});
        f.setOnline(true);
        QTRY_COMPARE(f.found(), QStringLiteral("b"));
        QCOMPARE(f.searched(), QStringList{QStringLiteral("b")});
    }

    void subscribes_data()
    {
        const Rows<bool> row{"byKey"};
        row("button", false);
        row("Space", true);
    }
    void subscribes()
    {
        QFETCH(bool, byKey);
        SearchFixture f;
        f.showPage();
        f.open();
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        QVERIFY(f.isLoaded());
        f.server.reply(F::Subscribe, FakeReply::json("{\"code\":0}").onRelease());
        const auto press = [&] {
            if (!byKey) {
                f.pressButton(f.row(A));
                return;
            }
            QTest::keyClick(f.box, Qt::Key_Down);
            QTest::keyClick(f.list, Qt::Key_Space);
        };
        press();
        QTRY_COMPARE(f.server.count(F::Subscribe), 1);
        QVERIFY(f.row(A).data(ServiceRole::Busy).toBool());
        press(); // while it is under way
        f.server.release();
        QTRY_VERIFY(f.isSubscribed());
        QVERIFY(!f.row(A).data(ServiceRole::Busy).toBool());
        QCOMPARE(f.server.count(F::Subscribe), 1);
        QCOMPARE(F::rows(f.model()), A);
        QVERIFY(!CServiceNumInfoManager::instance()->window(A));
        // The same button ends it, after a question.
        f.list->setCurrentIndex(QModelIndex());
        TipBox::setNextAnswers(TipBox::Sure);
        const int boxes = TipBox::count();
        press();
        QCOMPARE(TipBox::count(), boxes + 1);
        QTRY_VERIFY(!f.isSubscribed());
        QCOMPARE(f.model()->rowCount(), 0);
    }

    void refused_data()
    {
        const Rows<QByteArray, QString> row{"reply", "key"};
        row("no right", R"({"code":1})", "NoAuthSubscrip");
        row("unknown", R"({"code":10001})", "subscribeFailed");
        row("without a code", R"({})", "subscribeFailed");
    }
    void refused()
    {
        QFETCH(QByteArray, reply);
        QFETCH(QString, key);
        const Language installed(QStringLiteral("en"));
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.server.reply(F::Subscribe, FakeReply::json(reply));
        f.pressButton(f.row(A));
        QTRY_COMPARE(F::notice(f.window), QObject::tr(key.toLatin1()));
        QVERIFY(!f.isSubscribed());
        QVERIFY(!f.row(A).data(ServiceRole::Busy).toBool());
        // Somebody else's failure is not said here.
        f.box->setText(QStringLiteral("b"));
        QCOMPARE(F::notice(f.window), QString());
        FakeHost::send(Inbound::ServiceNumberSubscribed, A, QString(), false, QStringLiteral("1"));
        QCOMPARE(F::notice(f.window), QString());
    }

    void keys()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        QTest::keyClick(f.box, Qt::Key_Down);
        QVERIFY(f.list->hasFocus());
        QTest::keyClick(f.list, Qt::Key_Return);
        QVERIFY(CServiceNumInfoManager::instance()->window(A));
        QTest::keyClick(f.list, Qt::Key_X);
        QVERIFY(f.box->hasFocus());
        QCOMPARE(f.box->text(), QStringLiteral("x"));
        QTest::keyClick(f.box, Qt::Key_Escape);
        QVERIFY(f.box->text().isEmpty() && f.window->isVisible());
        QPointer<CServiceNumSearch> window = f.window;
        QTest::keyClick(f.box, Qt::Key_Escape);
        QTRY_VERIFY(!window);
    }

    // Enter means what will be found, not what still stands there.
    void enterBeforeTheAnswer()
    {
        SearchFixture f;
        QTRY_COMPARE(f.found(), QStringLiteral("a b"));
        f.setFound({F::number("c", "Gamma")});
        f.box->setText(QStringLiteral("c"));
        QTest::keyClick(f.box, Qt::Key_Return);
        QVERIFY(!CServiceNumInfoManager::instance()->window(A));
        QTRY_VERIFY(CServiceNumInfoManager::instance()->window(QStringLiteral("c")));
    }

    void buttonUnderThePointer()
    {
        SearchFixture f;
        f.setFound({F::number("b", "Beta")});
        QJsonObject own = F::number("a", "Alpha");
        own.insert(QStringLiteral("isSub"), true);
        f.setFound({own});
        f.box->setText(QStringLiteral("a"));
        QTRY_COMPARE(f.found(), A);
        f.list->setCurrentIndex(QModelIndex());
        const QRect area = f.list->buttonArea(f.row(A));
        const auto picture = [&] { return f.list->viewport()->grab(area).toImage(); };
        const QImage before = picture();
        const auto moveTo = [&](const QPoint &pos) {
            QMouseEvent event(QEvent::MouseMove, pos, f.list->viewport()->mapToGlobal(pos),
                              Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(f.list->viewport(), &event);
        };
        moveTo(area.center());
        QVERIFY(picture() != before);
        QCOMPARE(f.list->viewport()->cursor().shape(), Qt::PointingHandCursor);
        moveTo(area.center() - QPoint(area.width(), 0));
        QCOMPARE(f.list->viewport()->cursor().shape(), Qt::ArrowCursor);
    }
};

FRIENDUI_TEST(TstServiceSearch)
#include "tst_servicesearch.moc"
