// Paints the rows of the list of group chats.
#pragma once

#include <QStyledItemDelegate>

class MucListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit MucListDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
