// The length of the text that goes with a contact request: a Chinese character
// counts two, any other one.
#pragma once

#include <QString>

namespace ValidationText {

constexpr int MaximumLength = 20;

int weightedLength(const QString &text);

// What to remove from a text that is too long, in UTF-16 units; count 0: nothing.
// Cut again until nothing is left to cut: a cut counts as if the characters were all
// wide (even excess) or all narrow (odd excess), and so may be too short.
struct Cut
{
    int from = 0;
    int count = 0;
};
// `cursor` stands behind what was typed last; at 0 nothing is, and the end counts.
// A surrogate pair is cut as a whole.
Cut excess(const QString &text, int cursor);

} // namespace ValidationText
