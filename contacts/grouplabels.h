// The group headers that are on screen. A view with thousands of groups has no
// more labels than fit into it.
#pragma once

#include <QObject>
#include <QVector>

class GroupLabel;
class QModelIndex;
class QTreeView;

class GroupLabels : public QObject
{
    Q_OBJECT

public:
    explicit GroupLabels(QTreeView *view);

    // Brings the labels over the group rows that the viewport shows. To be called
    // after every layout and scroll. Lays the view out if that is due.
    void sync();
    // Shows what is open, selected and has the focus, on the labels that are there.
    void showStates();

    // The label over a row; null when the row is not on screen.
    GroupLabel *labelOf(const QModelIndex &index) const;

    // Marks the group that a drop would go to; an invalid index: none.
    void setDropTarget(const QModelIndex &index);

signals:
    // A label was made; the view connects it.
    void labelMade(GroupLabel *label);

private:
    GroupLabel *unused(int position);

    QTreeView *m_view;
    QVector<GroupLabel *> m_labels; // owned by the viewport
};
