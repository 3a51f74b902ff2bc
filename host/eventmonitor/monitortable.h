// What the tables of the monitor have in common.
#pragma once

#include <QStringList>
#include <QVector>

class QAction;
class QSortFilterProxyModel;
class QTableView;
class QToolButton;
class QWidget;

namespace MonitorTable {

// Rows to choose and copy. `widest` holds one text for each column but the last,
// which takes the rest of the width.
void prepare(QTableView *table, const QStringList &widest);

// The chosen rows of the model behind the filter, in its order.
QVector<int> chosenRows(const QTableView *table, const QSortFilterProxyModel *filter);

QToolButton *buttonFor(QAction *action, QWidget *parent);

} // namespace MonitorTable
