// All message boxes of the plug-in: plain text under the title "tip". None of
// them blocks its caller, since many are raised while the host waits inside an
// event.
#pragma once

#include <QMessageBox>

#include <functional>

class TipBox : public QMessageBox
{
    Q_OBJECT

public:
    // Shows a text, unless a box shows it already; `button` is the button's text,
    // tr("sure") when empty.
    static void tell(QWidget *parent, const QString &text, const QString &button = QString());

    // Asks with "sure" and "cancel" and calls `whenSure` for the former, unless
    // `parent` is gone by then. Cancel is the default. `title`: tr("tip") when empty.
    static void ask(QWidget *parent, const QString &text, const std::function<void()> &whenSure,
                    const QString &title = QString());

    // For tests: while set, boxes are not shown but answered at once.
    enum Answer
    {
        ShowBox,
        Sure,
        Cancel
    };
    static void setNextAnswers(Answer answer);
    static QString lastText();
    static int count(); // of boxes since the process started

private:
    TipBox(QWidget *parent, const QString &text);
    static bool answeredByTest(const QString &text, const std::function<void()> &whenSure);
};
