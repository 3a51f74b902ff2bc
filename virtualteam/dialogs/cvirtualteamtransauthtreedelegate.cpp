#include "virtualteam/dialogs/cvirtualteamtransauthtreedelegate.h"

#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "virtualteam/dialogs/memberrow.h"
#include "virtualteam/dialogs/teamchoices.h"

#include <QStyle>
#include <QTreeView>

namespace {

constexpr int Indent = 16; // device-independent pixels, as all below
constexpr int CaretSize = 16;
constexpr int CaretRoom = 20;
// Rows of very deep groups would leave the view.
constexpr int MaximumIndents = 8;
constexpr qreal RefusedOpacity = 0.4; // of the mark of what cannot be chosen

int indentOf(int depth)
{
    return qMin(depth, MaximumIndents) * Indent;
}

bool isChosen(const QStyleOptionViewItem &option)
{
    return option.state.testFlag(QStyle::State_Selected);
}

void paintCaret(QPainter *painter, const QStyleOptionViewItem &option, int depth, bool open)
{
    const QRect logical(option.rect.left() + RowPainter::Margin + indentOf(depth),
                        option.rect.top() + (option.rect.height() - CaretSize) / 2, CaretSize,
                        CaretSize);
    const QRect caret = QStyle::visualRect(option.direction, option.rect, logical);
    const QPixmap arrow =
        loadPicture(open ? QStringLiteral("Resources/images/contacts/arrow_down.png")
                         : QStringLiteral("Resources/images/contacts/arrow_right.png"),
                    CaretSize, painter->device()->devicePixelRatioF(),
                    Skin::instance().quietText(isChosen(option)));
    if (option.direction == Qt::RightToLeft && !open)
        painter->drawPixmap(caret, arrow.transformed(QTransform::fromScale(-1, 1)));
    else
        painter->drawPixmap(caret, arrow);
}

} // namespace

CVirtualTeamTransAuthTreeDelegate::CVirtualTeamTransAuthTreeDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

int CVirtualTeamTransAuthTreeDelegate::depth(const QModelIndex &index)
{
    int depth = 0;
    for (QModelIndex at = index.parent(); at.isValid(); at = at.parent())
        ++depth;
    return depth;
}

QRect CVirtualTeamTransAuthTreeDelegate::caretArea(const QRect &row, int depth,
                                                   Qt::LayoutDirection direction)
{
    // The whole height, so that it is easy to hit.
    const QRect area(row.left() + RowPainter::Margin - CaretSize / 2 + indentOf(depth), row.top(),
                     CaretRoom + CaretSize / 2, row.height());
    return QStyle::visualRect(direction, row, area);
}

QSize CVirtualTeamTransAuthTreeDelegate::sizeHint(const QStyleOptionViewItem &,
                                                  const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void CVirtualTeamTransAuthTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                              const QModelIndex &index) const
{
    painter->save();
    switch (TeamRowKind(index.data(TeamRowRole::Kind).toInt())) {
    case TeamRowKind::Team:
    case TeamRowKind::Group:
        paintGroup(painter, option, index);
        break;
    case TeamRowKind::Member: {
        RowPainter row(painter, option);
        row.background();
        row.indent(indentOf(depth(index)));
        MemberRow::paintMark(painter, option, &row, MemberRow::Mark::Radio, isChosen(option));
        MemberRow::paintMember(painter, &row, index);
        break;
    }
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
    case TeamRowKind::Empty:
        paintState(painter, option, index);
        break;
    }
    painter->restore();
}

void CVirtualTeamTransAuthTreeDelegate::paintGroup(QPainter *painter,
                                                   const QStyleOptionViewItem &option,
                                                   const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QTreeView *>(option.widget);
    const int level = depth(index);
    RowPainter row(painter, option);
    row.background();
    if (index.model()->hasChildren(index))
        paintCaret(painter, option, level, view && view->isExpanded(index));
    row.indent(indentOf(level) + CaretRoom);
    const QString note = index.data(TeamChoices::Note).toString();
    if (index.data(TeamChoices::Choosable).toBool() || !note.isEmpty()) {
        painter->setOpacity(note.isEmpty() ? 1 : RefusedOpacity);
        MemberRow::paintMark(painter, option, &row, MemberRow::Mark::Radio,
                             note.isEmpty() && isChosen(option));
        painter->setOpacity(1);
    }
    row.texts(index.data(Qt::DisplayRole).toString(), note, !note.isEmpty());
}

void CVirtualTeamTransAuthTreeDelegate::paintState(QPainter *painter,
                                                   const QStyleOptionViewItem &option,
                                                   const QModelIndex &index) const
{
    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    if (TeamRowKind(index.data(TeamRowRole::Kind).toInt()) == TeamRowKind::Failed)
        row.mark(loadPicture(QStringLiteral("Resources/images/icon/glyph_refresh.png"),
                             RowPainter::MarkSize, painter->device()->devicePixelRatioF(),
                             Skin::instance().colors().theme));
    else
        row.indent(CaretRoom);
    row.texts(index.data(Qt::DisplayRole).toString(), QString(), true);
}
