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

    RowPainter row(painter, option);
    row.background();
    row.avatar(AvatarStore::instance().avatar(index.data(ChannelRole::Picture).toString(),
                                              index.data(ChannelRole::Id).toString(), name,
                                              RowPainter::AvatarSize, ratio),
               !isOpen);
    if (index.data(ChannelRole::Pinned).toBool()) {
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        row.markAtRight(loadPicture(QStringLiteral("Resources/images/icon/glyph_pin.png"),
                                    RowPainter::MarkSize, ratio, skin.quietText(isSelected)));
    }
    row.texts(name, index.data(ChannelRole::Second).toString(), !isOpen);
    painter->restore();
}
