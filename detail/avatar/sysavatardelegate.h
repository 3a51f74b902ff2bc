// What lies around a picture of the program: the ring of the chosen one, the frame of
// the current one, the ground of the one under the pointer. The picture itself is a
// label in the cell.
#pragma once

#include <QStyledItemDelegate>

class SysAvatarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role
    {
        NameRole = Qt::UserRole, // of the picture's file
        ChosenRole
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
