// The table of latest contacts: what the index, the way through the toolkit and the
// transaction are worth.
#include "bench/support/ratio.h"
#include "common/localdatabase.h"
#include "common/localtables.h"
#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latestlist.h"
#include "tests/support/localuser.h"

#include <QDateTime>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <chrono>
#include <memory>

namespace {

constexpr int Rows = 100000;
constexpr int Page = LatestList::PageSize;
constexpr int Pages = 20; // in one round
constexpr int Stored = 1000;

DBFriendData contact(int number)
{
    static const QDateTime newest(QDate(2026, 11, 20), QTime(18, 0));
    DBFriendData record;
    const QString text = QString::number(number);
    record.jid = QStringLiteral("user") + text + QStringLiteral("@corp.example");
    record.displayName = QStringLiteral("Somebody ") + text;
    record.accountNo = text;
    record.time =
        newest.addSecs(-qint64(number) * 97).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    record.lastContent = QStringLiteral("The last thing that was said, number ") + text;
    record.unread = number < 20 ? 1 : 0;
    return record;
}

QVector<DBFriendData> contacts(int count, int first = 0)
{
    QVector<DBFriendData> records;
    for (int i = 0; i < count; ++i)
        records.append(contact(first + i));
    return records;
}

bool exec(const char *statement)
{
    return LocalDatabase::instance().run(QString::fromLatin1(statement), {}, "bench");
}

// A user with Rows latest contacts.
std::shared_ptr<LocalUser> userWithHistory()
{
    auto user = std::make_shared<LocalUser>();
    return LatestContactsTable::store(contacts(Rows)) ? user : nullptr;
}

double readPages(int pages)
{
    int rows = 0;
    const double cost = Ratio::cpuPerUnit(pages, [&] {
        for (int i = 0; i < pages; ++i)
            rows += LatestContactsTable::page(Page, 0).size();
    });
    return rows == pages * Page ? cost : -1;
}

double readIndexed()
{
    const bool indexed = exec(
        "CREATE INDEX IF NOT EXISTS latestfriendnewinorder ON latestfriendnew (time, jid DESC)");
    LatestContactsTable::page(1, 0);
    return indexed ? readPages(Pages) : -1;
}

double readUnindexed()
{
    return exec("DROP INDEX IF EXISTS latestfriendnewinorder") ? readPages(1) : -1;
}

// The last page but one, whose place is known, and by counting the rows before it.
double readFarDown()
{
    const DBFriendData last = contact(Rows - 2 * Page - 1);
    int rows = 0;
    const double cost = Ratio::cpuPerUnit(Pages, [&] {
        for (int i = 0; i < Pages; ++i)
            rows += LatestContactsTable::pageBehind({last.time, last.jid}, Page).size();
    });
    return rows == Pages * Page ? cost : -1;
}

double countFarDown()
{
    int rows = 0;
    const double cost = Ratio::cpuPerUnit(
        1, [&rows] { rows = LatestContactsTable::page(Page, Rows - 2 * Page).size(); });
    return rows == Page ? cost : -1;
}

// --- Without the toolkit -----------------------------------------------------------

// Prepared statements of the library itself, with the same texts.
class RawReader
{
public:
    explicit RawReader(const QString &file)
    {
        sqlite3_open(file.toUtf8().constData(), &m_base);
        m_list =
            prepare(LatestContactsTable::listStatement() + QStringLiteral(" LIMIT ? OFFSET ?"));
        m_unread = prepare(QStringLiteral("SELECT jid, unread FROM latestunread"));
    }
    ~RawReader()
    {
        for (sqlite3_stmt *statement : {m_list, m_unread})
            sqlite3_finalize(statement);
        sqlite3_close(m_base);
    }
    RawReader(const RawReader &) = delete;
    RawReader &operator=(const RawReader &) = delete;

    QVector<DBFriendData> page(int limit, int offset)
    {
        QVector<DBFriendData> records;
        sqlite3_bind_int(m_list, 1, limit);
        sqlite3_bind_int(m_list, 2, offset);
        while (sqlite3_step(m_list) == SQLITE_ROW)
            records.append(row());
        sqlite3_reset(m_list);
        QHash<QString, int> unread;
        while (sqlite3_step(m_unread) == SQLITE_ROW)
            unread.insert(text(m_unread, 0), sqlite3_column_int(m_unread, 1));
        sqlite3_reset(m_unread);
        for (DBFriendData &record : records)
            record.unread = unread.value(record.jid);
        return records;
    }

private:
    sqlite3_stmt *prepare(const QString &statement)
    {
        sqlite3_stmt *prepared = nullptr;
        sqlite3_prepare_v2(m_base, statement.toUtf8().constData(), -1, &prepared, nullptr);
        return prepared;
    }
    static QString text(sqlite3_stmt *statement, int column)
    {
        const auto *units = static_cast<const QChar *>(sqlite3_column_text16(statement, column));
        return QString(units, sqlite3_column_bytes16(statement, column) / int(sizeof(QChar)));
    }
    DBFriendData row() const
    {
        DBFriendData record;
        record.jid = text(m_list, 0);
        record.displayName = text(m_list, 1);
        record.icon = text(m_list, 2);
        record.signature = text(m_list, 3);
        record.time = text(m_list, 4);
        record.onJob = sqlite3_column_int(m_list, 5);
        record.accountNo = text(m_list, 6);
        record.lastContent = text(m_list, 7);
        record.isSystemNotice = sqlite3_column_int(m_list, 8);
        record.appKey = text(m_list, 9);
        record.isTop = qint16(sqlite3_column_int(m_list, 10));
        return record;
    }

