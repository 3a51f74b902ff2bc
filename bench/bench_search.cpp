// Searching among 100,000 people of the sample company as somebody types, against
// LIKE over the same fields; and what the index costs to build and to keep.
#include "bench/support/ratio.h"
#include "common/cchcharactertopp.h"
#include "contacts/search/searchindex.h"
#include "sample/samplecompany.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <malloc.h>
#include <memory>
#include <vector>

namespace {
constexpr int People = 100000;
constexpr int Shown = 50;
const QString typed = QStringLiteral("zhangs");
const QString digits = QStringLiteral("0571-8000"); // everybody's, from the fourth on

SearchEntry entryOf(const SamplePerson &person)
{
    SearchEntry entry;
    entry.id = person.uid + QLatin1Char('@') + SampleCompany::domain();
    entry.name = person.name;
    entry.account = person.account;
    entry.employeeCode = person.employeeCode;
    entry.mail = person.email;
    entry.phones = person.mobile + QStringLiteral(";0571-") + person.otherPhone;
    entry.placeId = person.departmentId;
    entry.hasLeft = !person.onJob;
    return entry;
}

const std::vector<SearchEntry> &people()
{
    static const auto *list = [] {
        const SampleCompany company(People);
        auto *entries = new std::vector<SearchEntry>;
        for (int i = 0; i < People; ++i)
            entries->push_back(entryOf(company.person(i)));
        return entries;
    }();
    return *list;
}

// As somebody hands them over.
QVector<SearchEntry> listOfPeople()
{
    return QVector<SearchEntry>(people().begin(), people().end());
}

const SearchIndex &index()
{
    static const auto *filled = [] {
        auto *one = new SearchIndex;
        one->putAll(listOfPeople());
        return one;
    }();
    return *filled;
}

double searchOurs(const QString &text)
{
    QVector<SearchHit> hits = index().search(text, Shown);
    benchmark::DoNotOptimize(hits);
    return hits.isEmpty() ? -1 : hits.size();
}

// The same fields, and the pinyin of the names, spelled and by initials; who has left
// is last, the others by pinyin.
class LikePeer
{
public:
    LikePeer()
    {
        sqlite3_open(":memory:", &m_database);
        sqlite3_exec(m_database,
                     "CREATE TABLE people (id TEXT PRIMARY KEY, name TEXT, pinyin TEXT,"
                     " initials TEXT, account TEXT, code TEXT, mail TEXT, phones TEXT,"
                     " remark TEXT, hasLeft INTEGER); BEGIN",
                     nullptr, nullptr, nullptr);
        sqlite3_stmt *insert = prepared("INSERT INTO people VALUES (?,?,?,?,?,?,?,?,?,?)");
        for (const SearchEntry &entry : people())
            add(insert, entry);
        sqlite3_finalize(insert);
        sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr);
        m_search = prepared("SELECT id FROM people WHERE name LIKE ?1 OR pinyin LIKE ?1 OR"
                            " initials LIKE ?1 OR account LIKE ?1 OR code LIKE ?1 OR"
                            " mail LIKE ?1 OR phones LIKE ?1 OR remark LIKE ?1"
                            " ORDER BY hasLeft, pinyin LIMIT ?2");
    }
    ~LikePeer()
    {
        sqlite3_finalize(m_search);
        sqlite3_close(m_database);
    }

