// The page of subscriptions: when it loads, what stands in the place of the list, and
// what its rows do.
#include "controls/searchbox.h"
#include "controls/skinmenu.h"
#include "servicenum/cservicenuminfo.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "tests/servicenum/servicepagefixture.h"
#include "tests/support/looks.h"

#include <QContextMenuEvent>

namespace {
using F = ServicePageFixture;
const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");

QJsonArray twoNumbers()
{
    return {F::number("b", "Beta"), F::number("a", "Alpha")};
}

QJsonArray manyNumbers(int count)
{
    QJsonArray numbers;
    for (int i = 0; i < count; ++i) {
        QJsonObject number = F::number(QStringLiteral("n%1").arg(i, 4, 10, QLatin1Char('0')),
                                       QStringLiteral("Number %1").arg(i));
        number.insert(QStringLiteral("icon"), QStringLiteral("icon%1.png").arg(i));
        numbers.append(number);
    }
    return numbers;
}

CServiceNumInfo *windowOf(const QString &code)
{
    return CServiceNumInfoManager::instance()->window(code);
}

CServiceNumSearch *searchWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *search = qobject_cast<CServiceNumSearch *>(window);
        if (search && search->isVisible())
            return search;
    }
    return nullptr;
}

SkinMenu *openMenu(CServiceNoTable *table, const QString &code)
{
    const QPoint pos = table->visualRect(table->model()->indexOf(code)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, table->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(table->viewport(), &event);
    return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
}
} // namespace

