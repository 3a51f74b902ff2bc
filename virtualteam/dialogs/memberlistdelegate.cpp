#include "virtualteam/dialogs/memberlistdelegate.h"

#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "virtualteam/memberpicture.h"
#include "virtualteam/teamroles.h"

#include <QStyle>
#include <QWidget>

namespace {

constexpr int CrossRoom = 28; // device-independent pixels

QPixmap cross(const QStyleOptionViewItem &option, qreal ratio)
{
    const Skin &skin = Skin::instance();
    const QRect area = MemberListDelegate::crossArea(option.rect, option.direction);
    const bool isPointedAt = option.widget && option.widget->underMouse() &&
                             area.contains(option.widget->mapFromGlobal(QCursor::pos()));
    return loadPicture(QStringLiteral("Resources/images/icon/glyph_close.png"),
                       RowPainter::MarkSize, ratio,
                       isPointedAt ? skin.colors().danger
                                   : skin.quietText(option.state.testFlag(QStyle::State_Selected)));
}

} // namespace

MemberListDelegate::MemberListDelegate(Kind kind, QObject *parent)
    : QStyledItemDelegate(parent), m_kind(kind)
{
}

QRect MemberListDelegate::crossArea(const QRect &row, Qt::LayoutDirection direction)
{
    const int left = row.right() + 1 - RowPainter::Margin - (RowPainter::MarkSize + CrossRoom) / 2;
    return QStyle::visualRect(direction, row, QRect(left, row.top(), CrossRoom, row.height()));
}

QSize MemberListDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void MemberListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    painter->save();
    const QString uid = index.data(TeamRowRole::Id).toString();
    const QString name = index.data(TeamRowRole::Name).toString();
    const QString picture = memberPicture(uid, index.data(TeamRowRole::Photo).toString());
    const qreal ratio = painter->device()->devicePixelRatioF();
    RowPainter row(painter, option);
    row.setSecondaryColor(QColor(RowPainter::CompanyColor));
    row.background();
    row.avatar(
        AvatarStore::instance().avatar(picture, makeJid(uid), name, RowPainter::AvatarSize, ratio),
        false);
    if (m_kind == Removable)
        row.markAtRight(cross(option, ratio));
    if (isExternal(makeJid(uid)))
        row.outside();
    row.texts(name, index.data(TeamRowRole::Company).toString(), false);
    painter->restore();
}
