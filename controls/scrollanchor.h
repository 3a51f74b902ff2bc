// Keeps what the user looks at in its place while rows come, go and move above
// it: the row at the top of the view stays at the top.
#pragma once

#include <QObject>
#include <QPersistentModelIndex>

class QAbstractItemModel;
class QTreeView;

class ScrollAnchor : public QObject
{
    Q_OBJECT

public:
    // Follows the view's model, which the view may get later. The view calls
    // restore() when it has laid out its items.
    ScrollAnchor(QTreeView *view, const QAbstractItemModel *model);

    void restore();

private:
    void hold();
    // Rows first..last below parent go away or elsewhere: holds on to a neighbour.
    void leaveRows(const QModelIndex &parent, int first, int last);

    QTreeView *m_view;
    QPersistentModelIndex m_index;
    int m_top = 0;       // of the anchor's row, in viewport coordinates
    int m_rowHeight = 0; // of every row
    bool m_held = false;
};
