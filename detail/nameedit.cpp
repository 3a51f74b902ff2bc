#include "detail/nameedit.h"

#include "common/displaytext.h"
#include "controls/skinmenu.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace {
constexpr int SmallestWidth = 60; // device-independent pixels
constexpr int Inset = 2;          // what a line edit keeps free at either side
} // namespace

NameEdit::NameEdit(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setTextMargins(-Inset, 0, 0, 0); // flush with the lines below
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void NameEdit::setName(const QString &name)
{
    const QString shown = ::displayText(name); // not the one of the line edit
    if (shown == text())
        return;
    setText(shown);
    setCursorPosition(0);
    setToolTip(toolTipText(name));
    updateGeometry();
}

QSize NameEdit::sizeHint() const
{
    ensurePolished();
    const QFontMetrics metrics = fontMetrics();
    return QSize(metrics.horizontalAdvance(text()) + 4 * Inset, metrics.height() + 4);
}

QSize NameEdit::minimumSizeHint() const
{
    return QSize(SmallestWidth, sizeHint().height());
}

void NameEdit::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    auto *menu = new SkinMenu(QStringLiteral("valueMenu"), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addKey("copy"), &QAction::triggered, this, [this] {
        if (!hasSelectedText())
            selectAll();
        copy();
    });
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? mapToGlobal(QPoint(0, height())) : event->globalPos());
}

void NameEdit::paintEvent(QPaintEvent *event)
{
    const int room = width() - 2 * Inset;
    if (hasFocus() || hasSelectedText() || fontMetrics().horizontalAdvance(text()) <= room) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect().adjusted(0, 0, -Inset, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room));
}
