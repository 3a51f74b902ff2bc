// Many messages, messages that mean no good, and a pointer that rests on a row.
#include "tests/latest/latestfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QMouseEvent>
#include <QSignalSpy>

using Hub = FriendUISignalSender;

namespace {

constexpr int Conversations = 500;
constexpr int Messages = 10000;

// How often each conversation's row was inserted, moved or changed. A move and the
// change that goes with it are one.
class ChangeCounter : public QObject
{
public:
    explicit ChangeCounter(LatestModel *model)
    {
        connect(model, &QAbstractItemModel::rowsInserted, this,
                [=](const QModelIndex &, int first, int last) { count(model, first, last); });
        connect(model, &QAbstractItemModel::dataChanged, this,
                [=](const QModelIndex &first, const QModelIndex &last) {
                    count(model, first.row(), last.row());
                });
        connect(model, &QAbstractItemModel::rowsMoved, this, [this] { ++moves; });
        connect(model, &QAbstractItemModel::modelReset, this, [this] { ++resets; });
    }
    int greatest() const
    {
        int most = 0;
        for (const int one : changes)
            most = qMax(most, one);
        return most;
    }

    QHash<QString, int> changes;
    int moves = 0;
    int resets = 0;

private:
    void count(const LatestModel *model, int first, int last)
    {
        for (int row = first; row <= last; ++row)
            ++changes[model->at(row).row.jid];
    }
};

} // namespace

