// Paints the members that can be ticked.
#pragma once

#include <QStyledItemDelegate>

class SetAdminListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit SetAdminListDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
