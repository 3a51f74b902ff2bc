#include "controls/rowpainter.h"

#include "controls/outsidemark.h"
#include "controls/pictures.h"
#include "controls/skin.h"

#include <QApplication>
#include <QPainterPath>
#include <QStyle>
#include <QWidget>

namespace {
constexpr int PresenceSize = 12;
constexpr int Gap = 10;
constexpr int NamePixels = 14;
constexpr int SecondPixels = 12;
constexpr int NameLine = NamePixels + 6;
constexpr int SecondLine = SecondPixels + 5;
constexpr int SmallPixels = 11;
constexpr int SmallGap = 6;
constexpr int BadgeHeight = 16;
constexpr int MaximumBadge = 99;
constexpr qreal FadedOpacity = 0.55;
constexpr int PieceGap = 8;
constexpr int MarkPadding = 5;
constexpr int MarkRadius = 3;
constexpr QRgb MarkInk = 0xff3a2000; // readable on the bright grounds of both skins

void drawPhone(QPainter *painter, const QRectF &area, const QColor &color)
{
    const QRectF body(area.center().x() - area.width() * 0.28, area.top(), area.width() * 0.56,
                      area.height());
    painter->setBrush(color);
    painter->drawRoundedRect(body, 1.5, 1.5);
    painter->setBrush(Qt::white);
    painter->drawRect(body.adjusted(1.5, 1.8, -1.5, -3));
}
} // namespace

RowPainter::RowPainter(QPainter *painter, const QStyleOptionViewItem &option)
    : m_painter(painter), m_option(option), m_left(option.rect.adjusted(Margin, 0, -Margin, 0))
{
}

void RowPainter::background()
{
    QStyleOptionViewItem panel = m_option;
    const Skin::Colors &colors = Skin::instance().colors();
    const bool selected = panel.state.testFlag(QStyle::State_Selected);
    if (!selected && panel.state.testFlag(QStyle::State_MouseOver))
        panel.backgroundBrush = colors.hover;
    panel.state.setFlag(QStyle::State_MouseOver, false);
    panel.palette.setColor(QPalette::Highlight, colors.selected);
    const QStyle *style = panel.widget ? panel.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &panel, m_painter, panel.widget);
    if (panel.state.testFlag(QStyle::State_HasFocus)) {
        m_painter->setPen(QPen(colors.theme, 1));
        m_painter->setBrush(Qt::NoBrush);
        m_painter->drawRect(m_option.rect.adjusted(0, 0, -1, -1));
    }
}

void RowPainter::avatar(const QPixmap &pixmap, bool faded)
{
    m_avatar = QRect(m_left.left(), m_left.center().y() - AvatarSize / 2, AvatarSize, AvatarSize);
    m_avatar = QStyle::visualRect(m_option.direction, m_option.rect, m_avatar);
    const qreal opacity = m_painter->opacity();
    if (faded) {
        // What lies behind the row must not show through.
        m_painter->setRenderHint(QPainter::Antialiasing);
        m_painter->setPen(Qt::NoPen);
        m_painter->setBrush(Skin::instance().colors().background);
        m_painter->drawEllipse(m_avatar);
    }
    m_painter->setOpacity(faded ? FadedOpacity : opacity);
    m_painter->drawPixmap(m_avatar, pixmap);
    m_painter->setOpacity(opacity);
    m_left.setLeft(m_left.left() + AvatarSize + Gap);
}

void RowPainter::presence(const PresenceData &presence)
{
    const QRectF area(m_avatar.right() - PresenceSize + 3, m_avatar.bottom() - PresenceSize + 3,
                      PresenceSize, PresenceSize);
    drawPresence(m_painter, area, presence);
}

