#include "controls/inputbox.h"

#include "controls/tipbox.h"

#include <QLineEdit>

InputBox::InputBox(QWidget *parent) : QInputDialog(parent)
{
    setObjectName(QStringLiteral("InputBox"));
    setAttribute(Qt::WA_DeleteOnClose);
    setInputMode(QInputDialog::TextInput);
    setOkButtonText(QObject::tr("sure"));
    setCancelButtonText(QObject::tr("cancel"));
}

InputBox *InputBox::ask(QWidget *parent, const QString &title, const QString &label,
                        const QString &preset, const Check &check, const Accepted &accepted)
{
    auto *box = new InputBox(parent);
    box->setWindowTitle(title);
    box->setLabelText(label);
    box->setTextValue(preset);
    box->m_check = check;
    box->m_accepted = accepted;
    box->resize(320, box->sizeHint().height());
    box->open(); // makes the line
    if (auto *edit = box->findChild<QLineEdit *>())
        edit->selectAll(); // typing replaces what is there
    return box;
}

void InputBox::setMaximumLength(int length)
{
    if (auto *edit = findChild<QLineEdit *>()) {
        edit->setMaxLength(length);
        edit->selectAll(); // which the line forgets with its limit
    }
}

void InputBox::done(int result)
{
    if (result == QDialog::Accepted) {
        const QString refusal = m_check ? m_check(textValue()) : QString();
        if (!refusal.isEmpty()) {
            TipBox::tell(this, refusal);
            return;
        }
    }
    const Accepted accepted = result == QDialog::Accepted ? m_accepted : Accepted();
    const QString text = textValue();
    m_accepted = nullptr;
    QInputDialog::done(result);
    if (accepted)
        accepted(text);
}
