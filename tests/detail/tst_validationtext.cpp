// The validation text is held to its length while it is typed.
#include "controls/validationtext.h"
#include "tests/detail/addfriendfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {
QString wide(int count)
{
    return QString(count, QChar(0x4E2D));
}
QString narrow(int count)
{
    return QString(count, QLatin1Char('a'));
}
} // namespace

class TstValidationText : public QObject
{
    Q_OBJECT

private slots:
    void lengths_data()
    {
        const Rows<QString, int> row{"text", "length"};
        row("empty", "", 0);
        row("narrow", "ab 1", 4);
        row("first wide", QString(QChar(0x4E00)), 2);
        row("last wide", QString(QChar(0x9FA5)), 2);
        row("before the first", QString(QChar(0x4DFF)), 1);
        row("behind the last", QString(QChar(0x9FA6)), 1);
        row("full-width letter", QString(QChar(0xFF21)), 1);
    }

    void lengths()
    {
        QFETCH(QString, text);
        QTEST(ValidationText::weightedLength(text), "length");
    }

    void isCut_data()
    {
        // cursor: where `typed` goes in
        const Rows<QString, int, QString, QString, int> row{"before", "cursor", "typed", "after",
                                                            "cursorAfter"};

        const QString face = QString::fromUtf8("😀");
        row("ten wide fit", wide(9), 9, wide(1), wide(10), 10);
        row("the eleventh goes", wide(10), 10, wide(1), wide(10), 10);
        row("one narrow too many", narrow(20), 20, "b", narrow(20), 20);
        row("odd: whole characters", narrow(19), 19, wide(2), narrow(18), 18);
        row("a paste of 200", "", 0, narrow(200), narrow(20), 20);
        row("mixed", wide(9) + QStringLiteral("b"), 10, QStringLiteral("c") + wide(1),
            wide(9) + QStringLiteral("bc"), 11);
        row("in the middle", narrow(20), 5, "x", narrow(20), 5);
        row("a pair at the end", narrow(19), 19, face, narrow(19), 19);
        row("a pair before what is typed", narrow(17) + face, 19, wide(2), narrow(17), 17);
    }

    void isCut()
    {
        QFETCH(QString, before);
        QFETCH(int, cursor);
        QFETCH(QString, typed);
        AddFriendFixture f;
        ValidationEdit *edit = f.openForm()->findChild<ValidationEdit *>();
        edit->setPlainText(before);
        QCOMPARE(edit->toPlainText(), before);
        QTextCursor at = edit->textCursor();
        at.setPosition(cursor);
        edit->setTextCursor(at);
        edit->insertPlainText(typed);
        QTEST(edit->toPlainText(), "after");
        QTEST(edit->textCursor().position(), "cursorAfter");
        QVERIFY(ValidationText::weightedLength(edit->toPlainText()) <= 20);
        const int length = ValidationText::weightedLength(edit->toPlainText());
        QCOMPARE(f.text(f.manager()->dialog(f.anna()), "validationLength"),
                 QStringLiteral("%1/20").arg(length));
    }

    void isCutAtTheEndWithoutACursor()
    {
        AddFriendFixture f;
        const LogCapture log(f.host.context);
        ValidationEdit *edit = f.openForm()->findChild<ValidationEdit *>();
        edit->setPlainText(QStringLiteral("start") + narrow(40)); // leaves the cursor at 0
        QCOMPARE(edit->toPlainText(), QStringLiteral("start") + narrow(15));
        QVERIFY(!log.linesWith("length > maxLength").isEmpty());
    }

    void isOneLine()
    {
        AddFriendFixture f;
        AddFriend *dialog = f.openForm();
        QGuiApplication::clipboard()->setText(QStringLiteral("<b>a</b>\r\nb\nc"));
        dialog->findChild<ValidationEdit *>()->paste();
        // From an input method, past the clipboard.
        dialog->findChild<ValidationEdit *>()->insertPlainText(QStringLiteral("\nd"));
        dialog->slot_next();
        const auto [jid, text, group, remark, mode] =
            f.host.arguments<QString, QString, QString, QString, qint32>(Outbound::AddContact);
        QCOMPARE(text, QStringLiteral("<b>a</b> b c d"));
    }
};

FRIENDUI_TEST(TstValidationText)
#include "tst_validationtext.moc"
