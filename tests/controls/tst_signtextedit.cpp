// The menu of a field of several lines.
#include "controls/signtextedit.h"
#include "tests/support/testrunner.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

namespace {

// The entries as "text" or "(text)" for one that cannot be chosen.
QStringList entries(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts.append(action->isEnabled() ? action->text() : '(' + action->text() + ')');
    return texts;
}

QMenu *openMenu(QTextEdit *edit)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(edit->viewport(), &event);
    return edit->findChild<QMenu *>(QStringLiteral("textMenu"));
}

void choose(QTextEdit *edit, int entry)
{
    QMenu *menu = openMenu(edit);
    menu->actions().at(entry)->trigger();
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TstSignTextEdit : public QObject
{
    Q_OBJECT

private slots:
    void offersWhatCanBeDone_data()
    {
        const Rows<QString, bool, QString, bool, QString> row{"text", "selected", "clipboard",
                                                              "readOnly", "menu"};
        row("nothing", "", false, "", false, "(剪切(&T))|(复制(&C))|(粘贴(&P))|(清空)|(全选)");
        row("text", "ab", false, "", false, "(剪切(&T))|(复制(&C))|(粘贴(&P))|清空|全选");
        row("selection", "ab", true, "c", false, "剪切(&T)|复制(&C)|粘贴(&P)|清空|全选");
        row("read only", "ab", true, "c", true, "(剪切(&T))|复制(&C)|(粘贴(&P))|(清空)|全选");
    }

    void offersWhatCanBeDone()
    {
        QFETCH(QString, text);
        QFETCH(bool, selected);
        QFETCH(QString, clipboard);
        QFETCH(bool, readOnly);
        QGuiApplication::clipboard()->setText(clipboard);
        SignTextEdit edit;
        edit.show();
        edit.setPlainText(text);
        edit.setReadOnly(readOnly);
        if (selected)
            edit.selectAll();
        const QMenu *menu = openMenu(&edit);
        QVERIFY(menu && menu->isVisible());
        QTEST(entries(menu).join(QLatin1Char('|')), "menu");
    }

    void doesWhatIsChosen()
    {
        SignTextEdit edit;
        edit.show();
        edit.setPlainText(QStringLiteral("one\ntwo"));
        choose(&edit, 4);
        choose(&edit, 1);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("one\ntwo"));
        choose(&edit, 0);
        QVERIFY(edit.toPlainText().isEmpty());
        choose(&edit, 2);
        choose(&edit, 2);
        QCOMPARE(edit.toPlainText(), QStringLiteral("one\ntwoone\ntwo"));
        choose(&edit, 3);
        QVERIFY(edit.toPlainText().isEmpty());
        edit.undo();
        QCOMPARE(edit.toPlainText(), QStringLiteral("one\ntwoone\ntwo"));
    }

    void takesPlainTextOnly()
    {
        auto *rich = new QMimeData;
        rich->setHtml(QStringLiteral("<b>bold</b><img src=\"/etc/passwd\">"));
        rich->setText(QStringLiteral("<b>text</b>"));
        QGuiApplication::clipboard()->setMimeData(rich);
        SignTextEdit edit;
        edit.paste();
        QCOMPARE(edit.toPlainText(), QStringLiteral("<b>text</b>"));
    }
};

FRIENDUI_TEST(TstSignTextEdit)
#include "tst_signtextedit.moc"
