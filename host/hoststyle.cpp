#include "host/hoststyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace {

void drawCross(QPainter *painter, const QRectF &place, const QColor &colour)
{
    const QPointF centre = place.center();
    const qreal arm = qMin(place.width(), place.height()) * 0.24;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(centre + QPointF(-arm, -arm), centre + QPointF(arm, arm));
    painter->drawLine(centre + QPointF(-arm, arm), centre + QPointF(arm, -arm));
    painter->restore();
}

// Of the size of a dock's buttons.
QIcon icon(bool cross)
{
    constexpr int Size = 16;
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap pixmap(QSize(Size, Size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QColor colour = QApplication::palette().color(QPalette::WindowText);
    if (cross) {
        drawCross(&painter, QRectF(0, 0, Size, Size), colour);
    } else {
        painter.setPen(QPen(colour, 1));
        painter.drawRect(QRectF(3.5, 5.5, 7, 7));
        painter.drawLine(QPointF(5.5, 3.5), QPointF(12.5, 3.5));
        painter.drawLine(QPointF(12.5, 3.5), QPointF(12.5, 10.5));
    }
    return pixmap;
}

// The toolkit's lines are darker than the window, which is not seen in the dark.
bool isDark(const QStyleOption *option)
{
    return option->palette.color(QPalette::Window).lightness() <= 127;
}

void drawFrame(QStyle::PrimitiveElement element, const QStyleOption *option, QPainter *painter)
{
    const bool focused =
        element == QStyle::PE_FrameLineEdit && option->state & QStyle::State_HasFocus;
    if (focused || !isDark(option))
        return;
    constexpr qreal Radius = 2;
    QColor frame = option->palette.color(QPalette::PlaceholderText);
    frame.setAlpha(element == QStyle::PE_FrameLineEdit ? 90 : 200);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(frame);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    painter->restore();
}

bool isMenuSeparator(QStyle::ControlElement element, const QStyleOption *option)
{
    const auto *item = element == QStyle::CE_MenuItem
                           ? qstyleoption_cast<const QStyleOptionMenuItem *>(option)
                           : nullptr;
    return item && item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty();
}

} // namespace

HostStyle::HostStyle() : QProxyStyle(QStringLiteral("Fusion"))
{
    setObjectName(QStringLiteral("hoststyle"));
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                              QPainter *painter, const QWidget *widget) const
{
    if (element != PE_IndicatorTabClose) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit)
            drawFrame(element, option, painter);
        return;
    }
    const bool hovered = option->state & State_Enabled && option->state & State_MouseOver;
    if (hovered) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(option->palette.color(QPalette::Highlight));
        painter->drawRoundedRect(option->rect, 3, 3);
        painter->restore();
    }
    drawCross(painter, option->rect,
              option->palette.color(hovered ? QPalette::WindowText : QPalette::PlaceholderText));
}

void HostStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const
{
    if (!isMenuSeparator(element, option) || !isDark(option)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    constexpr int Margin = 6;
    QColor line = option->palette.color(QPalette::PlaceholderText);
    line.setAlpha(110);
    painter->fillRect(QRect(option->rect.left() + Margin, option->rect.center().y(),
                            option->rect.width() - 2 * Margin, 1),
                      line);
}

QIcon HostStyle::standardIcon(StandardPixmap standard, const QStyleOption *option,
                              const QWidget *widget) const
{
    if (standard == SP_TitleBarCloseButton || standard == SP_TitleBarNormalButton)
        return icon(standard == SP_TitleBarCloseButton);
    return QProxyStyle::standardIcon(standard, option, widget);
}

int HostStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}
