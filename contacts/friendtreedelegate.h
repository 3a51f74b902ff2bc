// Paints the contact rows of the friend tree. Group rows are covered by their
// GroupLabel.
#pragma once

#include <QStyledItemDelegate>

class FriendTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit FriendTreeDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
