// Paints the rows of which one is chosen: members, sub-groups, and what stands for a
// level that is not there.
#pragma once

#include <QStyledItemDelegate>

class CVirtualTeamTransAuthTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CVirtualTeamTransAuthTreeDelegate(QObject *parent);

    // Where a row of that depth opens and closes, in the view's coordinates.
    static QRect caretArea(const QRect &row, int depth, Qt::LayoutDirection direction);
    static int depth(const QModelIndex &index);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintState(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
};
