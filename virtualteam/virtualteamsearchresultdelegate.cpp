#include "virtualteam/virtualteamsearchresultdelegate.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "common/logging.h"
#include "controls/avatarstore.h"
#include "controls/rowpainter.h"
#include "virtualteam/memberpicture.h"
#include "virtualteam/teamsearchmodel.h"

QSize VirtualTeamSearchResultDelegate::sizeHint(const QStyleOptionViewItem &,
                                                const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void VirtualTeamSearchResultDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    if (!index.model()) {
        LOG_ERROR("item is null");
        return;
    }
    const QString uid = index.data(TeamRowRole::Id).toString();
    const QString name = index.data(TeamRowRole::Name).toString();
    const QString picture = memberPicture(uid, index.data(TeamRowRole::Photo).toString());
    const auto presence = index.data(TeamRowRole::Presence).value<PresenceData>();
    const bool hasPresence = isOnline();
    const bool faded = !hasPresence || !presence.isOnline();
    painter->save();
    RowPainter row(painter, option);
    row.setSecondaryColor(QColor(RowPainter::CompanyColor));
    row.background();
    row.avatar(AvatarStore::instance().avatar(picture, makeJid(uid), name, RowPainter::AvatarSize,
                                              painter->device()->devicePixelRatioF()),
               faded);
    if (hasPresence)
        row.presence(presence);
    if (isExternal(makeJid(uid)))
        row.outside();
    row.textAtRight(index.data(TeamHitRole::Beside).value<MarkedText>());
    row.texts(index.data(TeamHitRole::MarkedName).value<MarkedText>(),
              index.data(TeamHitRole::Second).toString(), faded);
    painter->restore();
}
