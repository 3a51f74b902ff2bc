// What of a line is left where it does not fit.
#include "controls/markedline.h"

#include "controls/skin.h"
#include "tests/support/testrunner.h"

class TstMarkedLine : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheMatchInSight()
    {
        const MarkedLine painted(skinFont(12));
        const QString text = QStringLiteral("a.rather.long.account@somewhere.example.org");
        for (const QString &word :
             {QStringLiteral("a.rather"), QStringLiteral("account"), QStringLiteral("org"), text}) {
            const MarkedText line{text, {{text.indexOf(word), word.size()}}};
            QCOMPARE(painted.fitted(line, painted.width(line), Qt::ElideRight).text, text);
            for (int width = 0; width < painted.width(line); width += 7) {
                const MarkedText cut = painted.fitted(line, width, Qt::ElideRight);
                QVERIFY(cut.text.size() < text.size() || cut.text == QChar(0x2026));
                for (const SearchMark &mark : cut.marks)
                    QVERIFY(word.contains(cut.text.mid(mark.first, mark.second)));
                if (width < 90)
                    continue;
                QVERIFY2(painted.width(cut) <= width, qPrintable(cut.text));
                QCOMPARE(cut.marks.size(), 1);
                const SearchMark mark = cut.marks.first();
                if (word != text)
                    QCOMPARE(cut.text.mid(mark.first, mark.second), word);
            }
        }
    }

    void aPathIsCutAtItsBeginning()
    {
        const MarkedLine painted(skinFont(12));
        const MarkedText path{QStringLiteral("Company / Division / Section"), {}};
        const MarkedText cut = painted.fitted(path, 80, Qt::ElideLeft);
        QVERIFY(cut.text.endsWith(QStringLiteral("Section")));
        QVERIFY(painted.width(cut) <= 80);
    }
};

FRIENDUI_TEST(TstMarkedLine)
#include "tst_markedline.moc"
