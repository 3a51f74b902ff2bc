// The event monitor's table: ring, batches, filter, copying.
#include "host/eventmonitor/eventfilter.h"
#include "host/eventmonitor/eventmodel.h"
#include "host/eventmonitor/eventmonitor.h"
#include "hostapi/eventcodes.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>

namespace {

using Fatal = QAbstractItemModelTester;
constexpr auto FailOnFault = QAbstractItemModelTester::FailureReportingMode::QtTest;

EventRecord created(const QString &name, EventInfo::Direction direction = EventInfo::ToPlugin)
{
    EventRecord record;
    record.time = 1700000000000;
    record.direction = direction;
    record.code = direction == EventInfo::ToPlugin ? qint32(Inbound::GroupCreated)
                                                   : qint32(Outbound::CreateGroup);
    record.sender = QString::fromLatin1(PluginId::Roster);
    record.receiver = QString::fromLatin1(PluginId::FriendUi);
    QDataStream out(&record.payload, QIODevice::WriteOnly);
    if (direction == EventInfo::ToPlugin)
        out << QStringLiteral("g1") << name << true << true;
    else
        out << name << true;
    return record;
}

QString payloadOf(const QAbstractItemModel &model, int row)
{
    return model.index(row, EventModel::Payload).data().toString();
}

} // namespace

class TstEventMonitor : public QObject
{
    Q_OBJECT

private slots:
    void aBatchIsOneInsertion()
    {
        EventModel model;
        const Fatal tester(&model, FailOnFault);
        const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        for (int i = 0; i < 100; ++i)
            model.record(created(QString::number(i)));
        QCOMPARE(model.rowCount(), 0);
        model.flush();
        QCOMPARE(model.rowCount(), 100);
        QCOMPARE(inserted.count(), 1);
        QVERIFY(payloadOf(model, 99).contains(QLatin1String("name=\"99\"")));
    }

    void theOldestRowsGo_data()
    {
        const Rows<int, int> row{"before", "batch"};
        row("one more than fits", 10, 1);
        row("a batch as large as the ring", 10, 10);
        row("a batch larger than the ring", 3, 25);
        row("exactly full", 4, 6);
    }
    void theOldestRowsGo()
    {
        QFETCH(int, before);
        QFETCH(int, batch);
        EventModel model(nullptr, 10);
        const Fatal tester(&model, FailOnFault);
        int number = 0;
        for (; number < before; ++number)
            model.record(created(QString::number(number)));
        model.flush();
        for (; number < before + batch; ++number)
            model.record(created(QString::number(number)));
        model.flush();
        QCOMPARE(model.rowCount(), qMin(10, before + batch));
        QCOMPARE(model.dropped(), qint64(qMax(0, before + batch - 10)));
        QVERIFY(payloadOf(model, model.rowCount() - 1)
                    .contains(QStringLiteral("name=\"%1\"").arg(number - 1)));
        QVERIFY(payloadOf(model, 0).contains(
            QStringLiteral("name=\"%1\"").arg(number - model.rowCount())));
    }

    void largePayloadsAreBoundedInBytes()
    {
        EventModel model;
        EventRecord large = created(QString());
        large.payload = QByteArray(30 * 1024 * 1024, 'x');
        for (int i = 0; i < 5; ++i) {
            model.record(large);
            model.flush();
        }
        QCOMPARE(model.rowCount(), 2);
        model.clear();
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.dropped(), qint64(0));
    }

    void theFilterKeepsWhatFits_data()
    {
        const Rows<QString, QString, int, int> row{"text", "codes", "direction", "rows"};
        const int both = EventFilter::Both;
        row("all", "", "", both, 3);
        row("word of the payload", "alpha", "", both, 2);
        row("words of two columns", "ALPHA groupcreated", "", both, 1);
        row("no such word", "alpha gamma", "", both, 0);
        row("code", "", "4118", both, 2);
        row("range", "", "4300-4399", both, 1);
        row("codes", "", "1, 4118 4360", both, 3);
        row("no code", "", "abc", both, 3);
        row("direction", "", "", int(EventFilter::FromPlugin), 1);
        row("together", "beta", "4118", int(EventFilter::ToPlugin), 1);
    }
    void theFilterKeepsWhatFits()
    {
        QFETCH(QString, text);
        QFETCH(QString, codes);
        QFETCH(int, direction);
        QFETCH(int, rows);
        EventModel model;
        EventFilter filter;
        filter.setSourceModel(&model);
        const Fatal tester(&filter, FailOnFault);
        model.record(created(QStringLiteral("alpha")));
        model.record(created(QStringLiteral("beta")));
        model.record(created(QStringLiteral("alpha"), EventInfo::FromPlugin));
        model.flush();
        filter.setText(text);
        filter.setCodes(codes);
        filter.setDirection(EventFilter::Direction(direction));
        QCOMPARE(filter.rowCount(), rows);
    }

    void rowsCopyAsTextAndJson()
    {
        EventModel model;
        model.record(created(QStringLiteral("a\tb\nc")));
        model.record(created(QStringLiteral("second")));
        model.flush();
        const QStringList lines = model.asText({0, 1}).split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.first().count(QLatin1Char('\t')), EventModel::ColumnCount - 1);

        const QJsonArray array = model.asJson({1});
        QCOMPARE(array.size(), 1);
        const QJsonObject event = array.first().toObject();
        QCOMPARE(event.value(QStringLiteral("code")).toInt(), int(Inbound::GroupCreated));
        const QJsonObject payload = event.value(QStringLiteral("payload")).toObject();
        QCOMPARE(payload.value(QStringLiteral("name")).toString(), QStringLiteral("second"));
        QCOMPARE(payload.value(QStringLiteral("success")), QJsonValue(true));
    }

    void thePanelShowsPausesAndCopies()
    {
        EventLog log;
        EventMonitor monitor(&log);
        const auto add = [&log](const QString &name) {
            const EventRecord record = created(name);
            log.add(record.direction, record.code, record.sender, record.receiver, record.payload);
        };
        add(QStringLiteral("hidden")); // recorded while the panel is not shown
        monitor.resize(900, 300);
        monitor.show();
        QTRY_COMPARE(monitor.table()->model()->rowCount(), 1);

        monitor.table()->selectRow(0);
        const auto *details = monitor.findChild<QPlainTextEdit *>(QStringLiteral("eventDetails"));
        QVERIFY(details->toPlainText().contains(QLatin1String("name (QString): \"hidden\"")));
        QVERIFY(details->toPlainText().contains(QLatin1String("000000  ")));

        for (QAction *action : monitor.table()->actions())
            action->trigger();
        const QJsonDocument copied =
            QJsonDocument::fromJson(QApplication::clipboard()->text().toUtf8());
        QCOMPARE(copied.array().size(), 1);

        QAction *pause = nullptr;
        for (QAction *action : monitor.findChildren<QAction *>())
            pause = action->isCheckable() ? action : pause;
        QVERIFY(pause);
        pause->setChecked(true);
        add(QStringLiteral("late"));
        QTest::qWait(0);
        QCOMPARE(monitor.table()->model()->rowCount(), 1);
        pause->setChecked(false);
        QCOMPARE(monitor.table()->model()->rowCount(), 2);

        auto *text = monitor.findChild<QLineEdit *>(QStringLiteral("eventTextFilter"));
        QTest::keyClicks(text, QStringLiteral("late"));
        QTRY_COMPARE(monitor.table()->model()->rowCount(), 1);
    }
};

FRIENDUI_TEST(TstEventMonitor)
#include "tst_eventmonitor.moc"