    double search(const QString &text)
    {
        const QByteArray pattern = '%' + text.toUtf8() + '%';
        sqlite3_bind_text(m_search, 1, pattern.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(m_search, 2, Shown);
        int count = 0;
        while (sqlite3_step(m_search) == SQLITE_ROW)
            ++count;
        sqlite3_reset(m_search);
        return count == 0 ? -1 : count;
    }

private:
    sqlite3_stmt *prepared(const char *text)
    {
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(m_database, text, -1, &statement, nullptr);
        return statement;
    }
    static void add(sqlite3_stmt *insert, const SearchEntry &entry)
    {
        QString pinyin, initials;
        for (const QChar c : entry.name) {
            const QString syllable = CChCharacterToPP::syllable(c).toString().toLower();
            pinyin += syllable;
            initials += syllable.left(1);
        }
        int column = 0;
        for (const QString &text : {entry.id, entry.name, pinyin, initials, entry.account,
                                    entry.employeeCode, entry.mail, entry.phones, entry.remark})
            sqlite3_bind_text(insert, ++column, text.toUtf8().constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(insert, ++column, entry.hasLeft);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }

    sqlite3 *m_database = nullptr;
    sqlite3_stmt *m_search = nullptr;
};

// CPU time of each keystroke, so many times over; the 99th percentile, in us.
template <class Search> double slowKeystroke(const QString &text, int times, Search &&search)
{
    std::vector<double> costs;
    for (int i = 0; i < times; ++i) {
        for (int length = 1; length <= text.size(); ++length) {
            const double before = Ratio::threadCpu();
            if (search(text.left(length)) < 0)
                return -1;
            costs.push_back(Ratio::threadCpu() - before);
        }
    }
    std::sort(costs.begin(), costs.end());
    return costs.at((costs.size() - 1) * 99 / 100) / 1000;
}

Ratio::Pair oneKeystroke(int length)
{
    const auto peer = std::make_shared<LikePeer>();
    const auto cost = [](int times, const auto &search) {
        double hits = 0;
        const double ns = Ratio::cpuPerUnit(times, [&] {
            for (int i = 0; i < times; ++i)
                hits = search();
        });
        return hits < 0 ? -1 : ns / 1000;
    };
    index();
    const QString text = typed.left(length);
    return {[=] { return cost(50, [&] { return searchOurs(text); }); },
            [=] { return cost(1, [&] { return peer->search(text); }); }};
}

double build()
{
    QVector<SearchEntry> list = listOfPeople();
    SearchIndex fresh;
    return Ratio::cpuPerUnit(People, [&] {
        fresh.putAll(list);
        if (fresh.search(typed, Shown).isEmpty())
            qFatal("nobody is found");
    });
}

double pinyinOfAllNames()
{
    const CChCharacterToPP converter;
    QVector<QString> pinyin(People);
    return Ratio::cpuPerUnit(People, [&] {
        for (int i = 0; i < People; ++i)
            pinyin[i] = converter.toPinyin(people()[size_t(i)].name, false);
    });
}

size_t heapInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// The texts are shared with whoever gave them.
double bytesPerPerson()
{
    people();
    const size_t before = heapInUse();
    SearchIndex fresh;
    fresh.putAll(listOfPeople());
    fresh.search(typed, Shown);
    return double(heapInUse() - before) / People;
}

bool addKeystrokes()
{
    for (int length = 1; length <= typed.size(); ++length)
        Ratio::add({"Search of " + typed.left(length).toStdString() +
                        " among 100,000 people, SQLite's LIKE",
                    "search", Ratio::timesFaster(10), "us"},
                   [length] { return oneKeystroke(length); });
    return true;
}

const bool registered[] = {
    addKeystrokes(),
    Ratio::add({"Search of z to zhangs, 99th percentile, SQLite's LIKE", "keystroke",
                Ratio::timesFaster(10), "us"},
               [] {
                   const auto peer = std::make_shared<LikePeer>();
                   index();
                   return Ratio::Pair{[] { return slowKeystroke(typed, 100, searchOurs); },
                                      [peer] {
                                          return slowKeystroke(typed, 2, [&](const QString &text) {
                                              return peer->search(text);
                                          });
                                      }};
               }),
    Ratio::add({"Search of a phone number among 100,000 people, 99th percentile", "keystroke",
                Ratio::atMost(16), "ms"},
               [] {
                   index();
                   return Ratio::Pair{
                       [] {
                           return slowKeystroke(
                                      digits, 10,
                                      [](const QString &text) {
                                          return qMax(
                                              0.0, searchOurs(text)); // nobody's for a few digits
                                      }) /
                                  1000;
                       },
                       {}};
               }),
    Ratio::add(
        {"Index of 100,000 people, the pinyin of their names", "person", Ratio::atMostTimes(2)},
        [] {
            people();
            return Ratio::Pair{build, pinyinOfAllNames};
        }),
    Ratio::add(
        {"Heap of a person in the index beyond the texts", "person", Ratio::atMost(160), "bytes"},
        [] {
            return Ratio::Pair{bytesPerPerson, {}};
        }),
};
} // namespace