void RowPainter::drawPresence(QPainter *painter, const QRectF &area, const PresenceData &presence)
{
    const Skin::Colors &colors = Skin::instance().colors();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    // A rim in the background's colour sets the mark off the avatar.
    painter->setBrush(colors.background);
    painter->drawEllipse(area);
    const QRectF mark = area.adjusted(1.5, 1.5, -1.5, -1.5);
    const QPointF middle = mark.center();
    QPen line(Qt::white, 1.4, Qt::SolidLine, Qt::RoundCap);
    switch (presence.pcShow) {
    case PresenceData::Available:
    case PresenceData::FreeForChat:
        painter->setBrush(colors.online);
        painter->drawEllipse(mark);
        if (presence.pcShow == PresenceData::FreeForChat) {
            painter->setPen(line);
            painter->drawLine(middle - QPointF(2, 0), middle + QPointF(2, 0));
            painter->drawLine(middle - QPointF(0, 2), middle + QPointF(0, 2));
        }
        break;
    case PresenceData::Away:
    case PresenceData::ExtendedAway:
        // A clock; hollow for who is away for longer.
        if (presence.pcShow == PresenceData::Away) {
            painter->setBrush(colors.away);
            painter->drawEllipse(mark);
        } else {
            line.setColor(colors.away);
            painter->setPen(QPen(colors.away, 1.4));
            painter->drawEllipse(mark.adjusted(0.7, 0.7, -0.7, -0.7));
        }
        painter->setPen(line);
        painter->drawLine(middle, middle - QPointF(0, 2.6));
        painter->drawLine(middle, middle + QPointF(2, 0));
        break;
    case PresenceData::DoNotDisturb:
        painter->setBrush(colors.busy);
        painter->drawEllipse(mark);
        painter->setPen(line);
        painter->drawLine(middle - QPointF(2.2, 0), middle + QPointF(2.2, 0));
        break;
    case PresenceData::Offline:
        if (presence.mobile != PresenceData::NoMobile) {
            drawPhone(painter, mark, colors.online);
            break;
        }
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(colors.offline, 1.6));
        painter->drawEllipse(mark.adjusted(0.8, 0.8, -0.8, -0.8));
        break;
    }
    painter->restore();
}

void RowPainter::mark(const QPixmap &glyph)
{
    const QRect area(m_left.left(), m_left.top() + (m_left.height() - MarkSize) / 2, MarkSize,
                     MarkSize);
    m_painter->drawPixmap(QStyle::visualRect(m_option.direction, m_option.rect, area), glyph);
    m_left.setLeft(m_left.left() + MarkSize + Gap);
}

void RowPainter::markAtRight(const QPixmap &glyph)
{
    QRect area(m_left.right() - MarkSize + 1, m_left.top() + (m_left.height() - MarkSize) / 2,
               MarkSize, MarkSize);
    m_painter->drawPixmap(QStyle::visualRect(m_option.direction, m_option.rect, area), glyph);
    m_left.setRight(m_left.right() - MarkSize - Gap / 2);
}

void RowPainter::outside()
{
    markAtRight(outsideMark(MarkSize, m_painter->device()->devicePixelRatioF()));
}

void RowPainter::outsideInFirstLine()
{
    markInFirstLine(outsideMark(SmallMarkSize, m_painter->device()->devicePixelRatioF()));
}

void RowPainter::overlay(const QPixmap &glyph)
{
    const QRect area(m_avatar.right() - SmallMarkSize + 4, m_avatar.bottom() - SmallMarkSize + 4,
                     SmallMarkSize, SmallMarkSize);
    m_painter->setRenderHint(QPainter::Antialiasing);
    m_painter->setPen(Qt::NoPen);
    m_painter->setBrush(Skin::instance().colors().background);
    m_painter->drawEllipse(area.adjusted(-1, -1, 1, 1));
    m_painter->drawPixmap(area, glyph);
}

void RowPainter::verified()
{
    drawVerified(m_painter,
                 QRectF(m_avatar.right() - SmallMarkSize + 4, m_avatar.bottom() - SmallMarkSize + 4,
                        SmallMarkSize, SmallMarkSize));
}

