// The list of notices, and the people to choose among.
#include "host/attention.h"
#include "host/windows/notices.h"
#include "host/windows/peoplemodel.h"
#include "tests/host/ui/windowbench.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QListWidget>
#include <QPushButton>

namespace {

Notice team(const QString &id)
{
    return {Notice::TeamRequest, id, QStringLiteral("Name"), QStringLiteral("asks")};
}

Notice contact(const QString &jid)
{
    return {Notice::ContactRequest, jid, QStringLiteral("Name"), QString()};
}

struct Bench
{
    Notices notices;
    QListWidget *list = notices.findChild<QListWidget *>(QStringLiteral("noticeList"));
    QPushButton *accept = notices.findChild<QPushButton *>(QStringLiteral("acceptNotice"));
    QPushButton *ignore = notices.findChild<QPushButton *>(QStringLiteral("ignoreNotice"));
    QSignalSpy accepted{&notices, &Notices::accepted};
};

PeopleModel::Person person(const char *uid, const char *name)
{
    return {QString::fromLatin1(uid), QString::fromUtf8(name)};
}

QString shown(const PeopleModel &model)
{
    QString names;
    for (int row = 0; row < model.rowCount(); ++row)
        names += model.index(row).data().toString();
    return names;
}

bool check(PeopleModel *model, int row, Qt::CheckState state = Qt::Checked)
{
    return model->setData(model->index(row), state, Qt::CheckStateRole);
}

} // namespace

class TstNotices : public QObject
{
    Q_OBJECT

private slots:
    void aTeamStaysUntilItIsDecided()
    {
        Bench bench;
        bench.notices.add(team(QStringLiteral("1")));
        QVERIFY(bench.notices.isVisible());
        QCOMPARE(bench.notices.unread(), 1);
        bench.accept->click();
        QCOMPARE(bench.accepted.count(), 1);
        QCOMPARE(bench.accepted.first().at(1).toString(), QStringLiteral("1"));
        QCOMPARE(bench.notices.count(), 1);
        QCOMPARE(bench.notices.unread(), 0);
        bench.notices.setAll(Notice::TeamRequest, {});
        QCOMPARE(bench.notices.count(), 0);
        QVERIFY(!bench.notices.isVisible());
        bench.notices.setAll(Notice::TeamRequest, {team(QStringLiteral("2"))});
        bench.notices.hide();
        bench.notices.show(); // the list takes the focus
        QVERIFY(bench.accept->isEnabled());
    }

    void whatWaitsIsListedOnce()
    {
        Bench bench;
        bench.notices.add(contact(QStringLiteral("1"))); // the same id, of another kind
        bench.notices.setAll(Notice::TeamRequest,
                             {team(QStringLiteral("1")), team(QStringLiteral("2"))});
        bench.notices.setAll(Notice::TeamRequest,
                             {team(QStringLiteral("2")), team(QStringLiteral("3"))});
        QCOMPARE(bench.notices.count(), 3);
        bench.notices.remove(Notice::ContactRequest, QStringLiteral("1"));
        QCOMPARE(bench.notices.count(), 2);
        QCOMPARE(bench.notices.unread(), 2);
    }

    void whatIsIgnoredStaysAway()
    {
        Bench bench;
        bench.notices.add(team(QStringLiteral("1")));
        bench.ignore->click();
        QCOMPARE(bench.notices.count(), 0);
        bench.notices.setAll(Notice::TeamRequest, {team(QStringLiteral("1"))});
        QVERIFY(bench.notices.count() == 0 && !bench.notices.isVisible());
        bench.notices.add(team(QStringLiteral("1"))); // asked once more
        QCOMPARE(bench.notices.count(), 1);
    }

    void theButtonTellsWhatItDoes()
    {
        Bench bench;
        bench.notices.add(team(QStringLiteral("1")));
        const QString forTeams = bench.accept->text();
        bench.notices.add(contact(QStringLiteral("2")));
        bench.list->setCurrentRow(0);
        QVERIFY(bench.accept->text() != forTeams);
        bench.accept->click();
        QCOMPARE(bench.accepted.first().at(1).toString(), QStringLiteral("2"));
        QCOMPARE(bench.notices.count(), 1); // the plug-in's window does the rest
    }

    void attentionIsAskedForWhileTheUserIsAway()
    {
        WindowBench bench;
        Notices *notices = bench.window.windows()->notices();
        const auto isMuted = [](const QString &jid) { return jid == u2(); };
        const auto *attention = new Attention({&bench.core, notices, isMuted}, &bench.window);
        const QSignalSpy asked(attention, &Attention::asked);
        const auto receive = [&bench](const QString &jid, bool fromOthers = true) {
            emit bench.core.messageReceived(fromOthers, message(jid, jid, QStringLiteral("hello")));
        };
        receive(u2());
        receive(u1(), false);
        QCOMPARE(asked.count(), 0);
        receive(u1());
        QCOMPARE(asked.count(), 1);
        notices->setAll(Notice::TeamRequest, {team(QStringLiteral("1"))});
        QCOMPARE(asked.count(), 2);
        notices->setAll(Notice::TeamRequest, {});
        QCOMPARE(asked.count(), 2);
        bench.window.show();
        bench.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bench.window));
        receive(u1());
        QCOMPARE(asked.count(), 2);
    }

    void peopleStandInOrderAndTheChosenOnesFirst()
    {
        PeopleModel model({QStringLiteral("c")}, {QStringLiteral("d")});
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.add({person("b", "B"), person("a", "A"), person("c", "C"), person("d", "D")});
        QCOMPARE(shown(model), QStringLiteral("CDAB"));
        QCOMPARE(model.chosen(), QStringList{QStringLiteral("c")});
        QVERIFY(!check(&model, 1, Qt::Unchecked)); // is there already
        QVERIFY(check(&model, 3));
        model.setFilter(QStringLiteral("a"));
        QCOMPARE(shown(model), QStringLiteral("A"));
        QCOMPARE(model.chosenCount(), 2); // what is not shown stays chosen
    }

    void whoIsFoundLaterIsListedOnce()
    {
        PeopleModel model({}, {});
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.add({person("a", "Anna"), person("b", "Bo")});
        model.setFilter(QStringLiteral("12345"));
        QCOMPARE(model.rowCount(), 0);
        model.add({person("b", "Bo"), person("z", "Zoe")});
        model.setFilter(QStringLiteral("12345"), {QStringLiteral("b"), QStringLiteral("z")});
        QCOMPARE(shown(model), QStringLiteral("BoZoe"));
        QVERIFY(check(&model, 1));
        model.setFilter(QString());
        QCOMPARE(shown(model), QStringLiteral("AnnaBoZoe"));
        QCOMPARE(model.chosen(), QStringList{QStringLiteral("z")});
    }

    void oneAtMost()
    {
        PeopleModel model({}, {});
        model.setSingle(true);
        model.add({person("a", "A"), person("b", "B")});
        check(&model, 0);
        check(&model, 1);
        QCOMPARE(model.chosen(), QStringList{QStringLiteral("b")});
        check(&model, 1, Qt::Unchecked);
        QCOMPARE(model.chosenCount(), 0);
    }
};

FRIENDUI_TEST(TstNotices)
#include "tst_notices.moc"
