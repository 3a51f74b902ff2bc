#include "controls/tipbox.h"

#include <QApplication>
#include <QPushButton>

#include <algorithm>

namespace {
TipBox::Answer s_answer = TipBox::ShowBox;
QString s_lastText;
int s_count = 0;

// Events that come by the thousand tell the same thing each time: once is enough.
QMessageBox *boxThatTells(const QString &text)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto tells = [&text](const QWidget *window) {
        const auto *box = qobject_cast<const TipBox *>(window);
        return box && box->isVisible() && box->text() == text && box->buttons().size() == 1;
    };
    const auto at = std::find_if(windows.begin(), windows.end(), tells);
    return at == windows.end() ? nullptr : static_cast<QMessageBox *>(*at);
}
} // namespace

TipBox::TipBox(QWidget *parent, const QString &text) : QMessageBox(parent)
{
    setObjectName(QStringLiteral("TipBox"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QObject::tr("tip"));
    setTextFormat(Qt::PlainText);
    setText(text);
}

bool TipBox::answeredByTest(const QString &text, const std::function<void()> &whenSure)
{
    s_lastText = text;
    ++s_count;
    if (s_answer == ShowBox)
        return false;
    if (s_answer == Sure && whenSure)
        whenSure();
    return true;
}

void TipBox::tell(QWidget *parent, const QString &text, const QString &button)
{
    if (answeredByTest(text, {}))
        return;
    if (QMessageBox *open = boxThatTells(text)) {
        open->raise();
        return;
    }
    auto *box = new TipBox(parent, text);
    box->setIcon(QMessageBox::Information);
    box->addButton(button.isEmpty() ? QObject::tr("sure") : button, QMessageBox::AcceptRole);
    box->open();
}

void TipBox::ask(QWidget *parent, const QString &text, const std::function<void()> &whenSure,
                 const QString &title)
{
    if (answeredByTest(text, whenSure))
        return;
    auto *box = new TipBox(parent, text);
    if (!title.isEmpty())
        box->setWindowTitle(title);
    box->setIcon(QMessageBox::Question);
    QPushButton *sure = box->addButton(QObject::tr("sure"), QMessageBox::AcceptRole);
    QPushButton *cancel = box->addButton(QObject::tr("cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    connect(sure, &QPushButton::clicked, parent, whenSure);
    box->open();
}

void TipBox::setNextAnswers(Answer answer)
{
    s_answer = answer;
}
QString TipBox::lastText()
{
    return s_lastText;
}
int TipBox::count()
{
    return s_count;
}
