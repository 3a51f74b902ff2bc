// Paints the rows of the latest contacts.
#pragma once

#include <QStyledItemDelegate>

class LatestDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LatestDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
