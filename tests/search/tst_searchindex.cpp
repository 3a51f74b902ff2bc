// Who is found by what, in which order, and what is left when entries go.
#include "contacts/search/searchindex.h"
#include "tests/support/testrunner.h"

namespace {
SearchEntry person(const char *id, const char *name)
{
    SearchEntry entry;
    entry.id = QString::fromUtf8(id);
    entry.name = QString::fromUtf8(name);
    return entry;
}

QString idsOf(const SearchIndex &index, const char *typed, int limit = 50)
{
    QStringList ids;
    for (const SearchHit &hit : index.search(QString::fromUtf8(typed), limit))
        ids << index.at(hit.entry).id;
    return ids.join(QLatin1Char(' '));
}
} // namespace

class TstSearchIndex : public QObject
{
    Q_OBJECT

private slots:
    void finds_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("rank"); // -1: not at all
        QTest::addColumn<int>("field");
        const auto row = [](const char *typed, int rank, int field) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << rank << field;
        };
        row("zhangsanfeng", SearchHit::Exact, SearchHit::Name);
        row("ZHANG", SearchHit::Prefix, SearchHit::Name);
        row("zsf", SearchHit::Initials, SearchHit::Name);
        row("zhs", SearchHit::Initials, SearchHit::Name);
        row("sanf", SearchHit::Inside, SearchHit::Name);
        row("zhang sanfeng", SearchHit::Exact, SearchHit::Name);
        row("san zhang", SearchHit::Inside, SearchHit::Name);
        row("feng 1380 z", SearchHit::Inside, SearchHit::Phones);
        row("laozhang", SearchHit::Exact, SearchHit::Remark);
        row("lao zs", SearchHit::Initials, SearchHit::Remark);
        row("cloud.walker", SearchHit::Exact, SearchHit::Account);
        row("e00", SearchHit::Prefix, SearchHit::EmployeeCode);
        row("00123", SearchHit::Inside, SearchHit::EmployeeCode);
        row("walker@corp", SearchHit::Inside, SearchHit::Mail);
        row("corp", SearchHit::Inside, SearchHit::Mail);
        row("138 0013 8000", SearchHit::Exact, SearchHit::Phones);
        row("1380", SearchHit::Prefix, SearchHit::Phones);
        row("8000", SearchHit::Inside, SearchHit::Phones);
        row("+86 (138) 0013-8000", SearchHit::Exact, SearchHit::Phones);
        row("８０００", SearchHit::Inside, SearchHit::Phones);
        row("800", -1, 0);
        row("80008621", -1, 0); // across two numbers
        row("hang", -1, 0);
        row("an", -1, 0);
        row("zhang li", -1, 0);
        row("%", -1, 0);
        row("'", -1, 0);
        row("z%", -1, 0);
        row("_hang", -1, 0);
        row("z' OR '1'='1", -1, 0);
        row(" ", -1, 0);
        row("\u200b", -1, 0);
    }

    void finds()
    {
        QFETCH(QString, typed);
        QFETCH(int, rank);
        QFETCH(int, field);
        SearchEntry entry = person("u1@corp.example", "张三丰");
        entry.remark = QString::fromUtf8("老张");
        entry.account = QStringLiteral("cloud.walker");
        entry.employeeCode = QStringLiteral("E00123");
        entry.mail = QStringLiteral("cloud.walker@corp.example");
        entry.phones = QStringLiteral("138-0013-8000;+86 21 5555 6666");
        SearchIndex index;
        index.put(entry);
        const QVector<SearchHit> hits = index.search(typed, 10);
        QCOMPARE(hits.size(), rank < 0 ? 0 : 1);
        if (hits.isEmpty())
            return;
        QCOMPARE(int(hits.first().rank), rank);
        QCOMPARE(int(hits.first().field), field);
    }

    void ranks()
    {
        SearchIndex index;
        SearchEntry contact = person("contact", "张三丰");
        contact.isContact = true;
        SearchEntry left = person("left", "张三");
        left.hasLeft = true;
        left.isContact = true;
        index.putAll({person("inside", "李张三"), person("later", "张三喜"),
                      person("initials", "赵尚"), left, person("recent2", "张三友"),
                      person("exact", "张三"), contact, person("earlier", "张三白"),
                      person("recent1", "张三泽")});
        index.setRecent({QStringLiteral("left"), QStringLiteral("recent1"),
                         QStringLiteral("recent2"), QStringLiteral("recent1")});
        const QString best = QStringLiteral("exact recent1 recent2 contact earlier later");
        QCOMPARE(idsOf(index, "zhangsan"), best + QStringLiteral(" inside left"));
        QCOMPARE(idsOf(index, "zhangsan", 6), best);
        QCOMPARE(idsOf(index, "zhs", 1), QStringLiteral("recent1"));
        index.setRecent({QStringLiteral("later")});
        QCOMPARE(idsOf(index, "zhangsan", 3), QStringLiteral("exact later contact"));
    }

    void entriesComeAndGo()
    {
        SearchIndex index;
        index.put(person("a", "张三"));
        SearchEntry room = person("a", "张家界");
        room.kind = SearchEntry::Room;
        index.put(room);
        QCOMPARE(index.size(), 2);
        index.put(person("a", "李四"));
        QCOMPARE(index.size(), 2);
        QCOMPARE(index.search(QStringLiteral("zs"), 9).size(), 0);
        QCOMPARE(idsOf(index, "ls"), QStringLiteral("a"));
        QCOMPARE(index.find(SearchEntry::Room, QStringLiteral("a"))->name, room.name);
        QVERIFY(index.remove(SearchEntry::Person, QStringLiteral("a")));
        QVERIFY(!index.remove(SearchEntry::Person, QStringLiteral("a")));
        QCOMPARE(index.search(QStringLiteral("ls"), 9).size(), 0);
        QVERIFY(!index.find(SearchEntry::Person, QStringLiteral("a")));
        QCOMPARE(index.size(), 1);
        index.clear();
        QCOMPARE(index.search(QStringLiteral("z"), 9).size(), 0);
        QCOMPARE(index.size(), 0);
    }
};

FRIENDUI_TEST(TstSearchIndex)
#include "tst_searchindex.moc"
