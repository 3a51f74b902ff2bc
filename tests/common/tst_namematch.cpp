// What type-to-find finds, and what it leaves alone.
#include "common/namematch.h"
#include "tests/support/testrunner.h"

class TstNameMatch : public QObject
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
        row("Łódź", "łodz|łódź", "odz");
        row("A😀b", "a😀|a😀b", "😀b|b");
        row("张\u202E三", "z|zs|zhangsan", "s");
    }

    void matches()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, found);
        QFETCH(QStringList, missed);
        for (const QString &typed : found)
            QVERIFY2(nameMatches(name, typed), qPrintable(typed));
        for (const QString &typed : missed)
            QVERIFY2(!nameMatches(name, typed), qPrintable(typed));
    }

    void emptyTextFindsEverything()
    {
        QVERIFY(nameMatches(QStringLiteral("Bob"), QString()));
        QVERIFY(nameMatches(QString(), QStringLiteral(" ")));
        QVERIFY(!nameMatches(QString(), QStringLiteral("b")));
    }

    void longTextsCountByTheirBeginning()
    {
        const QString name(10000, QChar(0x5F20));
        QVERIFY(nameMatches(name, QStringLiteral("z").repeated(10000)));
        QVERIFY(nameMatches(name, name));
        QVERIFY(!nameMatches(name, QStringLiteral("z").repeated(63) + QLatin1Char('x')));
        // Every place of the set is used: the last bit, and one beyond.
        QVERIFY(nameMatches(name, QStringLiteral("z").repeated(63) + QLatin1Char('\'')));
        QVERIFY(nameMatches(QString(100, QLatin1Char('a')), QString(64, QLatin1Char('a'))));
        QVERIFY(!nameMatches(QString(63, QLatin1Char('a')), QString(64, QLatin1Char('a'))));
        const QString marks = QLatin1Char('a') + QString(10000, QChar(0x0301));
        QVERIFY(nameMatches(marks, QStringLiteral("a")));
        QVERIFY(nameMatches(QString(70, QChar(0xD83D)), QString(70, QChar(0xD83D))));
    }
};

FRIENDUI_TEST(TstNameMatch)
#include "tst_namematch.moc"
