// The table of the pinned channels.
#include "common/localdatabase.h"
#include "servicenum/topchannels.h"
#include "tests/support/fakehost.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QTemporaryDir>

namespace {
QStringList repeated(int count, int length)
{
    QStringList ids;
    for (int i = 0; i < count; ++i)
        ids.append(QString::number(i).rightJustified(length, QLatin1Char('x')));
    return ids;
}
} // namespace

class TstTopChannels : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_host = std::make_unique<FakeHost>();
        m_host->context.user = QStringLiteral("me");
        m_host->context.baseFolder = m_folder->path();
    }
    void cleanup()
    {
        LocalDatabase::instance().close();
        m_host.reset();
    }

    void stored_data()
    {
        const Rows<QStringList, QString> row{"ids", "list"};
        row("none", {}, "");
        row("one", {QStringLiteral("a")}, "a");
        row("some", {QStringLiteral("a b"), QStringLiteral("'"), QStringLiteral("%")}, "a b,',%");
        row("a comma", {QStringLiteral("a,b"), QStringLiteral("c")}, "c");
        const QStringList exact = repeated(10, 20); // 10 commas too many for the last
        row("too many", exact, QStringList(exact.mid(0, 9)).join(QLatin1Char(',')));
        row("to the last character", repeated(3, 66), repeated(3, 66).join(QLatin1Char(',')));
        row("one too long among short ones",
            {QStringLiteral("a"), QString(199, QLatin1Char('x')), QStringLiteral("b")}, "a,b");
    }

    void stored()
    {
        QFETCH(QStringList, ids);
        QFETCH(QString, list);
        QVERIFY(TopChannels::store({QStringLiteral("before")}));
        LogCapture log(m_host->context);
        QVERIFY(TopChannels::store(ids));
        QCOMPARE(row(), QVariant(list));
        QVERIFY(list.size() <= TopChannels::MaximumLength);
        const QStringList kept = list.split(QLatin1Char(','), Qt::SkipEmptyParts);
        LocalDatabase::instance().close();
        QCOMPARE(TopChannels::load().value(), kept);
        QCOMPARE(log.linesWith("[WARN]").size(), ids.size() - kept.size());
    }

    void nothingStoredYet()
    {
        QCOMPARE(TopChannels::load().value(), QStringList());
        QCOMPARE(row(), QVariant());
    }

    void damagedRow_data()
    {
        const Rows<QVariant, QStringList> row{"stored", "ids"};
        row("null", QVariant(QVariant::String), {});
        row("commas", QStringLiteral(",,a,,b,a,"), {QStringLiteral("a"), QStringLiteral("b")});
    }

    void damagedRow()
    {
        QFETCH(QVariant, stored);
        QFETCH(QStringList, ids);
        QVERIFY(TopChannels::store({}));
        QVERIFY(LocalDatabase::instance().run(
            QStringLiteral("UPDATE cstopchannel SET TopChannelList = ?"), {stored}, "test"));
        QCOMPARE(TopChannels::load().value(), ids);
    }

    void nobodyLoggedIn()
    {
        m_host->context.user.clear();
        QVERIFY(!TopChannels::load());
        QVERIFY(!TopChannels::store({QStringLiteral("a")}));
    }

private:
    static QVariant row()
    {
        QSqlQuery query = LocalDatabase::instance().prepared(
            QStringLiteral("SELECT TopChannelList FROM cstopchannel"));
        if (!query.exec() || !query.next())
            return QVariant();
        const QVariant list = query.value(0);
        query.finish();
        return list;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
};

FRIENDUI_TEST(TstTopChannels)
#include "tst_topchannels.moc"