class TstLatestBurst : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_page.reset(new LatestFixture); }
    void cleanup() { m_page.reset(); }

    void oneChangePerConversationAndFrame()
    {
        ChangeCounter counter(m_page->model());
        for (int i = 0; i < Messages; ++i)
            send(i);
        // The frame of the first message is not over: nothing else was shown yet.
        QVERIFY(counter.greatest() <= 1);
        QTRY_COMPARE(total(), Messages);
        QCOMPARE(counter.changes.size(), Conversations);
        // The first message was shown at once; all that followed, in the next frame.
        int twice = 0;
        for (const int one : qAsConst(counter.changes))
            twice += one > 1 ? 1 : 0;
        QVERIFY(counter.greatest() <= 2);
        QVERIFY(twice <= 1);
        QCOMPARE(counter.moves, 0);
        QCOMPARE(counter.resets, 0);
        QCOMPARE(m_page->model()->at(0).row.jid, user(Conversations - 1));

        // The next time they have rows already: a move and a change each.
        counter.changes.clear();
        for (int i = 0; i < Messages; ++i)
            send(i);
        QTRY_COMPARE(total(), 2 * Messages);
        QVERIFY(counter.greatest() <= 2);
        QVERIFY(counter.moves <= Conversations + 1);
        QCOMPARE(counter.resets, 0);
    }

    // The page is read anew while messages come, some of them stored and some not.
    void readAnewMeanwhile()
    {
        for (int i = 0; i < Messages / 10; ++i) {
            if (i % 100 == 50)
                QCoreApplication::sendPostedEvents();
            if (i % 250 == 70)
                FakeHost::send(Inbound::ConnectionChanged, true);
            send(i);
        }
        QTRY_COMPARE(total(), Messages / 10);
        QCOMPARE(m_page->model()->rowCount(), Conversations);
        QCoreApplication::sendPostedEvents();
        int stored = 0;
        const QVector<DBFriendData> rows = LatestContactsTable::page(0, 0);
        for (const DBFriendData &row : rows)
            stored += row.unread;
        QCOMPARE(stored, Messages / 10);
    }

    void nothingMovesUnderThePointer()
    {
        m_page->receive(jid("a"), QStringLiteral("x"), QStringLiteral("5 10:00"));
        m_page->receive(jid("b"), QStringLiteral("x"), QStringLiteral("5 09:00"));
        QTRY_COMPARE(rows(), "a b");
        const QPoint place = rowCentre(1);
        QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_page->view()->viewport(), &move);
        m_page->receive(jid("b"), QStringLiteral("newer"), QStringLiteral("5 11:00"));
        m_page->receive(jid("c"), QStringLiteral("x"), QStringLiteral("5 11:30"));
        QTRY_COMPARE(m_page->of(jid("b"), LatestRole::Content).toString(), QStringLiteral("newer"));
        QCOMPARE(rows(), "a b");
        QTest::mouseDClick(m_page->view()->viewport(), Qt::LeftButton, {}, place);
        const auto [opened, kind] =
            m_page->host.arguments<QString, MessageData::Kind>(Outbound::OpenChat);
        QCOMPARE(opened, jid("b"));
        QCOMPARE(kind, MessageData::Person);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(m_page->view()->viewport(), &leave);
        QTRY_COMPARE(rows(), "c b a");
    }

    // An empty list comes to life also under the pointer.
    void firstRowUnderThePointer()
    {
        m_page->model()->setOrderFrozen(true);
        m_page->receive(jid("a"), QStringLiteral("x"), QStringLiteral("5 10:00"));
        QTRY_COMPARE(rows(), "a");
        QVERIFY(m_page->view()->isVisible());
    }

    void hostileBodies_data()
    {
        const Rows<QString, QString> row{"body", "content"};
        row("markup", QStringLiteral("<img src='/etc/passwd'><b>x</b>"),
            QStringLiteral("<img src='/etc/passwd'><b>x</b>"));
        row("lines", QStringLiteral("one\ntwo\r\n\tthree"), QStringLiteral("one two three"));
        row("direction", QStringLiteral(u"a\u202Egnp.exe"), QStringLiteral("agnp.exe"));
        row("empty", QString(), QString());
        row("NUL", QString(QChar(0)) + QStringLiteral("after"), QStringLiteral("after"));
        row("broken object", QStringLiteral("{\"type\":\"file\",\"name\":"),
            QStringLiteral("{\"type\":\"file\",\"name\":"));
        row("percent", QStringLiteral("100% of %1 %2"), QStringLiteral("100% of %1 %2"));
        row("quote", QStringLiteral("'; DROP TABLE latestfriendnew; --"),
            QStringLiteral("'; DROP TABLE latestfriendnew; --"));
    }

    void hostileBodies()
    {
        QFETCH(QString, body);
        QFETCH(QString, content);
        LogCapture log(m_page->host.context);
        m_page->receive(jid("a"), body, QStringLiteral("5 10:00"));
        QTRY_COMPARE(rows(), "a");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Content).toString(), content);
        m_page->make();
        QTRY_COMPARE(rows(), "a");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Content).toString(), content);
        QVERIFY(log.lines().size() > 5);
        QVERIFY(content.isEmpty() || log.linesWith(content.toUtf8().constData()).isEmpty());
    }

    void largeBodies_data()
    {
        const Rows<QString, QString> row{"body", "begins"};
        const QString megabyte(1024 * 1024, QChar(0x4e00));
        row("text", megabyte, megabyte.left(10));
        row("what looks like an object", QStringLiteral("{\"type\":\"") + megabyte,
            QStringLiteral("{\"type\":\""));
        row("surrogates", QString(999, QLatin1Char('a')) + QString::fromUtf8("😀").repeated(100000),
            QString(10, QLatin1Char('a')));
        row("file",
            QStringLiteral("{\"type\":\"file\",\"name\":\"plan.pdf\",\"text\":\"%1\"}")
                .arg(QString(5000, QLatin1Char('x'))),
            QStringLiteral("messageFile plan.pdf"));
        row("quotes",
            QStringLiteral("{\"type\":\"text\",\"text\":\"{%1\"}")
                .arg(QStringLiteral("\\\"").repeated(20000)),
            QStringLiteral("{\"\"\""));
    }

    // They neither stay in memory nor lose what they say.
    void largeBodies()
    {
        QFETCH(QString, body);
        QFETCH(QString, begins);
        m_page->receive(jid("a"), body, QStringLiteral("5 10:00"));
        QTRY_COMPARE(rows(), "a");
        const QString content = m_page->of(jid("a"), LatestRole::Content).toString();
        QVERIFY2(content.startsWith(begins), qPrintable(content));
        QVERIFY(content.size() <= 200);
        QVERIFY(m_page->model()->at(0).row.lastContent.size() <= 1000);
        m_page->make();
        QTRY_COMPARE(rows(), "a");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Content).toString(), content);
    }

private:
    static QString jid(const char *user) { return LatestFixture::jid(QLatin1String(user)); }
    static QString user(int number)
    {
        return LatestFixture::jid(QStringLiteral("u%1").arg(number));
    }
    QString rows() const { return m_page->rows().join(QLatin1Char(' ')); }
    QPoint rowCentre(int row) const
    {
        return m_page->view()->visualRect(m_page->model()->index(row)).center();
    }
    // The number'th message of a burst; the conversations take turns.
    void send(int number) const
    {
        MessageData message = m_page->message(user(number % Conversations), QString::number(number),
                                              QStringLiteral("5 10:00"));
        message.time = QDateTime(QDate(2026, 3, 5), QTime(0, 0))
                           .addSecs(number)
                           .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        emit Hub::instance()->signal_latestFriend(true, message);
    }
    int total() const // unread messages that rows tell of
    {
        int count = 0;
        for (int row = 0; row < m_page->model()->rowCount(); ++row)
            count += m_page->model()->at(row).row.unread;
        return count;
    }

    std::unique_ptr<LatestFixture> m_page;
};

FRIENDUI_TEST(TstLatestBurst)
#include "tst_latestburst.moc"
