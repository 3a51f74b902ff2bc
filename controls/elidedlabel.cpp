#include "controls/elidedlabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(const QString &text, QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return QSize(fontMetrics().horizontalAdvance(QStringLiteral("...")),
                 QLabel::minimumSizeHint().height());
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    painter.drawText(area, int(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}
