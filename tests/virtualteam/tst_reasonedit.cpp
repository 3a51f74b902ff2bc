// The limit of a reason's length.
#include "tests/support/testrunner.h"
#include "virtualteam/dialogs/reasonedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>

namespace {
// A full field: "0123456789" ten times.
QString full()
{
    return QStringLiteral("0123456789").repeated(10);
}

void type(QWidget *edit, const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const int length = text.at(i).isHighSurrogate() ? 2 : 1;
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text.mid(i, length));
        QCoreApplication::sendEvent(edit, &press);
        i += length - 1;
    }
}

const QString pair = QString::fromUtf8("😀"); // two units
} // namespace

class TstReasonEdit : public QObject
{
    Q_OBJECT

private slots:
    // What is typed, pasted or composed is what goes first.
    void tooMuchIsCutBeforeTheCursor_data()
    {
        const Rows<QString, int, QString, QString, int> row{"before", "cursor", "added", "after",
                                                            "cursorAfter"};
        row("at the end", full(), 100, "x", full(), 100);
        row("at the start", full(), 0, "xyz", full(), 0);
        row("in the middle", full(), 50, "xyz", full(), 50);
        row("fills up", full().left(98), 0, "xyz", "xy" + full().left(98), 2);
        row("fits", "ab", 1, "x", "axb", 2);
        row("a pair that fits", full().left(98), 98, pair, full().left(98) + pair, 100);
        row("half a pair would fit", full().left(99), 99, pair, full().left(99), 99);
        row("half a pair, in the middle", full().left(99), 50, pair, full().left(99), 50);
        row("pairs", pair.repeated(50), 100, pair, pair.repeated(50), 100);
        row("an odd place among pairs", "x" + pair.repeated(49), 99, pair, "x" + pair.repeated(49),
            99);
        row("behind a pair", full().left(97) + pair, 99, "yz", full().left(97) + pair + "y", 100);
    }

    void tooMuchIsCutBeforeTheCursor()
    {
        QFETCH(QString, before);
        QFETCH(int, cursor);
        QFETCH(QString, added);
        for (const char *way : {"typed", "pasted", "composed", "inserted"}) {
            ReasonEdit edit;
            edit.setPlainText(before);
            QTextCursor at = edit.textCursor();
            at.setPosition(cursor);
            edit.setTextCursor(at);
            if (qstrcmp(way, "typed") == 0) {
                type(&edit, added);
            } else if (qstrcmp(way, "inserted") == 0) {
                edit.insertPlainText(added);
            } else if (qstrcmp(way, "pasted") == 0) {
                QGuiApplication::clipboard()->setText(added);
                edit.paste();
            } else {
                QInputMethodEvent commit;
                commit.setCommitString(added);
                QCoreApplication::sendEvent(&edit, &commit);
            }
            QTEST(edit.toPlainText(), "after");
            QTEST(edit.textCursor().position(), "cursorAfter");
        }
    }

    // With nothing before the cursor the end goes, and no half of a pair stays there.
    void aTextThatIsSet_data()
    {
        const Rows<QString, QString> row{"text", "kept"};
        row("one too many", full() + "x", full());
        row("many", full().repeated(1000), full());
        row("a pair across the limit", full().left(99) + pair + "abc", full().left(99));
    }

    void aTextThatIsSet()
    {
        QFETCH(QString, text);
        ReasonEdit edit;
        const QSignalSpy lengths(&edit, &ReasonEdit::lengthChanged);
        edit.setPlainText(text);
        QTEST(edit.toPlainText(), "kept");
        QCOMPARE(edit.textCursor().position(), 0);
        QCOMPARE(lengths.last().first().toInt(), edit.toPlainText().size());
    }

    // The whole of it is never laid out: the document stays that small.
    void aBookIsPasted()
    {
        ReasonEdit edit;
        edit.setPlainText(QStringLiteral("ab"));
        edit.moveCursor(QTextCursor::End);
        int longest = 0;
        connect(edit.document(), &QTextDocument::contentsChange, &edit,
                [&](int, int, int added) { longest = qMax(longest, added); });
        QGuiApplication::clipboard()->setText(QString(1024 * 1024, QLatin1Char('x')));
        edit.paste();
        QCOMPARE(edit.toPlainText(), QStringLiteral("ab") + QString(98, QLatin1Char('x')));
        QVERIFY(longest <= 101);
        edit.selectAll();
        edit.paste();
        QCOMPARE(edit.toPlainText(), QString(100, QLatin1Char('x')));
    }

    void whatIsBeingComposedCountsLater()
    {
        ReasonEdit edit;
        edit.setPlainText(full());
        QInputMethodEvent composing(QStringLiteral("ni"), {});
        QCoreApplication::sendEvent(&edit, &composing);
        QCOMPARE(edit.toPlainText(), full());
        QInputMethodEvent commit;
        commit.setCommitString(QString::fromUtf8("你"));
        QCoreApplication::sendEvent(&edit, &commit);
        QCOMPARE(edit.toPlainText(), full());
    }

    void undoBringsTheTextBack_data()
    {
        const Rows<QString> row{"way"};
        row("typed", "typed");
        row("pasted", "pasted");
    }

    void undoBringsTheTextBack()
    {
        QFETCH(QString, way);
        ReasonEdit edit;
        edit.insertPlainText(full().left(99));
        if (way == QLatin1String("pasted")) {
            QGuiApplication::clipboard()->setText(QStringLiteral("abc"));
            edit.moveCursor(QTextCursor::Start);
            edit.paste();
        } else {
            edit.moveCursor(QTextCursor::Start);
            type(&edit, QStringLiteral("abc"));
        }
        QCOMPARE(edit.toPlainText(), QLatin1Char('a') + full().left(99));
        edit.undo();
        QCOMPARE(edit.toPlainText(), full().left(99));
        edit.redo();
        QCOMPARE(edit.toPlainText(), QLatin1Char('a') + full().left(99));
    }

    // A full field is edited on: what is selected gives room, and keys that add nothing
    // work as ever.
    void aFullFieldIsEdited()
    {
        ReasonEdit edit;
        edit.setPlainText(full());
        QTest::keyClick(&edit, Qt::Key_Return);
        QCOMPARE(edit.toPlainText(), full());
        edit.moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
        QTest::keyClick(&edit, Qt::Key_X);
        QCOMPARE(edit.toPlainText(), QLatin1Char('x') + full().mid(1));
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTest::keyClick(&edit, Qt::Key_Delete);
        QCOMPARE(edit.toPlainText(), full().mid(2));
        QTest::keySequence(&edit, QKeySequence::SelectAll);
        QTest::keyClick(&edit, Qt::Key_Y);
        QCOMPARE(edit.toPlainText(), QStringLiteral("y"));
    }
};

FRIENDUI_TEST(TstReasonEdit)
#include "tst_reasonedit.moc"
