// Pinyin: the table against a walk over the bytes of code page 936, and the
// readings themselves.
#include "common/cchcharactertopp.h"
#include "common/codepage936.h"
#include "tests/support/testrunner.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

namespace {
// Row * 100 + cell of a GB2312 character; 0 for everything else.
int numberOf(const QString &character)
{
    const QByteArray bytes = toCodePage936(character);
    if (bytes.size() != 2 || uchar(bytes.at(0)) < 0xA1 || uchar(bytes.at(1)) < 0xA1)
        return 0;
    return (uchar(bytes.at(0)) - 160) * 100 + uchar(bytes.at(1)) - 160;
}

QString characterOf(int number)
{
    const char bytes[] = {char(number / 100 + 160), char(number % 100 + 160)};
    return fromCodePage936(bytes);
}

bool hasSyllable(int number)
{
    const bool isCell = number % 100 >= 1 && number % 100 <= 94;
    return isCell && number >= 1601 && number <= 8794 && !(number > 5589 && number < 5601);
}

// The conversion by definition, byte by byte.
QString byteWalk(const QString &text)
{
    QString result;
    const QByteArray bytes = toCodePage936(text);
    int i = 0;
    while (i < bytes.size()) {
        const auto high = uchar(bytes.at(i));
        if (high < 128) {
            result += QLatin1Char(bytes.at(i++));
            continue;
        }
        if (i + 1 == bytes.size())
            break;
        const auto low = uchar(bytes.at(i + 1));
        i += 2;
        if (high < 0xA1 || low < 0xA1)
            continue;
        const int number = (high - 160) * 100 + low - 160;
        if (hasSyllable(number))
            result += CChCharacterToPP::syllable(characterOf(number).at(0));
        else
            result += QLatin1Char('?');
    }
    return result;
}

QString whole(const QString &text)
{
    return CChCharacterToPP().toPinyin(text, false);
}

QByteArray hex(const QString &text)
{
    QByteArray result;
    for (const QChar c : text)
        result += QByteArray::number(c.unicode(), 16) + ' ';
    return result;
}

// ü orders as u, and after it where nothing else differs.
QPair<QString, bool> orderKey(const QString &syllable)
{
    QString plain = syllable;
    const bool umlaut = plain.contains(QLatin1Char('V')) || plain.endsWith(QLatin1String("UE"));
    return {plain.replace(QLatin1Char('V'), QLatin1Char('U')),
            umlaut && (plain.startsWith(QLatin1Char('L')) || plain.startsWith(QLatin1Char('N')))};
}
} // namespace

class TstPinyin : public QObject
{
    Q_OBJECT

private slots:
    void bytesAreThoseOfTheCodePageEverywhere_data()
    {
        const Rows<QString, QByteArray> row{"text", "hex"};
        row("mixed", QString::fromUtf8("a张，镕é"), "61d5c5a3ace946a8a6");
        row("euro", QString::fromUtf8("€"), "80");
        row("single byte at the end", QString(QChar(0xF8F5)), "ff");
        row("none", QString::fromUtf8("ñǹ⺁€㑇⿰😀"), "3f3f3f803f3f3f");
        row("private", QString::fromUtf8("\ue000\ue234\ue4c6\ue766\ue76c\ue7c8\ue7f3\ue843\ue844"),
            "aaa1f8a1a140a2aba2e3a8bfa995fe7efe80");
        row("invisible", QString::fromUtf8("\u200b\ufeff\U000E0067"), "");
        row("half a pair", QString(QChar(0xDE00)) + QLatin1Char('a'), "3f61");
    }
    void bytesAreThoseOfTheCodePageEverywhere()
    {
        QFETCH(QString, text);
        QTEST(toCodePage936(text).toHex(), "hex");
    }

    // As two libraries agree on them.
    void noUnitHasOtherBytes()
    {
        QCryptographicHash all(QCryptographicHash::Sha1);
        for (int unit = 0; unit <= 0xFFFF; ++unit) {
            if (!QChar::isSurrogate(uint(unit)))
                all.addData(toCodePage936(QString(QChar(ushort(unit)))) + '\n');
        }
        QCOMPARE(all.result().toHex(), QByteArray("a05005693565716d7665c13001836e4fad736ac7"));
    }

    void everyUnitAnswersAsTheBytesDo()
    {
        int syllables = 0;
        for (int unit = 0; unit <= 0xFFFF; ++unit) {
            const QString text{QChar(ushort(unit))};
            if (whole(text) != byteWalk(text))
                QFAIL(("unit " + hex(text) + "gives " + whole(text).toLatin1()).constData());
            const bool known = !CChCharacterToPP::syllable(QChar(ushort(unit))).isEmpty();
            QCOMPARE(known, hasSyllable(numberOf(text)));
            syllables += known;
        }
        QCOMPARE(syllables, 6763);
    }

