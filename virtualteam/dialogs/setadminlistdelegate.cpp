#include "virtualteam/dialogs/setadminlistdelegate.h"

#include "controls/rowpainter.h"
#include "virtualteam/dialogs/memberrow.h"
#include "virtualteam/teamroles.h"

SetAdminListDelegate::SetAdminListDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

QSize SetAdminListDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void SetAdminListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    painter->save();
    RowPainter row(painter, option);
    row.background();
    MemberRow::paintMark(painter, option, &row, MemberRow::Mark::Check,
                         index.data(TeamRowRole::Checked).toBool());
    MemberRow::paintMember(painter, &row, index);
    painter->restore();
}
