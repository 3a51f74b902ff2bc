// The friend tree against the toolkit's own items, and against what sorting and
// copying alone must cost.
#include "bench/support/ratio.h"
#include "bench/support/stockitems.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/friendtreewidget.h"
#include "tests/support/fakecontext.h"

#include <QApplication>
#include <QHash>
#include <QRandomGenerator>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <malloc.h>
#include <memory>

namespace {

constexpr int Groups = 200;

QString groupId(int number) { return QStringLiteral("g%1").arg(number); }

QList<GroupData> groups(int count)
{
    QList<GroupData> list;
    for (int i = 0; i < count; ++i)
        list.append({groupId(i), QStringLiteral("Group %1").arg(i, 4, 10, QLatin1Char('0'))});
    return list;
}

QString chineseName(QRandomGenerator *random)
{
    QString name;
    for (int i = 0; i < 3; ++i)
        name += QChar(random->bounded(0x4E00, 0x9FA5));
    return name;
}

QList<FriendData> contacts(int count, int groupCount)
{
    QRandomGenerator random(7);
    QList<FriendData> list;
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        FriendData contact;
        contact.jid = QStringLiteral("u%1@corp.example").arg(i, 6, 10, QLatin1Char('0'));
        contact.account = contact.jid.left(7);
        contact.nickName = chineseName(&random);
        contact.groupId = groupId(random.bounded(groupCount));
        list.append(contact);
    }
    return list;
}

// A tree on screen, with all its groups open.
struct ShownTree
{
    explicit ShownTree(int groupCount) : context(&host)
    {
        page.resize(360, 640);
        QList<GroupData> list = groups(groupCount);
        page.slot_addAllGroup(list, true);
        page.view()->expandAll();
        page.show();
        QApplication::processEvents();
    }
    void fill(const QList<FriendData> &list)
    {
        page.slot_addAllFriend(list);
        QApplication::processEvents();
    }

    FakeContext host;
    HostContextScope context;
    FriendTreeWidget page;
};

const QList<FriendData> &manyContacts()
{
    static const auto *list = new QList<FriendData>(contacts(100000, Groups));
    return *list;
}

double loadOurs()
{
    ShownTree tree(Groups);
    return Ratio::cpuPerUnit(manyContacts().size(), [&] { tree.fill(manyContacts()); });
}

double loadStock()
{
    StockTree tree(Groups);
    return Ratio::cpuPerUnit(manyContacts().size(), [&] {
        tree.fill(manyContacts());
        tree.sort();
        QApplication::processEvents();
    });
}

// What nobody gets round: sorting 8-byte keys and copying the records.
double loadFloor()
{
    struct Record
    {
        QString jid, name, head, key, group, sign, account, remark;
    };
    std::vector<std::pair<quint64, int>> keys;
    std::vector<Record> source;
    QRandomGenerator random(9);
    for (const FriendData &contact : manyContacts()) {
        keys.emplace_back(random.generate64(), int(keys.size()));
        source.push_back({contact.jid, contact.nickName, contact.headPath, contact.spell,
                          contact.groupId, contact.sign, contact.account, contact.remark});
    }
    return Ratio::cpuPerUnit(manyContacts().size(), [&] {
        std::sort(keys.begin(), keys.end());
        std::vector<Record> copy(source);
        benchmark::DoNotOptimize(copy.data());
    });
}

double tearDownOurs()
{
    auto tree = std::make_unique<ShownTree>(Groups);
    tree->fill(manyContacts());
    return Ratio::cpuPerUnit(manyContacts().size(), [&] { tree.reset(); });
}

double tearDownStock()
{
    StockTree tree(Groups);
    tree.fill(manyContacts());
    tree.sort();
    QApplication::processEvents();
    return Ratio::cpuPerUnit(manyContacts().size(), [&] { tree.model.clear(); });
}

size_t heapInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double bytesPerRow()
{
    manyContacts();
    ShownTree tree(Groups);
    const size_t before = heapInUse();
    tree.fill(manyContacts());
    return double(heapInUse() - before) / manyContacts().size();
}

// --- Presence ------------------------------------------------------------------

constexpr int PresenceRows = 10000;
constexpr int PresenceGroups = 20;
constexpr int PresenceChanges = 10000;

PresenceData randomPresence(QRandomGenerator *random)
{
    PresenceData presence;
    presence.pcShow = random->bounded(2) ? PresenceData::Available : PresenceData::Offline;
    return presence;
}

double presenceOurs()
{
    const QList<FriendData> list = contacts(PresenceRows, PresenceGroups);
    ShownTree tree(PresenceGroups);
    tree.fill(list);
    QRandomGenerator random(11);
    return Ratio::cpuPerUnit(PresenceChanges, [&] {
        for (int i = 0; i < PresenceChanges; ++i) {
            const QString &jid = list.at(random.bounded(PresenceRows)).jid;
            tree.page.slot_updateFriendPresence({{jid, randomPresence(&random)}});
        }
        QApplication::processEvents();
    });
}

double presenceStock()
{
    constexpr int Changes = 40; // each takes milliseconds
    const QList<FriendData> list = contacts(PresenceRows, PresenceGroups);
    StockTree tree(PresenceGroups);
    tree.fill(list);
    tree.sort();
    QRandomGenerator random(11);
    return Ratio::cpuPerUnit(Changes, [&] {
        for (int i = 0; i < Changes; ++i) {
            const QString &jid = list.at(random.bounded(PresenceRows)).jid;
            tree.setPresence(jid, randomPresence(&random));
            tree.sort();
        }
        QApplication::processEvents();
    });
}

double presenceThinItems()
{
    const QList<FriendData> list = contacts(PresenceRows, PresenceGroups);
    ThinItemTree tree(PresenceGroups);
    tree.fill(list);
    QRandomGenerator random(11);
    return Ratio::cpuPerUnit(PresenceChanges, [&] {
        for (int i = 0; i < PresenceChanges; ++i) {
            const QString &jid = list.at(random.bounded(PresenceRows)).jid;
            tree.setPresence(jid, randomPresence(&random));
        }
        QApplication::processEvents();
    });
}

const bool registered[] = {
    Ratio::add({"100,000 contacts in 200 groups, stock items sorted", "row", Ratio::timesFaster(4)},
               [] { return Ratio::Pair{loadOurs, loadStock}; }),
    Ratio::add({"100,000 contacts in 200 groups, sort and copy alone", "row",
                Ratio::atMostTimes(1.9)},
               [] { return Ratio::Pair{loadOurs, loadFloor}; }),
    Ratio::add({"Tear-down of 100,000 contacts, stock after a sort", "row",
                Ratio::timesFaster(200), "ns", 3},
               [] { return Ratio::Pair{tearDownOurs, tearDownStock}; }),
    Ratio::add({"Heap of a row beyond its texts, view included", "row", Ratio::atMost(260), "bytes"},
               [] { return Ratio::Pair{bytesPerRow, {}}; }),
    Ratio::add({"A presence change over 10,000 rows, stock sort each", "change",
                Ratio::timesFaster(500)},
               [] { return Ratio::Pair{presenceOurs, presenceStock}; }),
    Ratio::add({"A presence change over 10,000 rows, thin item taken and inserted", "change",
                Ratio::atMostTimes(1.2)},
               [] { return Ratio::Pair{presenceOurs, presenceThinItems}; }),
};

} // namespace