class TstServicePage : public QObject
{
    Q_OBJECT

private slots:
    void loadsWhenFirstShown()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        CServiceNoWidget hidden;
        QCoreApplication::processEvents();
        QCOMPARE(f.server.count(F::Mine), 0);
        f.showPage();
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b a"));
        f.page->hide();
        f.page->show();
        QCoreApplication::processEvents();
        QCOMPARE(f.server.count(F::Mine), 1);
    }

    void states_data()
    {
        const Rows<QByteArray, QString, QString> row{"reply", "seen", "button"};
        row("none", R"({"code":0,"version":"1","data":[]})", "noapp", "addService");
        row("refused", R"({"code":5})", "loadErrorAndCrazyRetry", "retry");
        row("no JSON", "oops", "loadErrorAndCrazyRetry", "retry");
        row("numbers", R"({"code":0,"version":"1","data":[{"iServiceCode":"a"}]})", "", "");
    }
    void states()
    {
        QFETCH(QByteArray, reply);
        QFETCH(QString, seen);
        QFETCH(QString, button);
        F f;
        f.server.reply(F::Mine, FakeReply::json(reply).onRelease());
        f.showPage();
        QCOMPARE(F::state(f.page.get()), QStringLiteral("loading"));
        QTRY_COMPARE(f.server.unanswered(), 1);
        f.server.release();
        QTRY_COMPARE(F::state(f.page.get()), seen);
        if (button == QLatin1String("retry")) {
            f.setSubscriptions(twoNumbers());
            auto *retry = f.page->findChild<QPushButton *>(button);
            retry->setFocus();
            QTest::keyClick(retry, Qt::Key_Space);
            QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b a"));
            QVERIFY(f.table()->hasFocus());
        } else if (!button.isEmpty()) {
            QVERIFY(!searchWindow());
            f.page->findChild<QPushButton *>(button)->click();
            QVERIFY(searchWindow());
        }
    }

    void offline()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.setOnline(false);
        f.showPage();
        QCOMPARE(F::state(f.page.get()), QStringLiteral("yourImIsOffline"));
        QCOMPARE(f.server.requests().size(), 0);
        f.setOnline(true);
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b a"));
        f.setOnline(false);
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b a"));
    }

    void entryOpensTheSearch()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        auto *entry = f.page->findChild<QAbstractButton *>(QStringLiteral("addService"));
        QTest::keyClick(entry, Qt::Key_Return);
        QPointer<CServiceNumSearch> search = searchWindow();
        QVERIFY(search);
        entry->click();
        QCOMPARE(searchWindow(), search.data());
        search->close();
        QTRY_VERIFY(!search);
    }

    void rowsOpenTheDetail()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        F::click(f.table(), f.model()->indexOf(A));
        QVERIFY(windowOf(A));
        f.table()->setCurrentIndex(f.model()->indexOf(B));
        QTest::keyClick(f.table(), Qt::Key_Return);
        QVERIFY(windowOf(B));
        // Pressed on one row and let go on another: nobody meant either.
        windowOf(A)->close();
        QTRY_VERIFY(!windowOf(A));
        const QPoint first = f.table()->visualRect(f.model()->index(0)).center();
        const QPoint second = f.table()->visualRect(f.model()->index(1)).center();
        QTest::mousePress(f.table()->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseRelease(f.table()->viewport(), Qt::LeftButton, {}, second);
        QVERIFY(!windowOf(A));
    }

    void menu()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        SkinMenu *menu = openMenu(f.table(), A);
        QVERIFY(menu);
        QVERIFY(!menu->action("subscribe")->isVisible());
        menu->action("serviceNoChat")->trigger();
        menu->close();
        const auto [jid, kind] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(jid, QStringLiteral("a@corp.example"));
        QCOMPARE(kind, qint32(MessageData::ServiceNumber));
        // The row that the menu is about goes.
        menu = openMenu(f.table(), A);
        QVERIFY(menu->isVisible());
        FakeHost::send(Inbound::ServiceNumberCancelled, A, QString(), true);
        QVERIFY(!menu->isVisible());
        QTRY_COMPARE(F::rows(f.model()), B);
    }

    void cancelsAfterAQuestion_data()
    {
        const Rows<int, QByteArray, int, int, bool> row{"answer", "reply", "requests", "rows",
                                                        "saysSo"};
        row("not meant", TipBox::Cancel, R"({"code":0})", 0, 2, false);
        row("meant", TipBox::Sure, R"({"code":0})", 1, 1, false);
        row("refused", TipBox::Sure, R"({"code":7})", 1, 2, true);
    }
    void cancelsAfterAQuestion()
    {
        QFETCH(int, answer);
        QFETCH(QByteArray, reply);
        QFETCH(int, requests);
        QFETCH(int, rows);
        QFETCH(bool, saysSo);
        F f;
        f.setSubscriptions(twoNumbers());
        f.server.reply(F::Cancel, FakeReply::json(reply));
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        TipBox::setNextAnswers(TipBox::Answer(answer));
        const int boxes = TipBox::count();
        f.table()->setCurrentIndex(f.model()->indexOf(A));
        QTest::keyClick(f.table(), Qt::Key_Delete);
        QCOMPARE(TipBox::count(), boxes + 1);
        QTRY_VERIFY(f.server.count(F::Cancel) == requests && !ServiceNumbers::instance().isBusy(A));
        QTRY_COMPARE(f.model()->rowCount(), rows);
        QCOMPARE(!F::notice(f.page.get()).isEmpty(), saysSo);
        if (requests > 0)
            QVERIFY(f.server.last().body.contains("appCode=a"));
    }

    void hostEvents()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        CServiceNumData record;
        record.code = QStringLiteral("c");
        record.name = QStringLiteral("Gamma");
        FakeHost::send(Inbound::ServiceNumbersAdded, QList<CServiceNumData>{record, record});
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b a c"));
        record.name = QStringLiteral("Delta");
        FakeHost::send(Inbound::ServiceNumberUpdated, QStringLiteral("c@corp.example"), record);
        QTRY_COMPARE(f.model()->index(2).data(ServiceRole::Name).toString(),
                     QStringLiteral("Delta"));
        const QString icon = f.folder.filePath(QStringLiteral("icon.png"));
        QVERIFY(QImage(90, 90, QImage::Format_RGB32).save(icon));
        FakeHost::send(Inbound::ServiceIconStored, QStringLiteral("c"), icon);
        QTRY_COMPARE(f.model()->index(2).data(ServiceRole::Picture).toString(), icon);
        FakeHost::send(Inbound::ServiceNumberCancelled, B, QString(), true);
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("a c"));
        FakeHost::send(Inbound::ServiceNumberSubscribed, B, QString(), true, QStringLiteral("0"));
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("a c b"));
    }

    // A row that somebody points at stays where it is; what goes goes.
    void nothingMovesUnderThePointer()
    {
        F f;
        f.setSubscriptions({F::number("a", "A"), F::number("b", "B"), F::number("c", "C")});
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 3);
        emit f.table()->orderHeld(true);
        f.server.reply(F::Mine,
                       F::list({F::number("c", "C"), F::number("b", "B")}, QStringLiteral("2")));
        ServiceNumbers::instance().load();
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("b c"));
        emit f.table()->orderHeld(false);
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("c b"));
    }

    void manySubscriptions()
    {
        F f;
        writeFile(f.folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + f.server.url().toEncoded() +
                      "\n[ImFile]\ndownloadPointUrl=" + f.server.url().toEncoded() + "icons\n");
        f.server.replyElsewhere([](const FakeRequest &) { return FakeReply::of(404); });
        f.setSubscriptions(manyNumbers(2000));
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2000);
        const int fitting = f.table()->viewport()->height() / 44 + 2;
        QTRY_VERIFY(f.server.count("/icons") > 0 && f.server.unanswered() == 0);
        QVERIFY2(f.server.count("/icons") <= fitting, qPrintable(QString::number(fitting)));

        auto *filter = f.page->findChild<SearchBox *>(QStringLiteral("serviceFilter"));
        QVERIFY(filter->isVisible());
        filter->setText(QStringLiteral("number 1999"));
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("n1999"));
        QTest::keyClick(filter, Qt::Key_Down);
        QVERIFY(f.table()->hasFocus());
        filter->setText(QStringLiteral("zzz"));
        QTRY_COMPARE(f.model()->rowCount(), 0);
        QVERIFY(!F::notice(f.page.get()).isEmpty());
        QTest::keyClick(filter, Qt::Key_Escape);
        QTRY_COMPARE(f.model()->rowCount(), 2000);
        QVERIFY(f.table()->hasFocus());
        QTest::keyClicks(f.table(), QStringLiteral("number 77"));
        QCOMPARE(f.table()->currentIndex().data(ServiceRole::Id).toString(),
                 QStringLiteral("n0077"));
    }

    void fewNeedNoFilter()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        QVERIFY(!f.page->findChild<SearchBox *>(QStringLiteral("serviceFilter"))->isVisible());
    }

    void anotherUser()
    {
        F f;
        f.setSubscriptions(twoNumbers());
        f.showPage();
        QTRY_COMPARE(f.model()->rowCount(), 2);
        FriendUISignalSender *hub = FriendUISignalSender::instance();
        f.setSubscriptions({F::number("c", "Gamma")});
        f.host.context.user = QStringLiteral("other");
        emit hub->signal_logout();
        QTRY_COMPARE(f.model()->rowCount(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(f.server.count(F::Mine), 1);
        emit hub->signal_login();
        QTRY_COMPARE(F::rows(f.model()), QStringLiteral("c"));
    }
};

FRIENDUI_TEST(TstServicePage)
#include "tst_servicepage.moc"
