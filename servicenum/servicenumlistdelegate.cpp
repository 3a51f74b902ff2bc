#include "servicenum/servicenumlistdelegate.h"

#include "common/logging.h"
#include "controls/avatarstore.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "servicenum/servicenumroles.h"

#include <QPainter>

namespace {
constexpr int ButtonHeight = 24; // device-independent pixels, as all below
constexpr int ButtonPadding = 10;
constexpr int ButtonRadius = 4;
constexpr int ButtonPixels = 12;
} // namespace

ServiceNumListDelegate::ServiceNumListDelegate(Buttons buttons, QObject *parent)
    : QStyledItemDelegate(parent), m_buttons(buttons)
{
}

QSize ServiceNumListDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

// --- The button ------------------------------------------------------------------------

// The same for each row: the texts of different rows stand below each other.
int ServiceNumListDelegate::buttonWidth() const
{
    const QFontMetrics metrics(skinFont(ButtonPixels));
    int widest = 0;
    for (const QString &text :
         {QObject::tr("subscribe"), QObject::tr("subscribed"), QObject::tr("cancel")})
        widest = qMax(widest, metrics.horizontalAdvance(text));
    return widest + 2 * ButtonPadding;
}

QRect ServiceNumListDelegate::buttonArea(const QRect &row, Qt::LayoutDirection direction) const
{
    if (m_buttons == NoButtons || row.isEmpty())
        return QRect();
    const int width = buttonWidth();
    const QRect area(row.right() - RowPainter::Margin - width + 1,
                     row.center().y() - ButtonHeight / 2, width, ButtonHeight);
    return QStyle::visualRect(direction, row, area);
}

QString ServiceNumListDelegate::buttonText(const QModelIndex &index, bool isHot)
{
    if (index.data(ServiceRole::Busy).toBool())
        return QString(QChar(0x2026));
    if (!index.data(ServiceRole::State).toBool())
        return QObject::tr("subscribe");
    return isHot ? QObject::tr("cancel") : QObject::tr("subscribed");
}

QString ServiceNumListDelegate::buttonToolTip(const QModelIndex &index)
{
    if (index.data(ServiceRole::Busy).toBool())
        return QObject::tr("loading");
    return index.data(ServiceRole::State).toBool() ? QObject::tr("cancelSubscribe")
                                                   : QObject::tr("subscribe");
}

void ServiceNumListDelegate::setHot(const QModelIndex &index, bool isPressed)
{
    m_hot = index;
    m_isPressed = isPressed;
}

void ServiceNumListDelegate::drawButton(QPainter *painter, const QRect &area,
                                        const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    const Skin &skin = Skin::instance();
    const Skin::Colors &colors = skin.colors();
    const bool isBusy = index.data(ServiceRole::Busy).toBool();
    const bool isSubscribed = index.data(ServiceRole::State).toBool();
    const bool isHot = m_hot == index && !isBusy;
    const bool isQuiet = isBusy || isSubscribed;
    QColor ink =
        isQuiet ? skin.quietText(option.state.testFlag(QStyle::State_Selected)) : colors.theme;
    QColor ground;
    if (isHot && isQuiet)
        ground = m_isPressed ? colors.selected : colors.background;
    else if (isHot)
        ground = m_isPressed ? colors.theme.darker(115) : colors.theme;
    else if (!isQuiet)
        ground = colors.background;
    if (isHot)
        ink = isQuiet ? colors.text : colors.background;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(ground.isValid() ? QBrush(ground) : Qt::NoBrush);
    const bool hasFrame = !isQuiet || isHot;
    painter->setPen(hasFrame ? QPen(isQuiet ? colors.border : colors.theme) : QPen(Qt::NoPen));
    painter->drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), ButtonRadius,
                             ButtonRadius);
    painter->setFont(skinFont(ButtonPixels));
    painter->setPen(ink);
    painter->drawText(area, Qt::AlignCenter | Qt::TextSingleLine, buttonText(index, isHot));
}

// --- The row -----------------------------------------------------------------------------

void ServiceNumListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    if (!index.model()) {
        LOG_ERROR("item is null");
        return;
    }
    painter->save();
    RowPainter row(painter, option);
    row.background();
    row.avatar(AvatarStore::instance().serviceIcon(index.data(ServiceRole::Picture).toString(),
                                                   RowPainter::AvatarSize,
                                                   painter->device()->devicePixelRatioF()),
               false);
    row.verified();
    if (m_buttons != NoButtons) {
        row.takeAtRight(buttonWidth());
        drawButton(painter, buttonArea(option.rect, option.direction), option, index);
    }
    row.texts(index.data(ServiceRole::MarkedName).value<MarkedText>(),
              index.data(ServiceRole::Second).toString(), false);
    painter->restore();
}