    void mixedTextsAnswerAsTheBytesDo()
    {
        // Every kind of unit that differs for the walk, so that each meets each.
        const QVector<ushort> special{'a',    '7',    0x5F20, 0x4E09, 0x6771, 0xFF0C,
                                      0x00F1, 0x20AC, 0xF8F5, 0xD83D, 0xDE00, 0xDB40,
                                      0xDC67, 0xFE0F, 0x200B, 0xE000, 0xE4C6, 0};
        QRandomGenerator random(20);
        for (int round = 0; round < 20000; ++round) {
            QString text;
            const bool withShift = round % 4 == 0;
            const int length = int(random.bounded(round % 10 == 0 ? 200 : 8));
            while (text.size() < length) {
                const bool any = random.bounded(3) == 0;
                const ushort unit = any ? ushort(random.bounded(0x10000))
                                        : special.at(int(random.bounded(special.size())));
                if (withShift || (unit != 0x20AC && unit != 0xF8F5))
                    text += QChar(unit);
            }
            if (whole(text) != byteWalk(text))
                QFAIL(("differs: " + hex(text)).constData());
        }
    }

    void levelOneFollowsThePinyinOrder()
    {
        const QSet<int> otherReading{2725, 3343, 4218, 5537}; // HAI, LE, SHEN, ZHE
        QString before;
        for (int number = 1601; number <= 5589; ++number) {
            if (number % 100 == 0 || number % 100 > 94 || otherReading.contains(number))
                continue;
            const QString now = whole(characterOf(number));
            if (orderKey(now) < orderKey(before))
                QFAIL(qPrintable(QStringLiteral("%1: %2 after %3").arg(number).arg(now, before)));
            before = now;
        }
    }

    void rangesOfLevelOne()
    {
        const struct
        {
            int first, last;
            const char *syllable;
        } ranges[] = {{1601, 1602, "A"},    {1603, 1615, "AI"},  {1616, 1624, "AN"},
                      {1625, 1627, "ANG"},  {1628, 1636, "AO"},  {5566, 5573, "ZU"},
                      {5574, 5575, "ZUAN"}, {5576, 5579, "ZUI"}, {5580, 5581, "ZUN"},
                      {5582, 5589, "ZUO"},  {2294, 2294, "ER"}};
        for (const auto &range : ranges) {
            for (int number = range.first; number <= range.last; ++number)
                QCOMPARE(whole(characterOf(number)), QString::fromLatin1(range.syllable));
        }
    }

    void disputedReadings()
    {
        const QString expected = QString::fromUtf8(
            "曾ZENG 单DAN 仇CHOU 查CHA 任REN 华HUA 解JIE 区QU 朴PU 尉WEI 盖GAI 乐LE 秘MI 员YUAN "
            "盛SHENG 薄BAO 葛GE 召ZHAO 万WAN 长CHANG 卜BU 翟DI 沈SHEN 缪MIAO 覃QIN 谌CHEN 隗WEI "
            "阚KAN 佴NAI 钭DOU 褚CHU 郗XI 郇XUN 宓MI 晟SHENG 珩HENG 焘TAO 吕LV 略LUE 虐NUE 二ER "
            "还HAI 了LE 什SHEN 着ZHE");
        for (const QString &pair : expected.split(QLatin1Char(' ')))
            QCOMPARE(pair.at(0) + whole(pair.left(1)), pair);
    }

    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("all");
        QTest::addColumn<QString>("first");
        const auto row = [](const char *name, const char *text, const char *all,
                            const char *first) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromLatin1(all)
                                << QString::fromLatin1(first);
        };
        row("empty", "", "", "");
        row("mixed", "张abc1", "ZHANGabc1", "ZHANG");
        row("letter first", "a张", "aZHANG", "a");
        row("full-width mark", "，张", "?ZHANG", "?");
        row("only in GBK", "朱镕基", "ZHUJI", "ZHU");
        row("nothing left", "東龍", "", "");
        row("no GBK", "ñ", "?", "?");
        row("pair", "😀张", "?ZHANG", "?");
        row("single byte takes the next", "€张", "", "");
        row("single byte, even rest", "€a张", "ZHANG", "");
    }

    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, all);
        QFETCH(QString, first);
        QCOMPARE(CChCharacterToPP().toPinyin(text, false), all);
        QCOMPARE(CChCharacterToPP().toPinyin(text, true), first);
    }

    void longTextsAreConvertedToTheirEnd()
    {
        const QString name(1000, QChar(0x5F20));
        QCOMPARE(whole(name), QStringLiteral("ZHANG").repeated(1000));
        QCOMPARE(whole(name + QString::fromUtf8("€a李")),
                 QStringLiteral("ZHANG").repeated(1000) + QStringLiteral("LI"));
    }
};

FRIENDUI_TEST(TstPinyin)
#include "tst_pinyin.moc"
