// Paints the members that can be ticked.
#pragma once

#include "virtualteam/cvirtualteamtreedelegate.h"

class SetAdminListDelegate : public CVirtualTeamTreeDelegate
{
    Q_OBJECT

public:
    explicit SetAdminListDelegate(QObject *parent);

protected:
    void paintChoice(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                     const QModelIndex &index) const override;
};
