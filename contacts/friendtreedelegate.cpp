#include "contacts/friendtreedelegate.h"

#include "common/displaytext.h"
#include "contacts/friendtreeroles.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "http/fileservices.h"

#include <QWidget>

FriendTreeDelegate::FriendTreeDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

QSize FriendTreeDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void FriendTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    if (index.data(FriendTreeRole::Kind).toInt() == GroupRow) {
        painter->fillRect(option.rect, Skin::instance().colors().background);
        return;
    }
    painter->save();
    PresenceData presence;
    presence.pcShow = PresenceData::ePcShowType(index.data(FriendTreeRole::Presence).toInt());
    presence.mobile = index.data(FriendTreeRole::MobilePresence).toInt();
    const bool faded = !presence.isOnline() || !index.data(FriendTreeRole::OnJob).toBool();
    const QString name = index.data(Qt::DisplayRole).toString();
    const qreal ratio = painter->device()->devicePixelRatioF();

    RowPainter row(painter, option);
    row.background();
    const QString jid = index.data(FriendTreeRole::Id).toString();
    const QString picture =
        PictureFiles::instance().ofRow(index.data(FriendTreeRole::HeadPath).toString(), jid);
    row.avatar(AvatarStore::instance().avatar(picture, jid, name, RowPainter::AvatarSize, ratio),
               faded);
    row.presence(presence);
    if (index.data(FriendTreeRole::Cooperate).toBool()) {
        row.markAtRight(loadPicture(QStringLiteral("Resources/images/icon/ic_cooperate.png"),
                                    RowPainter::MarkSize, ratio));
    }
    if (index.data(FriendTreeRole::Kind).toInt() == ExternalContactRow)
        row.outside();
    QVector<RowPainter::Piece> second;
    for (const int role : {FriendTreeRole::Company, FriendTreeRole::Sign}) {
        const QString text = ::displayText(index.data(role).toString());
        if (!text.isEmpty())
            second.append({text, QColor()});
    }
    row.texts(name, second, faded);
    painter->restore();
}
