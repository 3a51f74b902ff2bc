#include "virtualteam/dialogs/choicemark.h"

#include "controls/skin.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr qreal MarkRadius = 4; // device-independent pixels

void drawTick(QPainter *painter, const QRectF &box)
{
    const Skin::Colors &colors = Skin::instance().colors();
    painter->setPen(QPen(colors.background, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tick[] = {{box.left() + box.width() * 0.24, box.top() + box.height() * 0.52},
                            {box.left() + box.width() * 0.43, box.top() + box.height() * 0.70},
                            {box.left() + box.width() * 0.76, box.top() + box.height() * 0.32}};
    painter->drawPolyline(tick, 3);
}

} // namespace

void paintChoiceMark(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                     ChoiceMark mark, bool on)
{
    const Skin::Colors &colors = Skin::instance().colors();
    constexpr int Size = RowPainter::MarkSize;
    const QRect rest = row->rest();
    const QRect area(rest.left(), rest.top() + (rest.height() - Size) / 2, Size, Size);
    const QRectF box = QRectF(QStyle::visualRect(option.direction, option.rect, area))
                           .adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = mark == ChoiceMark::Radio ? box.width() / 2 : MarkRadius;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(on ? colors.theme : colors.offline, 1.2));
    painter->setBrush(on ? colors.theme : colors.background);
    painter->drawRoundedRect(box, radius, radius);
    if (on && mark == ChoiceMark::Check) {
        drawTick(painter, box);
    } else if (on) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colors.background);
        painter->drawEllipse(box.center(), box.width() / 5, box.height() / 5);
    }
    row->indent(Size + RowPainter::Margin);
}
