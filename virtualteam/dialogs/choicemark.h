// The mark at the beginning of a row that can be chosen.
#pragma once

#include "controls/rowpainter.h"

enum class ChoiceMark
{
    Check, // one of several
    Radio  // the only one
};

// At the left of what is left of the row.
void paintChoiceMark(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                     ChoiceMark mark, bool on);
