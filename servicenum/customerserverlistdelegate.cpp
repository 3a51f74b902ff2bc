#include "servicenum/customerserverlistdelegate.h"

#include "common/logging.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "servicenum/customerserverroles.h"

#include <QWidget>

CustomerServerListDelegate::CustomerServerListDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

QSize CustomerServerListDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void CustomerServerListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    if (!index.model()) {
        LOG_ERROR("modelTemp is null");
        return;
    }
    painter->save();
    const bool isOpen = index.data(ChannelRole::State).toBool();
    const QString name = index.data(ChannelRole::Name).toString();
    const qreal ratio = painter->device()->devicePixelRatioF();
    const Skin &skin = Skin::instance();

    const bool isPinned = index.data(ChannelRole::Pinned).toBool();
    QStyleOptionViewItem panel = option;
    if (isPinned)
        panel.backgroundBrush = skin.colors().side;
    RowPainter row(painter, panel);
    row.setSecondaryColor(QColor(0x8f, 0x8f, 0x8f));
    row.background();
    row.avatar(AvatarStore::instance().avatar(index.data(ChannelRole::Picture).toString(),
                                              index.data(ChannelRole::Id).toString(), name,
                                              RowPainter::AvatarSize, ratio),
               !isOpen);
    if (isPinned) {
        const QColor quiet = skin.quietText(option.state.testFlag(QStyle::State_Selected));
        row.markInFirstLine(loadPicture(QStringLiteral("Resources/images/icon/glyph_pin.png"),
                                        RowPainter::SmallMarkSize, ratio, quiet));
    }
    row.badge(index.data(ChannelRole::Unread).toInt());
    row.texts(name, index.data(ChannelRole::Second).toString(), !isOpen);
    painter->restore();
}
