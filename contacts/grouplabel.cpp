#include "contacts/grouplabel.h"

#include "common/displaytext.h"
#include "contacts/friendtreeroles.h"
#include "controls/mydrag.h"
#include "controls/pictures.h"
#include "controls/skin.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace {
constexpr int ArrowSize = 16;
constexpr int SideMargin = 8;
constexpr int Gap = 4;
constexpr int NamePixels = 13;
constexpr int CountPixels = 12;
} // namespace

GroupLabel::GroupLabel(QWidget *viewport) : QLabel(viewport)
{
    setTextFormat(Qt::PlainText);
    setAcceptDrops(true);
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    connect(&Skin::instance(), &Skin::changed, this, [this] { update(); });
}

void GroupLabel::setIndex(const QModelIndex &index)
{
    m_index = index;
    refresh();
}

void GroupLabel::refresh()
{
    const QString name = displayText(m_index.data(FriendTreeRole::Name).toString());
    const QString counts = QStringLiteral("[%1/%2]")
                               .arg(m_index.data(FriendTreeRole::OnlineCount).toInt())
                               .arg(m_index.data(FriendTreeRole::TotalCount).toInt());
    setText(name + QLatin1Char(' ') + counts);
    setToolTip(toolTipText(name));
    setAccessibleName(m_index.data(Qt::AccessibleTextRole).toString());
    update();
}

void GroupLabel::setState(bool expanded, bool selected, bool focused)
{
    if (expanded == m_expanded && selected == m_selected && focused == m_focused)
        return;
    m_expanded = expanded;
    m_selected = selected;
    m_focused = focused;
    update();
}

void GroupLabel::setDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

void GroupLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const Skin::Colors &colors = Skin::instance().colors();
    const QColor quiet = Skin::instance().quietText(m_selected);
    painter.fillRect(rect(), m_selected     ? colors.selected
                             : underMouse() ? colors.hover
                                            : colors.background);
    if (m_dropTarget || m_focused) {
        painter.setPen(QPen(colors.theme, m_dropTarget ? 2 : 1));
        painter.drawRect(
            rect().adjusted(m_dropTarget, m_dropTarget, -1 - m_dropTarget, -1 - m_dropTarget));
    }
    const auto placed = [this](const QRect &area) {
        return QStyle::visualRect(layoutDirection(), rect(), area);
    };
    const QString arrow = m_expanded ? QStringLiteral("Resources/images/contacts/arrow_down.png")
                                     : QStringLiteral("Resources/images/contacts/arrow_right.png");
    painter.drawPixmap(placed(QRect(SideMargin, (height() - ArrowSize) / 2, ArrowSize, ArrowSize)),
                       loadPicture(arrow, ArrowSize, devicePixelRatioF(), quiet));

    // The counts stay whole; only the name is cut.
    const int split = text().lastIndexOf(QLatin1Char(' '));
    const QString counts = text().mid(split + 1);
    const QFont nameFont = skinFont(NamePixels, QFont::DemiBold);
    const QFont countFont = skinFont(CountPixels);
    const int countWidth = QFontMetrics(countFont).horizontalAdvance(counts);
    const int left = SideMargin + ArrowSize + Gap;
    const int room = width() - left - SideMargin - countWidth - 2 * Gap;
    const QFontMetrics nameMetrics(nameFont);
    const QString name = nameMetrics.elidedText(text().left(split), Qt::ElideRight, room);
    const int nameWidth = nameMetrics.horizontalAdvance(name);
    const int side = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                     Qt::AlignVCenter | Qt::TextSingleLine;
    painter.setFont(nameFont);
    painter.setPen(colors.text);
    painter.drawText(placed(QRect(left, 0, qMax(room, nameWidth), height())), side, name);
    painter.setFont(countFont);
    painter.setPen(quiet);
    painter.drawText(placed(QRect(left + nameWidth + 2 * Gap, 0, countWidth + Gap, height())), side,
                     counts);
}

void GroupLabel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = true;
        emit signal_mousepress();
    }
    event->accept();
}

void GroupLabel::mouseReleaseEvent(QMouseEvent *event)
{
    const bool clicked =
        m_pressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_pressed = false;
    event->accept();
    if (clicked)
        emit signal_clickgroup();
}

void GroupLabel::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    emit signal_contextMenu(mapToParent(event->pos()));
}

void GroupLabel::dragEnterEvent(QDragEnterEvent *event)
{
    // Drags of other programs or windows are refused: what they carry is never read.
    if (!MyDrag::isFrom(event, parentWidget()))
        return;
    setDropTarget(true);
    event->acceptProposedAction();
}

void GroupLabel::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropTarget(false);
}

void GroupLabel::dropEvent(QDropEvent *event)
{
    setDropTarget(false);
    event->acceptProposedAction();
    emit signal_dropPos(mapToParent(event->pos()));
}
