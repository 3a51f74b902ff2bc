// The friend tree against the toolkit's own items, and against what sorting and
// copying alone must cost.
#include "bench/support/heap.h"
#include "bench/support/ratio.h"
#include "bench/support/samplecontacts.h"
#include "bench/support/stockitems.h"
#include "common/cchcharactertopp.h"
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
#include <memory>

namespace {

constexpr int Groups = 200;

// A tree on screen, with all its groups open.
struct ShownTree
{
    explicit ShownTree(int groupCount) : context(&host)
    {
        page.resize(360, 640);
        QList<GroupData> list = sampleGroups(groupCount);
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
    static const auto *list = new QList<FriendData>(sampleContacts(100000, Groups));
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

// What nobody gets round: sorting the keys, by their first eight letters and by the
// rest where these are equal, and copying the records.
double loadFloor()
{
    struct Key
    {
        quint64 letters;
        QString text;
        int record;
    };
    std::vector<Key> keys;
    std::vector<FriendData> source;
    const CChCharacterToPP converter;
    for (const FriendData &contact : manyContacts()) {
        const QString text = contact.groupId + converter.toPinyin(contact.nickName, false);
        quint64 letters = 0;
        for (int i = 0; i < 8; ++i)
            letters = letters << 8 | (i < text.size() ? text.at(i).unicode() & 0x7f : 0);
        keys.push_back({letters, text, int(keys.size())});
        source.push_back(contact);
    }
    return Ratio::cpuPerUnit(manyContacts().size(), [&] {
        std::sort(keys.begin(), keys.end(), [](const Key &x, const Key &y) {
            return x.letters != y.letters ? x.letters < y.letters : x.text < y.text;
        });
        std::vector<FriendData> copy(source);
        benchmark::DoNotOptimize(copy.data());
    });
}

double tearDownOurs(int groupCount)
{
    const QList<FriendData> list = sampleContacts(manyContacts().size(), groupCount);
    auto tree = std::make_unique<ShownTree>(groupCount);
    tree->fill(list);
    return Ratio::cpuPerUnit(list.size(), [&] { tree.reset(); });
}

double tearDownStock(int groupCount)
{
    StockTree tree(groupCount);
    tree.fill(sampleContacts(manyContacts().size(), groupCount));
    tree.sort();
    QApplication::processEvents();
    return Ratio::cpuPerUnit(manyContacts().size(), [&] { tree.model.clear(); });
}

double bytesPerRow()
{
    manyContacts();
    ShownTree tree(Groups);
    const double before = heapInUse();
    tree.fill(manyContacts());
    return (heapInUse() - before) / manyContacts().size();
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
    const QList<FriendData> list = sampleContacts(PresenceRows, PresenceGroups);
    ShownTree tree(PresenceGroups);
    tree.fill(list);
    QRandomGenerator random(11);
    // As the events bring them; decoding is not part of what is compared.
    std::vector<QMap<QString, PresenceData>> events;
    for (int i = 0; i < PresenceChanges; ++i) {
        const QString &jid = list.at(random.bounded(PresenceRows)).jid;
        events.push_back({{jid, randomPresence(&random)}});
    }
    return Ratio::cpuPerUnit(PresenceChanges, [&] {
        for (const auto &event : events)
            tree.page.slot_updateFriendPresence(event);
    });
}

double presenceStock()
{
    constexpr int Changes = 40; // each takes milliseconds
    const QList<FriendData> list = sampleContacts(PresenceRows, PresenceGroups);
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
    });
}

double presenceThinItems()
{
    const QList<FriendData> list = sampleContacts(PresenceRows, PresenceGroups);
    ThinItemTree tree(PresenceGroups);
    tree.fill(list);
    QRandomGenerator random(11);
    return Ratio::cpuPerUnit(PresenceChanges, [&] {
        for (int i = 0; i < PresenceChanges; ++i) {
            const QString &jid = list.at(random.bounded(PresenceRows)).jid;
            tree.setPresence(jid, randomPresence(&random));
        }
    });
}

const bool registered[] = {
    Ratio::add({"100,000 contacts in 200 groups, stock items sorted", "row", Ratio::timesFaster(4)},
               [] {
                   return Ratio::Pair{loadOurs, loadStock};
               }),
    Ratio::add(
        {"100,000 contacts in 200 groups, sort and copy alone", "row", Ratio::atMostTimes(1.9)},
        [] {
            return Ratio::Pair{loadOurs, loadFloor};
        }),
    Ratio::add(
        {"Tear-down of 100,000 contacts in one group, stock after a sort", "row",
         Ratio::timesFaster(200), "ns", 2},
        [] {
            return Ratio::Pair{[] { return tearDownOurs(1); }, [] { return tearDownStock(1); }};
        }),
    Ratio::add({"Tear-down of 100,000 contacts in 200 groups, stock after a sort", "row",
                Ratio::timesFaster(200), "ns", 3},
               [] {
                   return Ratio::Pair{[] { return tearDownOurs(Groups); },
                                      [] { return tearDownStock(Groups); }};
               }),
    Ratio::add(
        {"Heap of a row beyond its texts, view included", "row", Ratio::atMost(260), "bytes"},
        [] {
            return Ratio::Pair{bytesPerRow, {}};
        }),
    Ratio::add(
        {"A presence change over 10,000 rows, stock sort each", "change", Ratio::timesFaster(500)},
        [] {
            return Ratio::Pair{presenceOurs, presenceStock};
        }),
    Ratio::add({"A presence change over 10,000 rows, thin item taken and inserted", "change",
                Ratio::atMostTimes(1.2)},
               [] {
                   return Ratio::Pair{presenceOurs, presenceThinItems};
               }),
};

} // namespace