    sqlite3 *m_base = nullptr;
    sqlite3_stmt *m_list = nullptr;
    sqlite3_stmt *m_unread = nullptr;
};

double readRaw(const QString &file)
{
    RawReader reader(file);
    reader.page(1, 0);
    int rows = 0;
    const double cost = Ratio::cpuPerUnit(Pages, [&] {
        for (int i = 0; i < Pages; ++i)
            rows += reader.page(Page, 0).size();
    });
    return rows == Pages * Page ? cost : -1;
}

// --- Storing -----------------------------------------------------------------------

// The wall clock: writing to a disk is waiting more than computing.
template <class Function> double wallPerUnit(double units, Function &&function)
{
    const auto before = std::chrono::steady_clock::now();
    function();
    const std::chrono::duration<double, std::nano> spent =
        std::chrono::steady_clock::now() - before;
    return spent.count() / units;
}

template <class Clock> double storeTogether(const Clock &perUnit)
{
    const LocalUser user;
    if (!LatestContactsTable::store(contacts(1, -1)))
        return -1;
    const QVector<DBFriendData> records = contacts(Stored);
    bool stored = false;
    const double cost = perUnit([&] { stored = LatestContactsTable::store(records); });
    return stored ? cost : -1;
}

// One INSERT each that is committed by itself, in the journal mode of a new file.
template <class Clock> double storeSingly(const Clock &perUnit)
{
    const QTemporaryDir folder;
    const QString name = QStringLiteral("single");
    bool stored = true;
    double cost = 0;
    {
        QSqlDatabase base = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        base.setDatabaseName(folder.filePath(QStringLiteral("single.db")));
        stored = base.open();
        QSqlQuery query(base);
        for (const SqliteTable &table : LocalTables::all())
            stored = query.exec(QStringLiteral("CREATE TABLE ") + QLatin1String(table.name) +
                                QLatin1String(table.columns)) &&
                     stored;
        query.prepare(QStringLiteral(
            "INSERT INTO latestfriendnew (jid, displayname, icon, signature, time, onjob, "
            "accountNo, lastcontent, issystemnotice, appkey, isTop, isLocalSession) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
        const QVector<DBFriendData> records = contacts(Stored);
        cost = perUnit([&] {
            for (const DBFriendData &record : records) {
                for (const QVariant &value : QVariantList{
                         record.jid, record.displayName, record.icon, record.signature, record.time,
                         QString::number(record.onJob), record.accountNo, record.lastContent,
                         record.isSystemNotice, record.appKey, int(record.isTop), 1})
                    query.addBindValue(value);
                stored = query.exec() && stored;
            }
        });
    }
    QSqlDatabase::removeDatabase(name);
    return stored ? cost : -1;
}

const auto wall = [](const auto &work) { return wallPerUnit(Stored, work); };
const auto cpu = [](const auto &work) { return Ratio::cpuPerUnit(Stored, work); };

Ratio::Pair withHistory(const Ratio::Work &candidate,
                        const std::function<double(const LocalUser &)> &peer)
{
    const std::shared_ptr<LocalUser> user = userWithHistory();
    if (!user)
        return {{}, {}, "the table cannot be filled"};
    return {[user, candidate] { return candidate(); }, [user, peer] { return peer(*user); }};
}

const bool registered[] = {
    Ratio::add(
        {"First page of 100,000 latest contacts, without the index on time", "page",
         Ratio::timesFaster(100)},
        [] { return withHistory(readIndexed, [](const LocalUser &) { return readUnindexed(); }); }),
    Ratio::add(
        {"Page far down of 100,000 latest contacts, by OFFSET", "page", Ratio::timesFaster(50)},
        [] { return withHistory(readFarDown, [](const LocalUser &) { return countFarDown(); }); }),
    Ratio::add({"First page of 100,000 latest contacts, the library without the toolkit", "page",
                Ratio::atMostTimes(2)},
               [] {
                   return withHistory(readIndexed,
                                      [](const LocalUser &user) { return readRaw(user.file()); });
               }),
    Ratio::add({"1,000 new messages stored at once, one statement each, wall clock", "row",
                Ratio::timesFaster(25)},
               [] {
                   return Ratio::Pair{[] { return storeTogether(wall); },
                                      [] { return storeSingly(wall); }};
               }),
    Ratio::add(
        {"1,000 new messages stored at once, one statement each, CPU time", "row",
         Ratio::timesFaster(25)},
        [] {
            return Ratio::Pair{[] { return storeTogether(cpu); }, [] { return storeSingly(cpu); }};
        }),
};

} // namespace
