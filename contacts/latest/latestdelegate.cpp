#include "contacts/latest/latestdelegate.h"

#include "contacts/latest/latestroles.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "hostapi/roomrecords.h"
#include "http/fileservices.h"

#include <QWidget>

namespace {
QPixmap glyph(const char *name, qreal ratio, const QColor &color)
{
    return loadPicture(QStringLiteral("Resources/images/icon/%1.png").arg(QLatin1String(name)),
                       RowPainter::SmallMarkSize, ratio, color);
}

QPixmap avatar(const QModelIndex &index, qreal ratio)
{
    const QString file = index.data(LatestRole::Icon).toString();
    AvatarStore &store = AvatarStore::instance();
    switch (index.data(LatestRole::Kind).toInt()) {
    case MessageData::Room:
        return store.groupPortrait(file, RowPainter::AvatarSize, ratio);
    case MessageData::ServiceNumber:
        return store.serviceIcon(file, RowPainter::AvatarSize, ratio);
    default: {
        const QString jid = index.data(LatestRole::Id).toString();
        return store.avatar(PictureFiles::instance().ofRow(file, jid), jid,
                            index.data(LatestRole::Name).toString(), RowPainter::AvatarSize, ratio);
    }
    }
}
} // namespace

LatestDelegate::LatestDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

QSize LatestDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void LatestDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    painter->save();
    const Skin::Colors &colors = Skin::instance().colors();
    const QColor quiet = Skin::instance().quietText(option.state.testFlag(QStyle::State_Selected));
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QString name = index.data(LatestRole::Name).toString();
    const bool pinned = index.data(LatestRole::Pinned).toBool();
    PresenceData presence;
    presence.pcShow = PresenceData::ePcShowType(index.data(LatestRole::Presence).toInt());
    presence.mobile = index.data(LatestRole::MobilePresence).toInt();

    QStyleOptionViewItem panel = option;
    if (pinned)
        panel.backgroundBrush = colors.side;
    RowPainter row(painter, panel);
    row.background();
    row.avatar(avatar(index, ratio), false);
    if (index.data(LatestRole::ShowsPresence).toBool())
        row.presence(presence);
    if (index.data(LatestRole::Muted).toBool())
        row.overlay(glyph("glyph_mute", ratio, colors.danger));
    else if (index.data(LatestRole::Kind).toInt() == MessageData::ServiceNumber)
        row.verified();

    row.textAtRight(index.data(LatestRole::TimeText).toString());
    if (pinned)
        row.markInFirstLine(glyph("glyph_pin", ratio, quiet));
    if (index.data(LatestRole::Outside).toBool())
        row.outsideInFirstLine();
    row.badge(index.data(LatestRole::Unread).toInt());
    if (index.data(LatestRole::Cooperate).toBool())
        row.markInSecondLine(glyph("ic_cooperate", ratio, QColor()));
    const QString content = index.data(LatestRole::Content).toString();
    // Without content too, the name stands where it stands in other rows.
    row.texts(name, content.isEmpty() ? QStringLiteral(" ") : content, false);
    painter->restore();
}
