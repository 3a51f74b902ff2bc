// Who is found by what, in which order, and what is left when entries go.
#include "common/pinyinreadings.h"
#include "contacts/search/searchindex.h"
#include "tests/support/testrunner.h"

#include <QRandomGenerator>
#include <QSet>

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

QString randomText(QRandomGenerator *random, const QString &letters, int most)
{
    QString text;
    for (int size = random->bounded(1, most + 1); size > 0; --size)
        text += letters.at(random->bounded(letters.size()));
    return text;
}

bool isSeparator(QChar c)
{
    return !c.isLetterOrNumber();
}

// Whether the rest of what was typed can be read from the text on.
bool naivelyReads(const QString &text, int i, const QString &typed, int j)
{
    if (j == typed.size())
        return true;
    if (i == text.size())
        return false;
    const QChar c = text.at(i);
    const bool isHan = c.script() == QChar::Script_Han;
    const bool isStart = isHan || i == 0 || isSeparator(c) || isSeparator(text.at(i - 1)) ||
                         text.at(i - 1).script() == QChar::Script_Han ||
                         text.at(i - 1).isNumber() != c.isNumber();
    if (j > 0 && isStart && typed.at(j) == QLatin1Char('\'') && naivelyReads(text, i, typed, j + 1))
        return true;
    if (c == typed.at(j) && naivelyReads(text, i + 1, typed, j + 1))
        return true;
    if (isSeparator(c))
        return j > 0 && naivelyReads(text, i + 1, typed, j);
    for (const QStringView reading : PinyinReadings(text, i)) {
        QString syllable = reading.toString().toLower();
        // As it stands in LV, and as it is typed.
        for (int form = 0; form < 2; ++form, syllable.replace(QLatin1Char('v'), QLatin1Char('u'))) {
            for (int k = 1; k <= syllable.size() && typed.midRef(j, k) == syllable.leftRef(k);
                 ++k) {
                const bool mayStop = k == 1 || k == syllable.size() || j + k == typed.size() ||
                                     (k == 2 && syllable.at(1) == QLatin1Char('h'));
                if (mayStop && naivelyReads(text, i + 1, typed, j + k))
                    return true;
            }
        }
    }
    return false;
}

