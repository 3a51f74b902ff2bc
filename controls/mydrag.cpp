#include "controls/mydrag.h"

#include "common/displaytext.h"
#include "controls/skin.h"

#include <QFontMetrics>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QWidget>

namespace {
constexpr int Height = 28; // device-independent pixels, as all below
constexpr int Padding = 12;
constexpr int LongestName = 180;
constexpr QPoint BesidePointer{-12, -8};
} // namespace

MyDrag::MyDrag(QWidget *source) : QDrag(source)
{
    auto *marker = new QMimeData;
    marker->setData(QStringLiteral("application/x-friendui-contacts"), QByteArray("1"));
    setMimeData(marker);
}

void MyDrag::showPeople(const QString &name, int count)
{
    const QFont font = skinFont(13);
    const QFontMetrics metrics(font);
    QString text = metrics.elidedText(displayText(name), Qt::ElideRight, LongestName);
    if (count > 1)
        text += QStringLiteral(" +%1").arg(count - 1);
    const QSize size(metrics.horizontalAdvance(text) + 2 * Padding, Height);
    const qreal ratio = static_cast<const QWidget *>(source())->devicePixelRatioF();
    QPixmap label(size * ratio);
    label.setDevicePixelRatio(ratio);
    label.fill(Qt::transparent);
    QPainter painter(&label);
    painter.setRenderHint(QPainter::Antialiasing);
    const Skin::Colors &colors = Skin::instance().colors();
    painter.setPen(colors.border);
    painter.setBrush(colors.background);
    painter.drawRoundedRect(QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setFont(font);
    painter.setPen(colors.text);
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, text);
    painter.end();
    setPixmap(label);
    setHotSpot(BesidePointer);
}

void MyDrag::setTarget(const QString &groupId)
{
    m_taken = true;
    m_target = groupId;
}

void MyDrag::run()
{
    // The view, and this with it, may be destroyed while the drag runs.
    const QPointer<MyDrag> alive(this);
    exec(Qt::MoveAction);
    if (!alive)
        return;
    emit signal_dropEnd(m_taken, m_target);
}

bool MyDrag::isFrom(const QDropEvent *event, const QWidget *viewport)
{
    return event->source() && viewport && event->source() == viewport->parentWidget();
}
