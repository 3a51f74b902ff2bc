// Where what somebody has typed is found in a text: at the beginning of a word or of
// a syllable, Chinese also by pinyin. The one matcher behind type to find and the
// search.
//
// "zhangsan", "zs", "zhs", "zsan", "zhangs", "zhang san" and "张s" all find 张三, and
// "shan" finds the surname 单. Blanks and apostrophes may be typed before any word or
// syllable ("xi'an"), and separators of the text may be left out.
#pragma once

#include "common/foldedtext.h"

#include <QString>
#include <QStringView>

struct TextMatch
{
    enum Kind : quint8
    {
        None,
        Inside,   // from a later syllable on
        Word,     // from a later word on
        Initials, // from the start, some syllable by its initial alone
        Prefix,   // from the start, letter by letter
        Exact     // all of it
    };

    Kind kind = None;
    // What to highlight, in units of the text as it was given.
    int start = 0;
    int length = 0;
};

// What was typed, made ready once for many texts.
class TextPattern
{
public:
    static constexpr int MaximumLength = FoldedText::MaximumLength; // characters that count

    explicit TextPattern(const QString &typed);

    // Blanks and apostrophes.
    static bool isBetweenSyllables(QChar typed);

    bool isEmpty() const { return m_text.isEmpty(); }
    const QString &text() const { return m_text; } // without case, width, diacritics

    // The best match; of the text the first 64 characters count. An empty pattern
    // matches nothing.
    TextMatch match(QStringView text) const;
    TextMatch match(const FoldedText &text) const;

private:
    QString m_text;
    bool m_isPlain = true; // the one way to read it in a text without Chinese is from left to right
};
