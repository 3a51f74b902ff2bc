#include "host/eventmonitor/monitortable.h"

#include <QAction>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace {
constexpr int CellPadding = 14;
}

void MonitorTable::prepare(QTableView *table, const QStringList &widest)
{
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setWordWrap(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    for (int column = 0; column < widest.size(); ++column)
        table->setColumnWidth(column, table->fontMetrics().horizontalAdvance(widest.at(column)) +
                                          CellPadding);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QVector<int> MonitorTable::chosenRows(const QTableView *table, const QSortFilterProxyModel *filter)
{
    QVector<int> rows;
    const auto selected = table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(filter->mapToSource(index).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QToolButton *MonitorTable::buttonFor(QAction *action, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    return button;
}