void RowPainter::drawVerified(QPainter *painter, const QRectF &area)
{
    const Skin::Colors &colors = Skin::instance().colors();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    // A rim in the background's colour sets the mark off the picture.
    painter->setBrush(colors.background);
    painter->drawEllipse(area);
    const qreal rim = area.width() / SmallMarkSize;
    const QRectF disc = area.adjusted(rim, rim, -rim, -rim);
    painter->setBrush(colors.theme);
    painter->drawEllipse(disc);
    const auto at = [&disc](qreal x, qreal y) {
        return QPointF(disc.left() + disc.width() * x, disc.top() + disc.height() * y);
    };
    painter->setPen(
        QPen(colors.background, disc.width() * 0.13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF hook[] = {at(0.27, 0.52), at(0.44, 0.68), at(0.74, 0.35)};
    painter->drawPolyline(hook, 3);
    painter->restore();
}

QRect RowPainter::takeAtRight(int width)
{
    const QRect area(m_left.right() - width + 1, m_left.top(), width, m_left.height());
    m_left.setRight(m_left.right() - width - Gap);
    return visual(area);
}

QRect RowPainter::visual(const QRect &area) const
{
    return QStyle::visualRect(m_option.direction, m_option.rect, area);
}

QRect RowPainter::firstLine() const
{
    const int top = m_left.center().y() - (NameLine + SecondLine) / 2;
    return QRect(m_left.left(), top, m_left.width() - m_firstTaken, NameLine);
}

QRect RowPainter::secondLine() const
{
    const int top = m_left.center().y() - (NameLine + SecondLine) / 2 + NameLine;
    return QRect(m_left.left(), top, m_left.width() - m_secondTaken, SecondLine);
}

void RowPainter::textAtRight(const MarkedText &text)
{
    if (text.text.isEmpty())
        return;
    const MarkedLine line(skinFont(SmallPixels));
    QRect area = firstLine();
    area.setLeft(area.right() - line.width(text) + 1);
    m_painter->setPen(Skin::instance().quietText(m_option.state.testFlag(QStyle::State_Selected)));
    line.paint(m_painter, visual(area), text, m_option.direction);
    m_firstTaken += area.width() + SmallGap;
}

void RowPainter::smallMark(const QPixmap &glyph, const QRect &line, int *taken)
{
    const QRect area(line.right() - SmallMarkSize + 1,
                     line.top() + (line.height() - SmallMarkSize) / 2, SmallMarkSize,
                     SmallMarkSize);
    m_painter->drawPixmap(visual(area), glyph);
    *taken += SmallMarkSize + SmallGap;
}

void RowPainter::markInFirstLine(const QPixmap &glyph)
{
    smallMark(glyph, firstLine(), &m_firstTaken);
}

void RowPainter::markInSecondLine(const QPixmap &glyph)
{
    smallMark(glyph, secondLine(), &m_secondTaken);
}

QString RowPainter::badgeText(int count)
{
    if (count > MaximumBadge)
        return QString::number(MaximumBadge) + QLatin1Char('+');
    return count > 0 ? QString::number(count) : QString();
}

QSize RowPainter::badgeSize(int count)
{
    if (count <= 0)
        return QSize();
    const QFontMetrics metrics(skinFont(SmallPixels, QFont::DemiBold));
    return QSize(qMax(BadgeHeight, metrics.horizontalAdvance(badgeText(count)) + 8), BadgeHeight);
}

void RowPainter::drawBadge(QPainter *painter, const QRect &area, int count)
{
    const Skin::Colors &colors = Skin::instance().colors();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colors.danger);
    painter->drawRoundedRect(area, BadgeHeight / 2.0, BadgeHeight / 2.0);
    painter->setFont(skinFont(SmallPixels, QFont::DemiBold));
    painter->setPen(colors.background);
    painter->drawText(area, Qt::AlignCenter | Qt::TextSingleLine, badgeText(count));
}

void RowPainter::badge(int count)
{
    const QSize size = badgeSize(count);
    if (size.isEmpty())
        return;
    const QRect line = secondLine();
    const QPoint corner(line.right() - size.width() + 1,
                        line.top() + (line.height() - size.height()) / 2);
    drawBadge(m_painter, visual(QRect(corner, size)), count);
    m_secondTaken += size.width() + SmallGap;
}

QColor RowPainter::secondaryColor() const
{
    const bool selected = m_option.state.testFlag(QStyle::State_Selected);
    return m_secondary.isValid() && !selected ? m_secondary : Skin::instance().quietText(selected);
}

void RowPainter::texts(const MarkedText &first, const QString &second, bool faded)
{
    QVector<Piece> pieces;
    if (!second.isEmpty())
        pieces.append({second, m_secondary});
    texts(first, pieces, faded);
}

void RowPainter::texts(const MarkedText &first, const QVector<Piece> &second, bool faded)
{
    drawSecondLine(second);
    drawName(first, second.isEmpty() ? m_left : firstLine(), faded);
}

void RowPainter::drawName(const MarkedText &name, const QRect &line, bool faded)
{
    const bool selected = m_option.state.testFlag(QStyle::State_Selected);
    m_painter->setPen(faded ? Skin::instance().quietText(selected)
                            : Skin::instance().colors().text);
    const MarkedLine painted(skinFont(NamePixels));
    painted.paint(m_painter, visual(line), painted.fitted(name, line.width(), Qt::ElideRight),
                  m_option.direction);
}

void RowPainter::drawSecondLine(const QVector<Piece> &pieces)
{
    const bool selected = m_option.state.testFlag(QStyle::State_Selected);
    const Qt::Alignment side =
        QStyle::visualAlignment(m_option.direction, Qt::AlignLeft) | Qt::AlignVCenter;
    const QFontMetrics textMetrics(skinFont(SecondPixels));
    int behind = 0; // what the pieces behind would take
    for (const Piece &piece : pieces)
        behind += textMetrics.horizontalAdvance(piece.text) + PieceGap;
    QRect line = secondLine();
    for (const Piece &piece : pieces) {
        if (line.width() < MarkSize)
            return;
        behind -= textMetrics.horizontalAdvance(piece.text) + PieceGap;
        const QFont font = skinFont(piece.isMark ? SmallPixels : SecondPixels);
        const QFontMetrics metrics(font);
        // A long one leaves up to a half for the others.
        const int room = piece.isMark ? line.width() - 2 * MarkPadding
                                      : line.width() - qMin(behind, line.width() / 2);
        const QString text = metrics.elidedText(piece.text, Qt::ElideRight, room);
        QRect area(line.left(), line.top(), metrics.horizontalAdvance(text), line.height());
        m_painter->setFont(font);
        if (piece.isMark) {
            area.setWidth(area.width() + 2 * MarkPadding);
            const QRect ground = visual(area.adjusted(0, 1, 0, -1));
            m_painter->setRenderHint(QPainter::Antialiasing);
            m_painter->setPen(Qt::NoPen);
            m_painter->setBrush(piece.color);
            m_painter->drawRoundedRect(ground, MarkRadius, MarkRadius);
            m_painter->setPen(QColor(MarkInk));
            m_painter->drawText(ground, Qt::AlignCenter | Qt::TextSingleLine, text);
        } else {
            const bool isOwn = piece.color.isValid() && !selected;
            m_painter->setPen(isOwn ? piece.color : Skin::instance().quietText(selected));
            m_painter->drawText(visual(area), int(side) | Qt::TextSingleLine, text);
        }
        line.setLeft(area.right() + 1 + PieceGap);
    }
}

void RowPainter::caret(bool open)
{
    const bool selected = m_option.state.testFlag(QStyle::State_Selected);
    const QPixmap arrow = loadPicture(
        open ? QStringLiteral("Resources/images/contacts/arrow_down.png")
             : QStringLiteral("Resources/images/contacts/arrow_right.png"),
        CaretSize, m_painter->device()->devicePixelRatioF(), Skin::instance().quietText(selected));
    const QRect area = visual(QRect(m_left.left(), m_left.top() + (m_left.height() - CaretSize) / 2,
                                    CaretSize, CaretSize));
    m_left.setLeft(m_left.left() + CaretRoom);
    if (m_option.direction == Qt::LeftToRight || open) {
        m_painter->drawPixmap(area, arrow);
        return;
    }
    m_painter->save();
    m_painter->translate(2 * area.center().x() + 1, 0);
    m_painter->scale(-1, 1);
    m_painter->drawPixmap(area, arrow);
    m_painter->restore();
}
