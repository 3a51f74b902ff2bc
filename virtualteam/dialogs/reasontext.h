// How long a reason may be, in UTF-16 units, and what is cut off a longer one.
#pragma once

#include <QString>

namespace ReasonText {

// What to remove from a text; count 0: nothing.
struct Cut
{
    int from = 0;
    int count = 0;
};

// What stands before the cursor was typed or pasted last and goes first; where there
// is nothing before it, the end of the text goes. A surrogate pair goes as a whole.
// Cut again until nothing is left to cut.
Cut excess(const QString &text, int cursor, int limit);

// The start of a text, of `room` units at most, without half a pair at its end.
QString start(const QString &text, int room);

} // namespace ReasonText
