#include "detail/avatar/imagecutlabel.h"

#include "common/logging.h"
#include "controls/skin.h"
#include "detail/avatar/cutgeometry.h"
#include "detail/avatar/headpicture.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int Step = 1; // device-independent pixels, as all below
constexpr int LargeStep = 10;
constexpr int WheelStep = 8; // of a notch
constexpr int HandleSide = 6;
constexpr int Dimming = 120; // of 255

// A part of a picture that shares its pixels.
QPixmap partOf(const QPixmap &picture, const QRect &area)
{
    const QImage all = picture.toImage();
    if (all.depth() != 32)
        return picture.copy(area);
    const uchar *const first = all.constScanLine(area.top()) + area.left() * 4;
    const QImageCleanupFunction release = [](void *held) { delete static_cast<QImage *>(held); };
    QImage part(first, area.width(), area.height(), all.bytesPerLine(), all.format(), release,
                new QImage(all));
    return QPixmap::fromImage(std::move(part), Qt::NoFormatConversion);
}

void drawThirds(QPainter *painter, const QRectF &frame)
{
    painter->setPen(QColor(255, 255, 255, 170));
    for (int i = 1; i < 3; ++i) {
        const qreal x = frame.left() + frame.width() * i / 3;
        const qreal y = frame.top() + frame.height() * i / 3;
        painter->drawLine(QPointF(x, frame.top()), QPointF(x, frame.bottom()));
        painter->drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
    }
}

void drawHandles(QPainter *painter, const QRect &frame)
{
    painter->setPen(Qt::white);
    painter->setBrush(QColor(10, 124, 202)); // the frame's own, which lies above
    for (const QPoint &corner :
         {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
        painter->drawRect(QRect(corner.x() - HandleSide / 2, corner.y() - HandleSide / 2,
                                HandleSide, HandleSide));
    painter->setBrush(Qt::NoBrush);
}
} // namespace

ImageCutLabel::ImageCutLabel(QWidget *parent) : QLabel(parent)
{
    retranslate();
}

void ImageCutLabel::setPixmap(const QPixmap &px, const QSize &sizeBound)
{
    const QSize shown = CutGeometry::shownSize(px.size(), shownBound(sizeBound));
    setPixmap(
        px, shown == px.size() ? px : QPixmap::fromImage(HeadPicture::reduced(px.toImage(), shown)),
        sizeBound);
}

void ImageCutLabel::setPixmap(const QPixmap &px, const QPixmap &shown, const QSize &sizeBound)
{
    m_source = px;
    m_source.setDevicePixelRatio(1);
    m_bound = sizeBound;
    m_pressed = false;
    m_grip = CutGeometry::None;
    m_shown = px.isNull() ? QSize() : CutGeometry::shownSize(px.size(), sizeBound);
    // Without a picture there is nothing here to point at or to reach by Tab.
    setMouseTracking(!px.isNull());
    setFocusPolicy(px.isNull() ? Qt::NoFocus : Qt::StrongFocus);
    QPixmap sharp = shown;
    if (!px.isNull())
        sharp.setDevicePixelRatio(qreal(shown.width()) / m_shown.width());
    QLabel::setPixmap(sharp);
    setFixedSize(px.isNull() ? sizeBound : m_shown);
    makeFrame();
    m_labelCut->setVisible(!px.isNull());
    if (px.isNull())
        return;
    const CutGeometry::Limits limits = CutGeometry::limits(m_shown, sizeBound);
    m_labelCut->setMinimumSize(limits.smallest, limits.smallest);
    const int largest = std::min(sizeBound.width(), sizeBound.height());
    m_labelCut->setMaximumSize(largest, largest);
    m_labelCut->setGeometry(CutGeometry::startFrame(m_shown, sizeBound).translated(offset()));
    update();
    emit signal_CurrentPixmap(getCutPixmap());
}

void ImageCutLabel::makeFrame()
{
    if (m_labelCut)
        return;
    m_labelCut = new QLabel(this);
    m_labelCut->setObjectName(QStringLiteral("_labelCut"));
    m_labelCut->setStyleSheet(QStringLiteral("#_labelCut {border:1px solid rgb(10,124,202);}"));
    m_labelCut->setCursor(Qt::SizeAllCursor);
    m_labelCut->setMinimumSize(CutGeometry::SmallestSide, CutGeometry::SmallestSide);
    // The pointer is this widget's business, within the frame and around it.
    m_labelCut->setAttribute(Qt::WA_TransparentForMouseEvents);
}

QPoint ImageCutLabel::offset() const
{
    return QPoint((width() - m_shown.width()) / 2, (height() - m_shown.height()) / 2);
}

QRect ImageCutLabel::frame() const
{
    return m_labelCut ? m_labelCut->geometry() : QRect();
}

QPixmap ImageCutLabel::getCutPixmap() const
{
    if (m_source.isNull()) {
        LOG_DEBUG("_px1.isNull() is true");
        return QPixmap();
    }
    const QRect cut =
        CutGeometry::sourceRect(frame().translated(-offset()), m_shown, m_source.size());
    return cut.isEmpty() ? QPixmap() : partOf(m_source, cut);
}

void ImageCutLabel::changeFrame(const QRect &wanted)
{
    const QRect placed = wanted.translated(offset());
    if (placed == frame())
        return;
    m_labelCut->setGeometry(placed);
    update();
    emit signal_CurrentPixmap(getCutPixmap());
}

void ImageCutLabel::mousePressEvent(QMouseEvent *event)
{
    if (!m_labelCut) {
        LOG_ERROR("_labelCut is null");
        return;
    }
    if (event->button() != Qt::LeftButton || m_source.isNull())
        return;
    m_grip = CutGeometry::gripAt(frame(), event->pos());
    m_pressed = m_grip != CutGeometry::None;
    m_pressedAt = event->pos();
    m_pressedFrame = frame().translated(-offset());
    update();
}

void ImageCutLabel::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_labelCut || m_source.isNull()) {
        LOG_ERROR("_labelCut == NULL || _px1.isNull() is true");
        return;
    }
    if (!m_pressed) {
        setCursor(CutGeometry::cursorOf(CutGeometry::gripAt(frame(), event->pos())));
        return;
    }
    const QPoint by = event->pos() - m_pressedAt;
    changeFrame(m_grip == CutGeometry::Whole
                    ? CutGeometry::moved(m_pressedFrame, by, m_shown)
                    : CutGeometry::resized(m_pressedFrame, m_grip, by,
                                           CutGeometry::limits(m_shown, m_bound)));
}

void ImageCutLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = false;
    m_grip = CutGeometry::None;
    update();
}

void ImageCutLabel::wheelEvent(QWheelEvent *event)
{
    if (m_source.isNull() || m_pressed ||
        CutGeometry::gripAt(frame(), event->position().toPoint()) == CutGeometry::None) {
        QLabel::wheelEvent(event);
        return;
    }
    event->accept();
    m_wheel += event->angleDelta().y();
    const int steps = m_wheel / QWheelEvent::DefaultDeltasPerStep;
    m_wheel %= QWheelEvent::DefaultDeltasPerStep;
    changeFrame(CutGeometry::grown(frame().translated(-offset()), steps * WheelStep,
                                   CutGeometry::limits(m_shown, m_bound)));
}

QRect ImageCutLabel::byKey(const QKeyEvent &event) const
{
    QPoint direction;
    switch (event.key()) {
    case Qt::Key_Left:
        direction = QPoint(-1, 0);
        break;
    case Qt::Key_Right:
        direction = QPoint(1, 0);
        break;
    case Qt::Key_Up:
        direction = QPoint(0, -1);
        break;
    case Qt::Key_Down:
        direction = QPoint(0, 1);
        break;
    default:
        return QRect();
    }
    const QRect now = frame().translated(-offset());
    direction *= event.modifiers().testFlag(Qt::ShiftModifier) ? LargeStep : Step;
    if (event.modifiers().testFlag(Qt::ControlModifier))
        return CutGeometry::grown(now, direction.x() + direction.y(),
                                  CutGeometry::limits(m_shown, m_bound));
    return CutGeometry::moved(now, direction, m_shown);
}

void ImageCutLabel::keyPressEvent(QKeyEvent *event)
{
    const QRect wanted = m_source.isNull() || m_pressed ? QRect() : byKey(*event);
    if (wanted.isNull())
        QLabel::keyPressEvent(event);
    else
        changeFrame(wanted);
}

void ImageCutLabel::focusInEvent(QFocusEvent *event)
{
    QLabel::focusInEvent(event);
    update();
}

void ImageCutLabel::focusOutEvent(QFocusEvent *event)
{
    QLabel::focusOutEvent(event);
    update();
}

void ImageCutLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (m_source.isNull())
        return;
    QPainter painter(this);
    QRegion outside(rect());
    outside -= frame();
    painter.setClipRegion(outside);
    painter.fillRect(rect(), QColor(0, 0, 0, Dimming));
    painter.setClipping(false);
    if (m_pressed)
        drawThirds(&painter, frame());
    if (hasFocus()) {
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(frame().adjusted(1, 1, -2, -2));
        painter.setPen(QPen(Skin::instance().colors().theme, 2));
        painter.drawRect(frame());
    }
    drawHandles(&painter, frame());
}

bool ImageCutLabel::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    return QLabel::event(event);
}

void ImageCutLabel::retranslate()
{
    setAccessibleName(QObject::tr("cutFrame"));
    setAccessibleDescription(QObject::tr("cutFrameKeys"));
    setToolTip(QObject::tr("cutFrameKeys"));
}
