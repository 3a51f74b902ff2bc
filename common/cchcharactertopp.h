// Pinyin of Chinese names, for ordering and finding people.
//
// Every character of GB2312 has exactly one syllable, in capitals and without a
// tone (ü is written V, üe is UE). The conversion answers as a walk over the GBK
// bytes of the text would: ASCII stays, a symbol or a character that GBK lacks
// becomes "?", a character that only GBK has leaves nothing.
#pragma once

#include <QString>
#include <QStringView>

class CChCharacterToPP
{
public:
    virtual ~CChCharacterToPP();

    // The syllables one after another, or that of the first character alone.
    QString toPinyin(const QString &text, bool firstCharacterOnly) const;

    // Empty for everything but a GB2312 character. Static data, never freed.
    static QStringView syllable(QChar character);

    // Where the syllable of a character stands in the alphabetical list of all of them,
    // -1 for everything but a GB2312 character; of many characters by one call.
    static void syllableNumbers(QStringView text, qint16 *numbers);
    static int syllableCount();
    static QStringView syllableAt(int number);

    // Bytes of read-only data behind the conversion.
    static int tableSize();
};
