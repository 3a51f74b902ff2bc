#include "detail/avatar/sysavatardelegate.h"

#include "controls/skin.h"
#include "detail/avatar/csysheadlabel.h"

#include <QPainter>

void SysAvatarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    if (index.data(NameRole).toString().isEmpty())
        return;
    const Skin::Colors &colors = Skin::instance().colors();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const QRectF cell = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setBrush(colors.hover);
        painter->drawRoundedRect(cell, 4, 4);
    }
    painter->setBrush(Qt::NoBrush);
    if (index.data(ChosenRole).toBool()) {
        const qreal radius = CSysHeadLabel::Side / 2.0 + 2;
        painter->setPen(QPen(colors.theme, 2));
        painter->drawEllipse(cell.center(), radius, radius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(colors.theme, 1.4));
        painter->drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    }
    painter->restore();
}
