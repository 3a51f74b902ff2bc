// Where what somebody has typed is found in a text: at the beginning of a word or of
// a syllable, Chinese also by pinyin. The one matcher behind type to find and the
// search.
#pragma once

#include <QString>
#include <QStringView>
#include <QVector>

struct TextMatch
{
    enum Kind : quint8
    {
        None,
        Inside,   // from a later word or syllable on
        Initials, // from the start, some syllable by its initial alone
        Prefix,   // from the start, letter by letter
        Exact     // all of it
    };

    Kind kind = None;
    // What to highlight, in units of the text as it was given.
    int start = 0;
    int length = 0;
};

// One typed word, made ready once for many texts.
class TextPattern
{
public:
    static constexpr int MaximumLength = 64; // characters that count

    explicit TextPattern(const QString &typed);

    bool isEmpty() const { return m_text.isEmpty(); }
    const QString &text() const { return m_text; } // without case, width, diacritics

    // The best match; of the text the first 64 characters count.
    TextMatch match(const QString &text) const;

private:
    QString m_text;
};
