// The lists that keep themselves in order against a bare model that is told where
// each row goes.
#include "bench/support/baremodel.h"
#include "bench/support/heap.h"
#include "bench/support/ratio.h"
#include "controls/keyedlistmodel.h"
#include "controls/rowview.h"

#include <QApplication>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

struct Item
{
    QString key;
    QString name;
    qint64 time = 0;
};

class Items : public KeyedListModel<Item, qint64>
{
public:
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(at(index.row()).name) : QVariant();
    }

private:
    QString keyOf(const Item &item) const override { return item.key; }
    qint64 placeOf(const Item &item) const override { return item.time; }
};

struct ShownItems
{
    ShownItems() : view(&model, Qt::DisplayRole)
    {
        view.resize(360, 640);
        view.show();
        QApplication::processEvents();
    }

    Items model; // outlives the view
    RowView view;
};

// In a random order of their times.
QVector<Item> items(int count)
{
    QVector<Item> list;
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i);
        list.append(
            {QStringLiteral("conversation-") + number, QStringLiteral("name ") + number, i});
    }
    QRandomGenerator random(5);
    std::shuffle(list.begin(), list.end(), random);
    return list;
}

constexpr int Many = 100000;
constexpr int Single = 5000;
constexpr int Changed = 10000; // rows, and changes

double fillOurs()
{
    static const QVector<Item> all = items(Many);
    ShownItems shown;
    return Ratio::cpuPerUnit(Many, [&] {
        shown.model.putAll(all);
        QApplication::processEvents();
    });
}

double fillFloor()
{
    static const QVector<Item> all = items(Many);
    return Ratio::cpuPerUnit(Many, [&] {
        std::vector<Item> copies(all.begin(), all.end());
        std::vector<const Item *> rows;
        for (const Item &item : copies)
            rows.push_back(&item);
        std::sort(rows.begin(), rows.end(),
                  [](const Item *a, const Item *b) { return a->time < b->time; });
        benchmark::DoNotOptimize(rows.data());
    });
}

double oneByOneOurs()
{
    const QVector<Item> all = items(Single);
    ShownItems shown;
    return Ratio::cpuPerUnit(Single, [&] {
        for (const Item &item : all)
            shown.model.put(item);
        QApplication::processEvents();
    });
}

double oneByOneBare()
{
    QVector<Item> all = items(Single);
    std::sort(all.begin(), all.end(), [](const Item &a, const Item &b) { return a.time < b.time; });
    ShownBareModel shown;
    return Ratio::cpuPerUnit(Single, [&] {
        for (const Item &item : qAsConst(all))
            shown.model.append(item.name);
        QApplication::processEvents();
    });
}

double changesOurs()
{
    const QVector<Item> all = items(Changed);
    ShownItems shown;
    shown.model.putAll(all);
    QApplication::processEvents();
    QRandomGenerator random(7);
    return Ratio::cpuPerUnit(Changed, [&] {
        for (int i = 0; i < Changed; ++i) {
            shown.model.change(all.at(random.bounded(Changed)).key,
                               [i](Item &item) { item.time = Changed + i; });
        }
        QApplication::processEvents();
    });
}

double changesBare()
{
    const QVector<Item> all = items(Changed);
    ShownBareModel shown;
    for (const Item &item : all)
        shown.model.append(item.name);
    QApplication::processEvents();
    QRandomGenerator random(7);
    return Ratio::cpuPerUnit(Changed, [&] {
        for (int i = 0; i < Changed; ++i)
            shown.model.moveToEnd(random.bounded(Changed));
        QApplication::processEvents();
    });
}

double bytesPerRow()
{
    const QVector<Item> all = items(Many);
    ShownItems shown;
    const double before = heapInUse();
    shown.model.putAll(all);
    QApplication::processEvents();
    return (heapInUse() - before) / Many - sizeof(Item);
}

const bool registered[] = {
    Ratio::add(
        {"100,000 records into a shown list, sort and copy alone", "record", Ratio::atMostTimes(4)},
        [] {
            return Ratio::Pair{fillOurs, fillFloor};
        }),
    Ratio::add({"5,000 records one by one into a shown list, in order into a bare model", "record",
                Ratio::atMostTimes(3)},
               [] {
                   return Ratio::Pair{oneByOneOurs, oneByOneBare};
               }),
    Ratio::add(
        {"A record of 10,000 moved to the end, in a bare model", "change", Ratio::atMostTimes(3)},
        [] {
            return Ratio::Pair{changesOurs, changesBare};
        }),
    Ratio::add({"Heap of a row of a list beyond its record, view included", "row",
                Ratio::atMost(140), "bytes"},
               [] {
                   return Ratio::Pair{bytesPerRow, {}};
               }),
};

} // namespace