bool naivelyFinds(QString text, QString typed)
{
    text.replace(QChar(0xE9), QLatin1Char('e'));
    while (typed.size() > 1 && typed.endsWith(QLatin1Char('\'')))
        typed.chop(1);
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isStart = i == 0 || c.script() == QChar::Script_Han ||
                             (!isSeparator(c) && (isSeparator(text.at(i - 1)) ||
                                                  text.at(i - 1).script() == QChar::Script_Han ||
                                                  text.at(i - 1).isNumber() != c.isNumber()));
        if (isStart && naivelyReads(text, i, typed, 0))
            return true;
    }
    return false;
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
        row("80008621", -1, 0);                                  // across two numbers
        row("+86 138-00", SearchHit::Prefix, SearchHit::Phones); // on the way to all of it
        row("0086 1380", SearchHit::Prefix, SearchHit::Phones);
        row("86 138-00", -1, 0);
        row("021 138 0013 8000", SearchHit::Exact, SearchHit::Phones);
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
        // Longer than any length that is told apart.
        index.putAll({person("longer", "欧阳长江中山"), person("whole", "欧阳长江中")});
        index.setRecent({QStringLiteral("longer")});
        QCOMPARE(idsOf(index, "ouyangchangjiangzhong", 1), QStringLiteral("whole"));
    }

    // Against a matcher that tries everything, and against itself without a limit.
    void findsWhatANaiveMatcherFinds()
    {
        QRandomGenerator random(7);
        SearchIndex index;
        QVector<SearchEntry> entries;
        for (int i = 0; i < 300; ++i) {
            SearchEntry entry;
            entry.id = QString::number(i);
            entry.name =
                randomText(&random, QString::fromUtf8("张三李四王西安线中国二绿 -ab1·é"), 5);
            entry.account = randomText(&random, QStringLiteral("zhangsli.1-2"), 6);
            entry.hasLeft = random.bounded(4) == 0;
            entry.isContact = random.bounded(3) == 0;
            entries.append(entry);
        }
        index.putAll(entries);
        index.setRecent({QStringLiteral("7"), QStringLiteral("90"), QStringLiteral("250")});
        int found = 0;
        for (int round = 0; round < 600; ++round) {
            const QString typed = randomText(&random, QString::fromUtf8("zhangsliwexov'1三"), 5);
            QSet<QString> expected, actual;
            for (const SearchEntry &entry : entries) {
                if (naivelyFinds(entry.name, typed) || naivelyFinds(entry.account, typed))
                    expected.insert(entry.id);
            }
            const QVector<SearchHit> all = index.search(typed, entries.size());
            for (const SearchHit &hit : all)
                actual.insert(index.at(hit.entry).id);
            QVERIFY2(actual == expected, qPrintable(typed));
            found += all.size();
            const QVector<SearchHit> best = index.search(typed, 5);
            QCOMPARE(best.size(), qMin(5, all.size()));
            for (int i = 0; i < best.size(); ++i)
                QCOMPARE(best.at(i).entry, all.at(i).entry);
        }
        QVERIFY(found > 600);
    }

    void hostileTexts()
    {
        SearchIndex index;
        SearchEntry entry = person("long", "");
        entry.name = QString(10000, QChar(0x5F20));
        entry.phones = QString(10000, QLatin1Char('7'));
        index.put(entry);
        index.put(person("empty", ""));
        entry = person("lone", "");
        entry.name = QString(QChar(0xD83D)) + QLatin1Char('x') + QChar(0xDE00);
        index.put(entry);
        QCOMPARE(idsOf(index, "zzz"), QStringLiteral("long"));
        QCOMPARE(idsOf(index, "77777"), QStringLiteral("long"));
        QCOMPARE(index.search(QString(200, QLatin1Char('z')), 9).size(), 1);
        QCOMPARE(index.search(QString(QChar(0xD83D)), 9).size(), 1);
        QCOMPARE(index.search(QStringLiteral("z ").repeated(100), 9).size(), 1);
        QCOMPARE(index.search(QStringLiteral("z"), 0).size(), 0);
    }

    void churnLeavesNothingBehind()
    {
        constexpr int Count = 200;
        QVector<SearchEntry> list;
        for (int i = 0; i < Count; ++i)
            list.append(person(qPrintable(QString::number(i)), "张三"));
        SearchIndex index;
        for (int round = 0; round < 20; ++round) {
            index.putAll(list);
            QVERIFY(!list.isDetached());
            index.putAll(list); // as when a department is loaded again
            QCOMPARE(index.size(), Count);
            for (int i = round % 2; i < Count; i += 2)
                QVERIFY(index.remove(SearchEntry::Person, QString::number(i)));
            index.put(person("0", "李四"));
            index.remove(SearchEntry::Person, QStringLiteral("1"));
            const QVector<SearchHit> hits = index.search(QStringLiteral("zs"), Count);
            QCOMPARE(hits.size(), Count / 2 - 1);
            for (const SearchHit &hit : hits)
                QVERIFY(hit.entry < Count);
        }
        // The list that came goes when hardly anything of it is in use.
        QVERIFY(list.isDetached());
    }

    void highlights()
    {
        const auto marked = [](const char *typed, const char *text, SearchHit::Field field) {
            QString result = QString::fromUtf8(text);
            const auto matches = searchHighlights(QString::fromUtf8(typed), result, field);
            for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
                result.insert(match->start + match->length, QLatin1Char(']'));
                result.insert(match->start, QLatin1Char('['));
            }
            return result;
        };
        QCOMPARE(marked("san zhang", "张三", SearchHit::Name), QString::fromUtf8("[张][三]"));
        QCOMPARE(marked("zhang san", "张三丰", SearchHit::Name), QString::fromUtf8("[张三]丰"));
        QCOMPARE(marked("z zhang", "张三", SearchHit::Name), QString::fromUtf8("[张]三"));
        QCOMPARE(marked("38001", "138-0013;21", SearchHit::Phones),
                 QStringLiteral("1[38-001]3;21"));
        QCOMPARE(marked("+86 138-00", "86;138-0013", SearchHit::Phones),
                 QStringLiteral("86;[138-00]13"));
        QCOMPARE(marked("x", "张三", SearchHit::Name), QString::fromUtf8("张三"));
    }

    void entriesComeAndGo()
    {
        SearchIndex index;
        index.put(person("a", "张三"));
        SearchEntry room = person("a", "张家界");
        room.kind = SearchEntry::Room;
        index.put(room);
        QCOMPARE(index.size(), 2);
        SearchEntry contact = person("a", "李四");
        contact.isContact = true;
        index.put(contact);
        QCOMPARE(index.contacts(), QStringList{contact.id});
        QCOMPARE(index.size(), 2);
        QCOMPARE(index.search(QStringLiteral("zs"), 9).size(), 0);
        QCOMPARE(idsOf(index, "ls"), QStringLiteral("a"));
        QCOMPARE(index.find(SearchEntry::Room, QStringLiteral("a"))->name, room.name);
        QVERIFY(index.remove(SearchEntry::Person, QStringLiteral("a")));
        QVERIFY(!index.remove(SearchEntry::Person, QStringLiteral("a")));
        QCOMPARE(index.contacts(), QStringList());
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
