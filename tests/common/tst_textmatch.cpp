// What type-to-find finds, and what it leaves alone.
#include "common/textmatch.h"
#include "tests/support/testrunner.h"

class TstTextMatch : public QObject
{
    Q_OBJECT

private slots:
    void matches_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("found");
        QTest::addColumn<QStringList>("missed");
        const auto row = [](const char *name, const char *found, const char *missed) {
            QTest::newRow(name) << QString::fromUtf8(name)
                                << QString::fromUtf8(found).split(QLatin1Char('|'))
                                << QString::fromUtf8(missed).split(QLatin1Char('|'));
        };
        row("张三",
            "z|zh|zha|zhang|zhangs|zhangsa|zhangsan|zs|zhs|zsan|zhsan|ZS|张|张三|张s|zhang三|"
            "zhang san|ｚｓ",
            "s|san|三|ang|hs|zhas|zhangan|zhangsanx|zsn|张四|zz");
        row("李明朗", "lml|limi|lim|lmlang|liml|李ml|limlang", "ml|ming|lmang|lil");
        // 西安 has a boundary where 线 has none.
        row("西安", "xian|xi'an|xi an|xa|xia|x’a", "xn|xin");
        row("线", "xian|xi|x", "xi'an|xa|xi an");
        row("吕略", "lv|lu|lvlve|lulue|ll|lü|lvl", "lx");
        row("路", "lu", "lv");
        row("二", "er|e", "r");
        row("阿卜杜·热合曼", "abdrhm|abudu·re|reheman|rhm|热合", "heman|bdrhm");
        row("Anna Müller", "ann|müll|mull|MULLER|anna m|anna müller|annam", "nna|uller|am|anna x");
        row("ＡＢＣ公司", "abc|ABC|gs|gongsi|abcg|公司", "bc|si");
        row("销售部Tom", "tom|xsb|xsbt|xiaoshoubutom", "om|bu");
        row("#Debugger", "debug|#debug", "bug");
        row("東方", "東|東f|東方", "d|dong|f|方");
        row("café 2号", "cafe|2h|2号|2hao|hao", "e 2|ao");
        row("Łódź", "łodz|łódź|lodz", "odz");
        row("Åse Sørbæk", "ase so|sorbaek|sørbæk", "orb");
        row("A😀b", "a😀|a😀b", "😀b|b");
        row("单于雄信", "chanyu|cyxx|danyu|shan", "chanx");
        row("单雄信", "shan|shanx|dan|sxx", "chan");
        row("万俟卨", "moqi|mq|wan", "mx");
        row("万三", "wan|ws", "mo|ms");
        row("音乐", "yinyue|yinle|yy|yl", "yi y");
        row("王仇", "wangc", "wangq");
        row("李祎", "liyi|ly", "lw");
        row("张\u202E三", "z|zs|zhangsan", "s");
    }

    void matches()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, found);
        QFETCH(QStringList, missed);
        for (const QString &typed : found)
            QVERIFY2(TextPattern(typed).match(name).kind >= TextMatch::Word, qPrintable(typed));
        for (const QString &typed : missed)
            QVERIFY2(TextPattern(typed).match(name).kind < TextMatch::Word, qPrintable(typed));
    }

    // What is found how, with what is highlighted between brackets.
    void kindsAndPlaces_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("marked");
        QTest::addColumn<int>("kind");
        const auto row = [](const char *typed, const char *marked, TextMatch::Kind kind) {
            QTest::addRow("%s in %s", typed, marked)
                << QString::fromUtf8(typed) << QString::fromUtf8(marked) << int(kind);
        };
        row("zhangsan", "[张三]", TextMatch::Exact);
        row("张三", "[张三]", TextMatch::Exact);
        row("zhang san", "[张三]", TextMatch::Exact);
        row("z", "[张]三", TextMatch::Prefix);
        row("zh", "[张]三", TextMatch::Prefix);
        row("zhangs", "[张三]", TextMatch::Prefix);
        row("zs", "[张三]", TextMatch::Initials);
        row("zhs", "[张三]", TextMatch::Initials);
        row("zsan", "[张三]丰", TextMatch::Initials);
        row("san", "张[三]", TextMatch::Inside);
        row("三丰", "张[三丰]", TextMatch::Inside);
        row("sf", "张[三丰]", TextMatch::Inside);
        row("xian", "[西安]", TextMatch::Exact);
        row("xia", "[西安]", TextMatch::Prefix);
        row("xi'", "[西]安", TextMatch::Prefix);
        row("muller", "Anna [Müller]", TextMatch::Word);
        row("annam", "[Anna M]üller", TextMatch::Prefix);
        row("00123", "E[00123]", TextMatch::Word);
        row("debugger", "#[Debugger]", TextMatch::Exact);
        row("#d", "[#D]ebugger", TextMatch::Prefix);
        row("abc", "[ＡＢＣ]公司", TextMatch::Prefix);
        row("gs", "ＡＢＣ[公司]", TextMatch::Word);
        row("zhangsan", "[张\u202E三]", TextMatch::Exact);
        row("cafe", "Le [cafe]\u0301", TextMatch::Word);
        row("fi", "[ﬁ]n", TextMatch::Prefix);
        row("b", "a😀 [b]", TextMatch::Word);
        row("😀", "[😀]b", TextMatch::Prefix);
    }

    void kindsAndPlaces()
    {
        QFETCH(QString, typed);
        QFETCH(QString, marked);
        QFETCH(int, kind);
        const int start = marked.indexOf(QLatin1Char('['));
        const int end = marked.indexOf(QLatin1Char(']')) - 1;
        marked.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
        const TextMatch match = TextPattern(typed).match(marked);
        QCOMPARE(int(match.kind), kind);
        QCOMPARE(match.start, start);
        QCOMPARE(match.length, end - start);
    }

    void emptyTextFindsNothing()
    {
        QVERIFY(TextPattern(QStringLiteral(" \u200b")).isEmpty());
        QCOMPARE(TextPattern(QString()).match(QStringLiteral("Bob")).kind, TextMatch::None);
        QCOMPARE(TextPattern(QStringLiteral("b")).match(QString()).kind, TextMatch::None);
    }

    void longTextsCountByTheirBeginning()
    {
        const auto finds = [](const QString &name, const QString &typed) {
            return TextPattern(typed).match(name).kind != TextMatch::None;
        };
        const QString name(10000, QChar(0x5F20));
        QVERIFY(finds(name, QStringLiteral("z").repeated(10000)));
        QVERIFY(finds(name, name));
        QVERIFY(!finds(name, QStringLiteral("z").repeated(63) + QLatin1Char('x')));
        // Every place of the set is used: the last bit, and one beyond.
        QVERIFY(finds(name, QStringLiteral("z").repeated(63) + QLatin1Char('\'')));
        QVERIFY(finds(QString(100, QLatin1Char('a')), QString(64, QLatin1Char('a'))));
        QVERIFY(!finds(QString(63, QLatin1Char('a')), QString(64, QLatin1Char('a'))));
        const QString marks = QLatin1Char('a') + QString(10000, QChar(0x0301));
        QVERIFY(finds(marks, QStringLiteral("a")));
        QVERIFY(finds(QString(70, QChar(0xD83D)), QString(70, QChar(0xD83D))));
    }
};

FRIENDUI_TEST(TstTextMatch)
#include "tst_textmatch.moc"
