// Paints the rows of the list of customer-service channels.
#pragma once

#include <QStyledItemDelegate>

class CustomerServerListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CustomerServerListDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
