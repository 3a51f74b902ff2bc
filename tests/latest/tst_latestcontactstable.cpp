// The table of latest contacts: what is listed and in which order, and what is
// stored.
#include "common/sessionsettings.h"
#include "contacts/latest/latestcontactstable.h"
#include "tests/support/localuser.h"
#include "tests/support/testrunner.h"

#include <QSqlError>

namespace {
namespace Table = LatestContactsTable;

const QString Time = QStringLiteral("2026-03-04 05:06:07");

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
        const Rows<QString> row{"end"};
        row("all", "");
        row("page", " LIMIT 100 OFFSET 50");
    }
    void pagesTakeTheRowsInTheOrderOfTheIndex()
    {
        QFETCH(QString, end);
        // The statement as it was run last.
        Table::page(end.isEmpty() ? 0 : 100, end.isEmpty() ? 0 : 50);
        QSqlQuery query(LocalDatabase::instance().database());
        QVERIFY(query.exec(QStringLiteral("EXPLAIN QUERY PLAN ") + Table::listStatement() + end));
        QStringList plan;
        while (query.next())
            plan.append(query.value(3).toString());
        const QString text = plan.join(QLatin1Char('\n'));
        QVERIFY2(text.contains(QLatin1String("latestfriendnew USING INDEX latestfriendnewbytime")),
                 qPrintable(text));
        QVERIFY2(!text.contains(QLatin1String("TEMP B-TREE")), qPrintable(text));
    }

private:
    QScopedPointer<LocalUser> m_user;
};

FRIENDUI_TEST(TstLatestContactsTable)
#include "tst_latestcontactstable.moc"
