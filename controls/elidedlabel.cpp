#include "controls/elidedlabel.h"

#include "common/displaytext.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {
constexpr int FewestCharacters = 3; // that are shown in any case
}

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return {fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + 1,
            fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    return {qMin(whole.width(), fontMetrics().averageCharWidth() * 2 * FewestCharacters),
            whole.height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && contentsRect().width() < sizeHint().width()) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), toolTipText(text()),
                           this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    style()->drawItemText(
        &painter, area, int(alignment() | Qt::TextSingleLine), palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, area.width()), foregroundRole());
}
