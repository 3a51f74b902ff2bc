// The table of latest contacts: what is listed and in which order, and what is
// stored.
#include "common/sessionsettings.h"
#include "contacts/latest/latestcontactstable.h"
#include "tests/support/localuser.h"
#include "tests/support/testrunner.h"

#include <QSqlError>

namespace {
namespace Table = LatestContactsTable;

DBFriendData record(const QString &jid, const QString &name = QStringLiteral("n"))
{
    DBFriendData data;
    data.jid = jid;
    data.displayName = name;
    data.time = QStringLiteral("2026-03-04 05:06:07");
    return data;
}

QStringList jidsOf(const QVector<DBFriendData> &rows)
{
    QStringList jids;
    for (const DBFriendData &row : rows)
        jids.append(row.jid);
    return jids;
}

void exec(const QString &statement)
{
    QSqlQuery query(LocalDatabase::instance().database());
    QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
}
} // namespace

class TstLatestContactsTable : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_user.reset(new LocalUser); }
    void cleanup() { m_user.reset(); }

    // One row after the other, written past store().
    void queryAndPredicateAgree_data()
    {
        const Rows<QString, bool, bool> row{"values", "listed", "listedWithName"};
        // jid, displayname, onjob, issystemnotice
        row("plain", "'a@d','n','1',0", true, true);
        row("onjob empty", "'a@d','n','',0", true, true);
        row("onjob a number", "'a@d','n',1,0", true, true);
        row("onjob 0", "'a@d','n','0',0", false, false);
        row("onjob 1.0", "'a@d','n','1.0',0", false, false);
        row("onjob blank", "'a@d','n',' ',0", false, false);
        row("onjob 2", "'a@d','n','2',0", false, false);
        row("onjob NULL", "'a@d','n',NULL,0", false, false);
        row("notice", "'a@d','n','1',1", false, false);
        row("notice as text", "'a@d','n','1','0'", true, true);
        row("notice with blanks", "'a@d','n','1',' 0 '", true, true);
        row("notice a fraction", "'a@d','n','1',0.4", false, false);
        row("notice 0.0", "'a@d','n','1','0.0'", true, true);
        row("notice NULL", "'a@d','n','1',NULL", false, false);
        row("notice empty", "'a@d','n','1',''", false, false);
        row("notice a word", "'a@d','n','1','x'", false, false);
        row("notice a word after 0", "'a@d','n','1','0x'", false, false);
        row("nameless", "'a@d','','1',0", true, false);
        row("name NULL", "'a@d',NULL,'1',0", true, false);
        row("name a blank", "'a@d',' ','1',0", true, true);
        row("new friends", "'newFriendNotice','n','1',0", false, false);
        row("friend inside", "'befriended@d','n','1',0", false, false);
        row("upper case", "'FRIENDup@d','n','1',0", false, false);
        row("friend, broken", "'fri-end@d','n','1',0", true, true);
        row("system at the end", "'d@SySteM','n','1',0", false, false);
        row("conference", "'Cnotify','n','1',0", false, false);
        row("customer service", "'xkfcnly','n','1',0", false, false);
        row("virtual room", "'VROOM1@d','n','1',0", false, false);
        row("part of a word", "'room@d','n','1',0", true, true);
        // Only A to Z are compared without regard to case.
        row("Kelvin sign",
            QString::fromUtf8("'\xE2\x84\xAA"
                              "FCNL@d','n','1',0"),
            true, true);
        row("long s", QString::fromUtf8("'\xC5\xBFystem@d','n','1',0"), true, true);
        row("full width", QString::fromUtf8("'ｆｒｉｅｎｄ@d','n','1',0"), true, true);
        row("wildcards", "'%_@d','n','1',0", true, true);
        row("quote", "'o''brien@d','n','1',0", true, true);
        row("muted", "'muted@d','n','1',0", false, false);
        row("muted in other case", "'MUTED@d','n','1',0", true, true);
        row("no longer muted", "'unmuted@d','n','1',0", true, true);
    }
    void queryAndPredicateAgree()
    {
        QFETCH(QString, values);
        QFETCH(bool, listed);
        QFETCH(bool, listedWithName);
        QVERIFY(SessionSettings::replaceMuted(
            {QStringLiteral("muted@d"), QStringLiteral("unmuted@d")}));
        QVERIFY(SessionSettings::setMuted(QStringLiteral("unmuted@d"), false));
        exec(QStringLiteral("INSERT INTO latestfriendnew(jid,displayname,onjob,issystemnotice,"
                            "time,isTop) VALUES(%1,'x',1)")
                 .arg(values));
        const QStringList all = jidsOf(Table::page(0, 0, Table::AlsoNameless));
        QCOMPARE(all.size(), listed ? 1 : 0);
        QCOMPARE(Table::page(0, 0).size(), listedWithName ? 1 : 0);
        QCOMPARE(Table::pinned().size(), listedWithName ? 1 : 0);

        QSqlQuery jid(LocalDatabase::instance().database());
        QVERIFY(jid.exec(QStringLiteral("SELECT jid FROM latestfriendnew")) && jid.next());
        DBFriendData stored;
        QVERIFY(Table::find(jid.value(0).toString(), &stored));
        const bool muted = SessionSettings::isMuted(stored.jid);
        QCOMPARE(Table::isListable(stored, muted, Table::AlsoNameless), listed);
        QCOMPARE(Table::isListable(stored, muted), listedWithName);
    }

    void pagesTakeTheRowsInTheOrderOfTheIndex_data()
    {
        const Rows<QString, QString> row{"statement", "plan"};
        const QString index = QStringLiteral("latestfriendnew USING INDEX latestfriendnewinorder");
        row("all", Table::listStatement(), index);
        row("page", Table::listStatement() + QStringLiteral(" LIMIT 100 OFFSET 50"), index);
        row("behind", Table::statementBehind().replace(QLatin1Char('?'), QLatin1Char('1')),
            QStringLiteral("SEARCH %1 (time<?)").arg(index));
    }
    void pagesTakeTheRowsInTheOrderOfTheIndex()
    {
        QFETCH(QString, statement);
        QFETCH(QString, plan);
        QSqlQuery query(LocalDatabase::instance().database());
        QVERIFY(query.exec(QStringLiteral("EXPLAIN QUERY PLAN ") + statement));
        QStringList steps;
        while (query.next())
            steps.append(query.value(3).toString());
        const QString text = steps.join(QLatin1Char('\n'));
        QVERIFY2(text.contains(plan), qPrintable(text));
        QVERIFY2(!text.contains(QLatin1String("TEMP B-TREE")), qPrintable(text));
    }

    void whatIsStoredComesBack()
    {
        DBFriendData full = record(QStringLiteral("50%_o'brien@d"), QStringLiteral("o'\"b;--"));
        full.accountNo = QStringLiteral("acc");
        full.icon = QStringLiteral("/i.png");
        full.signature = QStringLiteral("s");
        full.appKey = QStringLiteral("k");
        full.lastContent = QString::fromUtf8("内容 😀");
        full.isTop = 1;
        full.isLocalSession = 1;
        full.unread = 3;
        // A wildcard in a jid must not reach its neighbour.
        QVERIFY(Table::store({full, record(QStringLiteral("50x_o'brien@d"))}));
        DBFriendData found;
        QVERIFY(Table::find(full.jid, &found));
        QCOMPARE(DBFriendData::fieldsOf(found), DBFriendData::fieldsOf(full));
        QCOMPARE(jidsOf(Table::pinned()), QStringList(full.jid));

        // Again, with other values; an unknown name leaves the known one.
        full.displayName.clear();
        full.lastContent = QStringLiteral("later");
        full.icon = QStringLiteral("/j.png");
        full.onJob = 0;
        full.isTop = 0;
        full.unread = 0;
        QVERIFY(Table::store({full}));
        QVERIFY(Table::find(full.jid, &found));
        full.displayName = QStringLiteral("o'\"b;--");
        QCOMPARE(DBFriendData::fieldsOf(found), DBFriendData::fieldsOf(full));

        QVERIFY(Table::rename(full.jid, QStringLiteral("x'y")));
        QVERIFY(Table::setIcon(full.jid, QString()));
        QVERIFY(SessionSettings::setPinned(full.jid, true));
        QVERIFY(Table::setUnread(full.jid, 7));
        QVERIFY(Table::find(full.jid, &found));
        QCOMPARE(found.displayName, QStringLiteral("x'y"));
        QCOMPARE(found.icon, QString());
        QCOMPARE(int(found.isTop), 1);
        QCOMPARE(found.unread, 7);

        QVERIFY(Table::remove(full.jid));
        QVERIFY(!Table::find(full.jid, &found));
        QCOMPARE(jidsOf(Table::page(0, 0)), QStringList(QStringLiteral("50x_o'brien@d")));
        QVERIFY(Table::clear());
        QVERIFY(Table::page(0, 0, Table::AlsoNameless).isEmpty());
    }

    // A null text would be NULL, which no query lists.
    void nullTextsAreStoredAsEmptyOnes()
    {
        DBFriendData bare;
        for (QString *text : {&bare.displayName, &bare.accountNo, &bare.icon, &bare.signature,
                              &bare.time, &bare.lastContent, &bare.appKey})
            *text = QString();
        bare.jid = QStringLiteral("a@d");
        QVERIFY(Table::store({bare}));
        QCOMPARE(Table::page(0, 0, Table::AlsoNameless).size(), 1);
    }

    // A column of an older row that is NULL hides the row no longer.
    void rowsWithNullsAreRepaired()
    {
        exec(QStringLiteral("INSERT INTO latestfriendnew(jid) VALUES('a@d')"));
        exec(QStringLiteral("INSERT INTO latestfriendnew(jid,displayname,onjob,issystemnotice) "
                            "VALUES('timeless@d','n','',0)"));
        LocalDatabase::instance().close();
        QCOMPARE(jidsOf(Table::pageBehind({QStringLiteral("2026-01-01 00:00:00"), QString()}, 9)),
                 QStringList("timeless@d"));
        QVERIFY(Table::store({record(QStringLiteral("a@d"))}));
        QCOMPARE(jidsOf(Table::page(0, 0)), (QStringList{"a@d", "timeless@d"}));
    }

    void contentsAreCutBetweenCharacters_data()
    {
        const QString face = QString::fromUtf8("😀");
        const Rows<QString, int> row{"content", "stored"};
        row("fits", QString(1000, QLatin1Char('a')), 1000);
        row("too long", QString(1024 * 1024, QLatin1Char('a')), 1000);
        row("pair across the end", QString(999, QLatin1Char('a')) + face, 999);
        row("pair up to the end", QString(998, QLatin1Char('a')) + face + face, 1000);
    }
    void contentsAreCutBetweenCharacters()
    {
        QFETCH(QString, content);
        QFETCH(int, stored);
        DBFriendData data = record(QStringLiteral("a@d"));
        data.lastContent = content;
        QVERIFY(Table::store({data}));
        DBFriendData found;
        QVERIFY(Table::find(data.jid, &found));
        QCOMPARE(found.lastContent, content.left(stored));
    }

    void pagesFollowTheTime()
    {
        QVector<DBFriendData> records;
        for (int i = 0; i < 7; ++i) {
            DBFriendData data = record(QString::number(i));
            data.time = QStringLiteral("2026-01-0%1 00:00:00").arg((i * 3) % 7 + 1);
            data.lastContent = data.time;
            records.append(data);
        }
        QVERIFY(Table::store(records));
        const QStringList newestFirst{"2", "4", "6", "1", "3", "5", "0"};
        QCOMPARE(jidsOf(Table::page(0, 0)), newestFirst);
        QCOMPARE(jidsOf(Table::page(3, 3)), newestFirst.mid(3, 3));
        QCOMPARE(jidsOf(Table::page(3, 6)), newestFirst.mid(6));
        QString time, content;
        QVERIFY(Table::newest(&time, &content));
        QCOMPARE(time, QStringLiteral("2026-01-07 00:00:00"));
        QCOMPARE(content, time);

        // Rows of one second come by the jid, and none of them twice or not at all.
        for (DBFriendData &data : records)
            data.time = QStringLiteral("2026-01-0%1 00:00:00").arg(data.jid < "5" ? 1 : 2);
        QVERIFY(Table::store(records));
        const QStringList byJid{"5", "6", "0", "1", "2", "3", "4"};
        QCOMPARE(jidsOf(Table::page(0, 0)), byJid);
        QVector<DBFriendData> page = Table::page(2, 0);
        QStringList read;
        for (; !page.isEmpty(); page = Table::pageBehind({page.last().time, page.last().jid}, 2))
            read += jidsOf(page);
        QCOMPARE(read, byJid);
    }

private:
    QScopedPointer<LocalUser> m_user;
};

FRIENDUI_TEST(TstLatestContactsTable)
#include "tst_latestcontactstable.moc"
