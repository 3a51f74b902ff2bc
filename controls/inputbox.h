// Asks for one line of text without blocking. A refused text is told and stays
// in the box, so that nothing that was typed is lost.
#pragma once

#include <QInputDialog>

#include <functional>

class InputBox : public QInputDialog
{
    Q_OBJECT

public:
    // Why a text is refused, as a sentence for the user; empty = it is fine.
    using Check = std::function<QString(const QString &)>;
    using Accepted = std::function<void(const QString &)>;

    // `accepted` is called with the text as typed, once, if the user confirms a
    // text that passes `check` while `parent` is alive.
    static InputBox *ask(QWidget *parent, const QString &title, const QString &label,
                         const QString &preset, const Check &check, const Accepted &accepted);

    // In characters; what is beyond it cannot be typed or pasted.
    void setMaximumLength(int length);

    void done(int result) override;

private:
    explicit InputBox(QWidget *parent);

    Check m_check;
    Accepted m_accepted;
};
