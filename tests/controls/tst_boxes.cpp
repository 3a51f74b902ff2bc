// Message and input boxes.
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "tests/support/testrunner.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <memory>

class TstBoxes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        TipBox::setNextAnswers(TipBox::ShowBox);
        m_window = std::make_unique<QWidget>();
        m_window->show();
    }

    void cleanup() { m_window.reset(); }

    void tellsInPlainText()
    {
        const QString text = QStringLiteral("<b>bold</b> & <img src=\"x\">");
        TipBox::tell(m_window.get(), text, QString::fromUtf8("确定"));
        const QPointer<TipBox> shown = box();
        QVERIFY(shown && shown->isVisible());
        QCOMPARE(shown->windowTitle(), QStringLiteral("tip"));
        QCOMPARE(shown->text(), text);
        for (const QLabel *label : shown->findChildren<QLabel *>())
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
        QCOMPARE(shown->buttons().size(), 1);
        QCOMPARE(shown->buttons().first()->text(), QString::fromUtf8("确定"));
        QTest::keyClick(shown.data(), Qt::Key_Escape);
        QTRY_VERIFY(!shown);
    }

    void tellsTheSameOnce()
    {
        // As from events without a window of their own: the parent is the box before.
        QWidget *parent = m_window.get();
        for (int i = 0; i < 3; ++i) {
            TipBox::tell(parent, QStringLiteral("offline"));
            parent = box();
        }
        QCOMPARE(m_window->findChildren<TipBox *>().size(), 1);
        TipBox::tell(m_window.get(), QStringLiteral("something else"));
        QCOMPARE(m_window->findChildren<TipBox *>().size(), 2);
        // A question is never an answer's stand-in.
        TipBox::ask(m_window.get(), QStringLiteral("really?"), [] {});
        TipBox::tell(m_window.get(), QStringLiteral("really?"));
        QCOMPARE(m_window->findChildren<TipBox *>().size(), 4);
    }

    void asks_data()
    {
        const Rows<int, int> row{"key", "calls"};
        row("Esc", int(Qt::Key_Escape), 0);
        row("Enter is cancel", int(Qt::Key_Return), 0);
        row("sure", 0, 1);
    }

    void asks()
    {
        QFETCH(int, key);
        QFETCH(int, calls);
        int called = 0;
        TipBox::ask(m_window.get(), QStringLiteral("really?"), [&called] { ++called; });
        const QPointer<TipBox> shown = box();
        QVERIFY(shown);
        if (key != 0) {
            QTest::keyClick(shown.data(), Qt::Key(key));
        } else {
            for (QAbstractButton *button : shown->buttons()) {
                if (button->text() == QStringLiteral("sure"))
                    button->click();
            }
        }
        QTRY_VERIFY(!shown);
        QCOMPARE(called, calls);
    }

    void parentGone()
    {
        int called = 0;
        TipBox::ask(m_window.get(), QStringLiteral("really?"), [&called] { ++called; });
        InputBox::ask(m_window.get(), QStringLiteral("t"), QStringLiteral("l"), QString(), {},
                      [&called](const QString &) { ++called; });
        const QPointer<TipBox> shown = box();
        m_window.reset();
        QVERIFY(!shown);
        QCoreApplication::processEvents();
        QCOMPARE(called, 0);
    }

    void inputStaysWhenRefused()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        QString accepted;
        const QPointer<InputBox> input = InputBox::ask(
            m_window.get(), QStringLiteral("title"), QStringLiteral("label"),
            QStringLiteral("preset"),
            [](const QString &text) {
                return text == QLatin1String("ok") ? QString() : text + '!';
            },
            [&accepted](const QString &text) { accepted = text; });
        QCOMPARE(input->textValue(), QStringLiteral("preset"));
        auto *edit = input->findChild<QLineEdit *>();
        QVERIFY(edit);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(input && input->isVisible());
        QCOMPARE(TipBox::lastText(), QStringLiteral("preset!"));
        QCOMPARE(edit->text(), QStringLiteral("preset"));
        QVERIFY(accepted.isEmpty());
        edit->setText(QStringLiteral("ok"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(accepted, QStringLiteral("ok"));
        QTRY_VERIFY(!input);
    }

    void inputAnswersOnce()
    {
        int called = 0;
        const QPointer<InputBox> input =
            InputBox::ask(m_window.get(), QStringLiteral("t"), QStringLiteral("l"), QString(), {},
                          [&called](const QString &) { ++called; });
        input->accept();
        if (input)
            input->accept();
        QTRY_VERIFY(!input);
        QCOMPARE(called, 1);
    }

    void inputCancelled()
    {
        int called = 0;
        const QPointer<InputBox> input = InputBox::ask(
            m_window.get(), QStringLiteral("t"), QStringLiteral("l"), QStringLiteral("x"),
            [&called](const QString &) {
                ++called;
                return QString();
            },
            [&called](const QString &) { ++called; });
        QTest::keyClick(input.data(), Qt::Key_Escape);
        QTRY_VERIFY(!input);
        QCOMPARE(called, 0);
    }

private:
    TipBox *box() const { return m_window->findChild<TipBox *>(); }

    std::unique_ptr<QWidget> m_window;
};

FRIENDUI_TEST(TstBoxes)
#include "tst_boxes.moc"
