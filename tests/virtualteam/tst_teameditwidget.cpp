// The dialog that asks for one line.
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/commandsfixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>

namespace {

const QString narrow16 = QStringLiteral("abcdefghijklmnop");
const QString wide16 = QString::fromUtf8("一二三四五六七八九十甲乙丙丁戊己");
const QString emoji = QString::fromUtf8("😀"); // two units

struct Dialog
{
    explicit Dialog(VirtualTeamEditWidget::Mode mode, const QString &preset = QString())
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        widget = new VirtualTeamEditWidget(mode, preset, nullptr);
        widget->present();
        line = widget->findChild<TeamNameEdit *>();
        sure = widget->findChild<QPushButton *>(QStringLiteral("btnSure"));
    }
    ~Dialog()
    {
        delete widget;
        TipBox::setNextAnswers(TipBox::ShowBox);
    }

    QPointer<VirtualTeamEditWidget> widget;
    TeamNameEdit *line;
    QPushButton *sure;
};

} // namespace

class TstTeamEditWidget : public QObject
{
    Q_OBJECT

private slots:
    void length_data()
    {
        const Rows<QString, QString> row{"text", "kept"};
        row("16 narrow", narrow16, narrow16);
        row("17 narrow", narrow16 + u'q', narrow16);
        row("16 wide", wide16, wide16);
        row("17 wide", wide16 + QString::fromUtf8("庚"), wide16);
        row("a pair that fits", narrow16.left(14) + emoji, narrow16.left(14) + emoji);
        row("a pair at the limit", narrow16.left(15) + emoji, narrow16.left(15));
        row("a pair behind it", narrow16 + emoji, narrow16);
        row("eight pairs and one", emoji.repeated(9), emoji.repeated(8));
    }

    void length()
    {
        QFETCH(QString, text);
        QFETCH(QString, kept);
        const Dialog dialog(VirtualTeamEditWidget::TeamName, QStringLiteral("old"));
        QGuiApplication::clipboard()->setText(text);
        dialog.line->paste(); // in the place of the old name, which is selected
        QCOMPARE(dialog.line->text(), kept);
        QTest::keyClick(dialog.line, Qt::Key_X);
        QCOMPARE(dialog.line->text(), kept.size() < 16 ? kept + u'x' : kept);
        const Dialog preset(VirtualTeamEditWidget::TeamName, text);
        QCOMPARE(preset.line->text(), kept);
    }

    void pairInsertedInTheMiddle()
    {
        const Dialog dialog(VirtualTeamEditWidget::Post, narrow16.left(15));
        dialog.line->setCursorPosition(3);
        QGuiApplication::clipboard()->setText(emoji);
        dialog.line->paste();
        QCOMPARE(dialog.line->text(), narrow16.left(15));
        QCOMPARE(dialog.line->cursorPosition(), 3);
    }

    void sends_data()
    {
        // sent: null: refused with `told`
        const Rows<int, QString, QString, QString> row{"mode", "text", "sent", "told"};
        using W = VirtualTeamEditWidget;
        const QString blanks = QStringLiteral("  ");
        const QString empty = QStringLiteral("");
        row("trimmed", W::TeamName, QStringLiteral(" a b "), QStringLiteral("a b"), {});
        row("line ends", W::Post, QStringLiteral("a\nb\n"), QStringLiteral("a b"), {});
        row("no name", W::TeamName, blanks, {}, QStringLiteral("teamNameNotempty"));
        row("no new group", W::AddGroup, blanks, {}, QStringLiteral("teamnotempty"));
        row("no group", W::RenameGroup, empty, {}, QStringLiteral("teamnotempty"));
        row("no nick name", W::NickName, blanks, empty, {});
        row("no post", W::Post, empty, empty, {});
    }

    void sends()
    {
        QFETCH(int, mode);
        QFETCH(QString, text);
        QFETCH(QString, sent);
        const Dialog dialog(VirtualTeamEditWidget::Mode(mode), QStringLiteral("old"));
        const QSignalSpy spy(dialog.widget, &VirtualTeamEditWidget::signal_sure);
        const int boxes = TipBox::count();
        dialog.line->selectAll();
        dialog.line->insert(text);
        QTest::keyClick(dialog.line, Qt::Key_Return);
        QCOMPARE(spy.size(), sent.isNull() ? 0 : 1);
        QCOMPARE(TipBox::count() - boxes, sent.isNull() ? 1 : 0);
        QCOMPARE(dialog.widget->isWaiting(), !sent.isNull());
        if (sent.isNull())
            QTEST(TipBox::lastText(), "told");
        else
            QCOMPARE(spy.first().first().toString(), sent);
    }

    void waits()
    {
        Dialog dialog(VirtualTeamEditWidget::AddGroup);
        const QSignalSpy spy(dialog.widget, &VirtualTeamEditWidget::signal_sure);
        QTest::keyClicks(dialog.line, QStringLiteral("name"));
        const auto *state = dialog.widget->findChild<QLabel *>(QStringLiteral("note"));
        QVERIFY(state->text().isEmpty());
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(dialog.sure, Qt::LeftButton);
        QTest::keyClick(dialog.line, Qt::Key_Return);
        QTest::keyClicks(dialog.line, QStringLiteral("more"));
        QCOMPARE(spy.size(), 1);
        QVERIFY(!dialog.sure->isEnabled());
        QVERIFY(!state->text().isEmpty());

        dialog.widget->finish(false);
        QVERIFY(state->text().isEmpty());
        QCOMPARE(dialog.line->text(), QStringLiteral("name"));
        QTest::keyClick(dialog.line, Qt::Key_Return);
        QCOMPARE(spy.size(), 2);
        dialog.widget->finish(true);
        QTRY_VERIFY(!dialog.widget);
    }

    void pictures_data() { addLooks(); }

    // Nothing is cut off, in either language.
    void pictures()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        setSkin(skin);
        const Language translated(language);
        for (const auto mode : {VirtualTeamEditWidget::AddGroup, VirtualTeamEditWidget::RenameGroup,
                                VirtualTeamEditWidget::NickName, VirtualTeamEditWidget::Post,
                                VirtualTeamEditWidget::TeamName}) {
            const Dialog dialog(mode, mode == VirtualTeamEditWidget::AddGroup ? QString() : wide16);
            const auto labels = dialog.widget->findChildren<QLabel *>();
            for (const QLabel *label : labels)
                QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
            const QString name = QStringLiteral("team_edit_%1_%2_%3").arg(mode).arg(skin, language);
            keepPicture(dialog.widget->grab().toImage(), name);
            if (mode != VirtualTeamEditWidget::TeamName)
                continue;
            QTest::mouseClick(dialog.sure, Qt::LeftButton);
            keepPicture(dialog.widget->grab().toImage(), name + QStringLiteral("_waiting"));
        }
        setSkin(QStringLiteral("light"));
    }
};

FRIENDUI_TEST(TstTeamEditWidget)
#include "tst_teameditwidget.moc"
