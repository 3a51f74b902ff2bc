#include "virtualteam/dialogs/memberrow.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/avatarstore.h"
#include "controls/skin.h"
#include "virtualteam/memberpicture.h"
#include "virtualteam/teamroles.h"
#include "virtualteam/teamtreetexts.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr qreal MarkRadius = 4; // device-independent pixels

void drawTick(QPainter *painter, const QRectF &box)
{
    const Skin::Colors &colors = Skin::instance().colors();
    painter->setPen(QPen(colors.background, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tick[] = {{box.left() + box.width() * 0.24, box.top() + box.height() * 0.52},
                            {box.left() + box.width() * 0.43, box.top() + box.height() * 0.70},
                            {box.left() + box.width() * 0.76, box.top() + box.height() * 0.32}};
    painter->drawPolyline(tick, 3);
}

} // namespace

void MemberRow::paintMark(QPainter *painter, const QStyleOptionViewItem &option, RowPainter *row,
                          Mark mark, bool on)
{
    const Skin::Colors &colors = Skin::instance().colors();
    constexpr int Size = RowPainter::MarkSize;
    const QRect rest = row->rest();
    const QRect area(rest.left(), rest.top() + (rest.height() - Size) / 2, Size, Size);
    const QRectF box = QRectF(QStyle::visualRect(option.direction, option.rect, area))
                           .adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = mark == Mark::Radio ? box.width() / 2 : MarkRadius;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(on ? colors.theme : colors.offline, 1.2));
    painter->setBrush(on ? colors.theme : colors.background);
    painter->drawRoundedRect(box, radius, radius);
    if (on && mark == Mark::Check) {
        drawTick(painter, box);
    } else if (on) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colors.background);
        painter->drawEllipse(box.center(), box.width() / 5, box.height() / 5);
    }
    row->indent(Size + RowPainter::Margin);
}

void MemberRow::paintMember(QPainter *painter, RowPainter *row, const QModelIndex &index)
{
    const QVariant told = index.data(TeamRowRole::Presence);
    // Without a connection nobody's presence is known, as in the friend tree.
    const bool hasPresence = told.isValid() && isOnline();
    const PresenceData presence = hasPresence ? told.value<PresenceData>() : PresenceData();
    const bool faded = told.isValid() && !presence.isOnline();
    const QString userId = index.data(TeamRowRole::Id).toString();
    const QString name = index.data(TeamRowRole::Name).toString();
    row->avatar(AvatarStore::instance().avatar(
                    memberPicture(userId, index.data(TeamRowRole::Photo).toString()),
                    makeJid(userId), name, RowPainter::AvatarSize,
                    painter->device()->devicePixelRatioF()),
                faded);
    if (told.isValid())
        row->presence(presence);
    QStringList parts{TeamTreeTexts::roleText(index.data(TeamRowRole::Role).toInt()),
                      ::displayText(index.data(TeamRowRole::Duty).toString()),
                      ::displayText(index.data(TeamRowRole::Company).toString())};
    parts.removeAll(QString());
    row->texts(name, parts.join(QStringLiteral(" · ")), faded);
}
