// Paints the rows of which one is chosen: members and sub-groups with the mark for it.
#pragma once

#include "virtualteam/cvirtualteamtreedelegate.h"

class CVirtualTeamTransAuthTreeDelegate : public CVirtualTeamTreeDelegate
{
    Q_OBJECT

public:
    explicit CVirtualTeamTransAuthTreeDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    void paintChoice(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                     const QModelIndex &index) const override;

private:
    void paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
};
