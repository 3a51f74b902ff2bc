#include "controls/slimscrollbar.h"

#include "controls/skin.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOptionSlider>

namespace {

constexpr int Extent = 10;
constexpr int MinimumHandle = 32;
constexpr int NarrowInset = 3; // at each side of the handle, while the pointer is away
constexpr int WideInset = 2;

class SlimStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override
    {
        if (metric == PM_ScrollBarExtent)
            return Extent;
        if (metric == PM_ScrollBarSliderMin)
            return MinimumHandle;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
        if (control != CC_ScrollBar || !bar)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const QRect handle = handleRect(*bar);
        switch (part) {
        case SC_ScrollBarGroove:
            return bar->rect;
        case SC_ScrollBarSlider:
            return handle;
        case SC_ScrollBarSubPage:
            return QRect(bar->rect.topLeft(), QPoint(bar->rect.right(), handle.top() - 1));
        case SC_ScrollBarAddPage:
            return QRect(QPoint(bar->rect.left(), handle.bottom() + 1), bar->rect.bottomRight());
        default:
            return QRect(); // no arrows
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override
    {
        const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
        if (control != CC_ScrollBar || !bar) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        const Skin::Colors &colors = Skin::instance().colors();
        painter->fillRect(bar->rect, colors.background);
        if (bar->maximum <= bar->minimum)
            return;
        const bool active = bar->state.testFlag(State_MouseOver) ||
                            bar->activeSubControls.testFlag(SC_ScrollBarSlider);
        const int inset = active ? WideInset : NarrowInset;
        const QRectF handle = QRectF(handleRect(*bar)).adjusted(inset, 2, -inset, -2);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(active ? colors.secondary : colors.offline);
        painter->drawRoundedRect(handle, handle.width() / 2, handle.width() / 2);
        painter->restore();
    }

private:
    static QRect handleRect(const QStyleOptionSlider &bar)
    {
        const int room = bar.rect.height();
        const qint64 range = qint64(bar.maximum) - bar.minimum;
        int length = room;
        if (range > 0)
            length = int(qint64(room) * bar.pageStep / (range + bar.pageStep));
        length = qBound(qMin(MinimumHandle, room), length, room);
        const int top = sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                room - length, bar.upsideDown);
        return QRect(bar.rect.left(), bar.rect.top() + top, bar.rect.width(), length);
    }
};

} // namespace

void useSlimScrollBar(QAbstractScrollArea *area)
{
    QScrollBar *bar = area->verticalScrollBar();
    auto *style = new SlimStyle;
    style->setParent(bar);
    bar->setStyle(style);
    bar->setAttribute(Qt::WA_Hover);
    QObject::connect(&Skin::instance(), &Skin::changed, bar, QOverload<>::of(&QWidget::update));
}
