#include "virtualteam/cvirtualteamtreedelegate.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "virtualteam/memberpicture.h"
#include "virtualteam/teamtreetexts.h"

#include <QStyle>
#include <QTreeView>

namespace {

// Rows stay readable at the tenth level of a narrow pane.
constexpr int WideIndents = 3;
constexpr int WideIndent = 16;
constexpr int NarrowIndent = 6;
constexpr int MostIndents = 12;

constexpr QRgb DutyColor = 0xff999999;
constexpr QRgb RoleColor = 0xffffa354;

bool isOpen(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const auto *view = qobject_cast<const QTreeView *>(option.widget);
    return view && view->isExpanded(index);
}

bool isPointedAt(const QStyleOptionViewItem &option, const QRect &area)
{
    return option.widget && option.widget->underMouse() &&
           area.contains(option.widget->mapFromGlobal(QCursor::pos()));
}

QVector<RowPainter::Piece> secondLine(const QModelIndex &index)
{
    const QVector<RowPainter::Piece> pieces{
        {TeamTreeTexts::roleText(index.data(TeamRowRole::Role).toInt()), QColor(RoleColor), true},
        {index.data(TeamRowRole::Duty).toString(), QColor(DutyColor)},
        {index.data(TeamRowRole::Company).toString(), QColor(RowPainter::CompanyColor)}};
    QVector<RowPainter::Piece> shown;
    for (const RowPainter::Piece &piece : pieces) {
        if (!piece.text.isEmpty())
            shown.append(piece);
    }
    return shown;
}

} // namespace

CVirtualTeamTreeDelegate::CVirtualTeamTreeDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

int CVirtualTeamTreeDelegate::depth(const QModelIndex &index)
{
    int depth = 0;
    for (QModelIndex at = index.parent(); at.isValid(); at = at.parent())
        ++depth;
    return depth;
}

int CVirtualTeamTreeDelegate::indentOf(int depth)
{
    return qMin(depth, WideIndents) * WideIndent +
           qBound(0, depth - WideIndents, MostIndents - WideIndents) * NarrowIndent;
}

QRect CVirtualTeamTreeDelegate::caretArea(const QRect &row, int depth,
                                          Qt::LayoutDirection direction)
{
    // The whole height, so that it is easy to hit.
    constexpr int Reach = RowPainter::CaretSize / 2;
    const QRect area(row.left() + RowPainter::Margin - Reach + indentOf(depth), row.top(),
                     RowPainter::CaretRoom + Reach, row.height());
    return QStyle::visualRect(direction, row, area);
}

QRect CVirtualTeamTreeDelegate::settingArea(const QRect &row, Qt::LayoutDirection direction)
{
    const int width = RowPainter::MarkSize + 2 * RowPainter::Margin;
    const QRect area(row.right() - width + 1, row.top(), width, row.height());
    return QStyle::visualRect(direction, row, area);
}

QSize CVirtualTeamTreeDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void CVirtualTeamTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    painter->save();
    switch (TeamRowKind(index.data(TeamRowRole::Kind).toInt())) {
    case TeamRowKind::Team:
        paintTeam(painter, option, index);
        break;
    case TeamRowKind::Group:
        paintGroup(painter, option, index);
        break;
    case TeamRowKind::Member:
        paintMember(painter, option, index);
        break;
    case TeamRowKind::Loading:
    case TeamRowKind::Empty:
        paintState(painter, option, index, false);
        break;
    case TeamRowKind::Failed:
        paintState(painter, option, index, true);
        break;
    }
    painter->restore();
}

void CVirtualTeamTreeDelegate::paintTeam(QPainter *painter, const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QTreeView *>(option.widget);
    const qreal ratio = painter->device()->devicePixelRatioF();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    RowPainter row(painter, option);
    row.background();
    row.caret(isOpen(option, index));
    row.avatar(
        loadRoundPicture(QStringLiteral("Resources/images/FriendDetail/ic_VirtualTeamHead.png"),
                         RowPainter::AvatarSize, ratio),
        false);
    // There is room for the button on every team, so that no text moves for it.
    QPixmap more;
    if (option.state.testFlag(QStyle::State_MouseOver) || (view && view->currentIndex() == index)) {
        const bool pointed = isPointedAt(option, settingArea(option.rect, option.direction));
        more = loadPicture(
            QStringLiteral("Resources/images/icon/glyph_more.png"), RowPainter::MarkSize, ratio,
            pointed ? Skin::instance().colors().theme : Skin::instance().quietText(selected));
    }
    row.markAtRight(more);
    row.texts(index.data(TeamRowRole::Name).toString(),
              TeamTreeTexts::countText(index.data(TeamRowRole::Count).toInt()), false);
}

void CVirtualTeamTreeDelegate::paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                                          const QModelIndex &index) const
{
    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    row.caret(isOpen(option, index));
    row.texts(index.data(TeamRowRole::Name).toString(), QString(), false);
}

void CVirtualTeamTreeDelegate::paintMember(QPainter *painter, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    // Without a connection nobody's presence is known, as in the friend tree; some lists
    // are never told it.
    const QVariant told = index.data(TeamRowRole::Presence);
    PresenceData presence;
    if (isOnline())
        presence = told.value<PresenceData>();
    const QString uid = index.data(TeamRowRole::Id).toString();
    const QString name = index.data(TeamRowRole::Name).toString();
    const QString picture = memberPicture(uid, index.data(TeamRowRole::Photo).toString());
    const bool faded = told.isValid() && !presence.isOnline();

    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    paintChoice(painter, option, &row, index);
    row.avatar(AvatarStore::instance().avatar(picture, makeJid(uid), name, RowPainter::AvatarSize,
                                              painter->device()->devicePixelRatioF()),
               faded);
    if (told.isValid())
        row.presence(presence);
    if (isExternal(makeJid(uid)))
        row.outside();
    row.texts(name, secondLine(index), faded);
}

void CVirtualTeamTreeDelegate::paintChoice(QPainter *, const QStyleOptionViewItem &, RowPainter *,
                                           const QModelIndex &) const
{
}

void CVirtualTeamTreeDelegate::paintState(QPainter *painter, const QStyleOptionViewItem &option,
                                          const QModelIndex &index, bool failed) const
{
    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    if (failed)
        row.mark(loadPicture(QStringLiteral("Resources/images/icon/glyph_refresh.png"),
                             RowPainter::MarkSize, painter->device()->devicePixelRatioF(),
                             Skin::instance().colors().theme));
    else
        row.indent(RowPainter::CaretRoom);
    row.texts(index.data(Qt::DisplayRole).toString(), QString(), true);
}
