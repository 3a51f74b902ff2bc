// What the rows of the lists to choose from have in common on screen.
#pragma once

#include "controls/rowpainter.h"

class QModelIndex;

namespace MemberRow {

enum class Mark
{
    Check, // one of several
    Radio  // the only one
};

// A mark to tick at the left of what is left of the row.
void paintMark(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row, Mark mark,
               bool on);
// Avatar, name, role, post and company of a member; reads TeamRowRole.
void paintMember(QPainter *painter, RowPainter *row, const QModelIndex &index);

} // namespace MemberRow
