// Paints a member found in a team: picture with presence, the name, below it the team.
#pragma once

#include <QStyledItemDelegate>

class VirtualTeamSearchResultDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
