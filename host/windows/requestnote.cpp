#include "host/windows/requestnote.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int MaximumLines = 5000;
}

RequestNote::RequestNote(QWidget *parent, const QString &title, const QString &explanation,
                         const QStringList &lines)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("requestNote"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(10);
    auto *label = new QLabel(explanation, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout->addWidget(label);
    if (!lines.isEmpty()) {
        auto *list = new QPlainTextEdit(this);
        list->setObjectName(QStringLiteral("requestLines"));
        list->setReadOnly(true);
        list->setPlainText(lines.mid(0, MaximumLines).join(QLatin1Char('\n')));
        if (lines.size() > MaximumLines)
            list->appendPlainText(tr("… %1 more").arg(lines.size() - MaximumLines));
        list->moveCursor(QTextCursor::Start);
        layout->addWidget(list, 1);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(440, lines.isEmpty() ? sizeHint().height() : 280);
}

RequestNote *RequestNote::show(QWidget *parent, const QString &title, const QString &explanation,
                               const QStringList &lines)
{
    auto *note = new RequestNote(parent, title, explanation, lines);
    note->open();
    return note;
}
