// What users may call things.
#pragma once

#include <QString>

constexpr int LongestName = 16; // characters

// Without blanks at its ends; refuses one that is shorter or longer than allowed, or has
// control characters. A text that may be longer than a name may have several lines.
QString checkedText(const QString &text, int least, int most = LongestName);
