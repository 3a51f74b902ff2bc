#include "controls/skinbutton.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int GlyphSize = 16; // device-independent pixels, as all below
constexpr int Gap = 6;
constexpr int Padding = 14;
constexpr int Height = 32;
constexpr int FlatSide = 28;
constexpr int Radius = 4;
} // namespace

SkinButton::SkinButton(Kind kind, const QString &glyph, QWidget *parent)
    : QPushButton(parent), m_kind(kind), m_glyph(glyph)
{
    setAutoDefault(false);
    setFlat(kind == Flat);
    setFont(skinFont(13));
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
}

QSize SkinButton::sizeHint() const
{
    if (text().isEmpty())
        return QSize(FlatSide, FlatSide);
    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return QSize(2 * Padding + textWidth + (m_glyph.isEmpty() ? 0 : GlyphSize + Gap), Height);
}

bool SkinButton::event(QEvent *event)
{
    // The hand says that the button can be pressed.
    if (event->type() == QEvent::Enter || event->type() == QEvent::EnabledChange)
        setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    return QPushButton::event(event);
}

void SkinButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
        return;
    }
    event->accept();
    click(); // may be the end of this button
}

QColor SkinButton::ground() const
{
    const Skin::Colors &colors = Skin::instance().colors();
    if (m_kind == Primary) {
        if (!isEnabled())
            return colors.hover;
        return isDown() ? colors.theme.darker(115)
                        : (underMouse() ? colors.theme.lighter(108) : colors.theme);
    }
    if (!isEnabled())
        return QColor();
    return isDown() ? colors.selected : (underMouse() ? colors.hover : QColor());
}

QColor SkinButton::ink() const
{
    const Skin::Colors &colors = Skin::instance().colors();
    if (!isEnabled())
        return colors.offline;
    return m_kind == Primary ? colors.background : colors.text;
}

void SkinButton::paintEvent(QPaintEvent *)
{
    const Skin::Colors &colors = Skin::instance().colors();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor fill = ground();
    painter.setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
    painter.setPen(m_kind == Outline ? QPen(colors.border) : QPen(Qt::NoPen));
    painter.drawRoundedRect(frame, Radius, Radius);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        const bool inside = m_kind == Primary && isEnabled();
        const qreal inset = inside ? 2.5 : 0.5;
        painter.setPen(QPen(inside ? colors.background : colors.theme, 1.4));
        painter.drawRoundedRect(frame.adjusted(inset, inset, -inset, -inset), Radius - 1,
                                Radius - 1);
    }

    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    const int glyphWidth = m_glyph.isEmpty() ? 0 : GlyphSize;
    const int gap = m_glyph.isEmpty() || text().isEmpty() ? 0 : Gap;
    int x = (width() - textWidth - glyphWidth - gap) / 2;
    if (glyphWidth > 0) {
        painter.drawPixmap(x, (height() - GlyphSize) / 2,
                           loadPicture(m_glyph, GlyphSize, devicePixelRatioF(), ink()));
        x += glyphWidth + gap;
    }
    painter.setPen(ink());
    painter.drawText(QRect(x, 0, width() - x, height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}
