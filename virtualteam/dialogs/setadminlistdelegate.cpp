#include "virtualteam/dialogs/setadminlistdelegate.h"

#include "virtualteam/dialogs/choicemark.h"
#include "virtualteam/teamroles.h"

SetAdminListDelegate::SetAdminListDelegate(QObject *parent) : CVirtualTeamTreeDelegate(parent) {}

void SetAdminListDelegate::paintChoice(QPainter *painter, const QStyleOptionViewItem &option,
                                       RowPainter *row, const QModelIndex &index) const
{
    paintChoiceMark(painter, option, row, ChoiceMark::Check,
                    index.data(TeamRowRole::Checked).toBool());
}
