#include "contacts/rooms/muclistdelegate.h"

#include "common/displaytext.h"
#include "contacts/rooms/mucroles.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

namespace {
constexpr int NamePixels = 14;
constexpr int CountPixels = 12;
constexpr int Gap = 4;

// The name, cut where it must be, and behind it how many members there are.
void paintTexts(QPainter *painter, const QStyleOptionViewItem &option, const RowPainter &row,
                const QString &name, const QString &count)
{
    const QRect area = row.rest();
    const QFont nameFont = skinFont(NamePixels);
    const QFont countFont = skinFont(CountPixels);
    // A number of members takes half of the row at most, whatever the host calls one.
    const QString shownCount =
        QFontMetrics(countFont).horizontalAdvance(count) > area.width() / 2
            ? QFontMetrics(countFont).elidedText(count, Qt::ElideRight, area.width() / 2)
            : count;
    const int countWidth = QFontMetrics(countFont).horizontalAdvance(shownCount) + 1;
    const QString shown =
        QFontMetrics(nameFont).elidedText(name, Qt::ElideRight, area.width() - countWidth - Gap);
    const int nameWidth = QFontMetrics(nameFont).horizontalAdvance(shown);
    const QRect nameArea(area.left(), area.top(), nameWidth, area.height());
    const QRect countArea(area.left() + nameWidth + Gap, area.top(), countWidth, area.height());
    const auto draw = [&](const QFont &font, const QColor &color, const QRect &where,
                          const QString &text) {
        painter->setFont(font);
        painter->setPen(color);
        painter->drawText(QStyle::visualRect(option.direction, option.rect, where),
                          Qt::AlignCenter | Qt::TextSingleLine, text);
    };
    draw(nameFont, Skin::instance().colors().text, nameArea, shown);
    draw(countFont, row.secondaryColor(), countArea, shownCount);
}
} // namespace

MucListDelegate::MucListDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

QSize MucListDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void MucListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    painter->save();
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QPoint shake = index.data(MucRole::ShakeOffset).toPoint();
    RowPainter row(painter, option);
    row.setSecondaryColor(QColor(RowPainter::CompanyColor));
    row.background();
    painter->translate(shake);
    row.avatar(AvatarStore::instance().groupPortrait(index.data(MucRole::HeadPath).toString(),
                                                     RowPainter::AvatarSize, ratio),
               false);
    if (index.data(MucRole::Forbidden).toBool())
        row.overlay(loadPicture(QStringLiteral("Resources/images/icon/glyph_mute.png"),
                                RowPainter::SmallMarkSize, ratio,
                                Skin::instance().colors().danger));
    painter->translate(-shake);
    const QString count = ::displayText(index.data(MucRole::MemberCount).toString());
    paintTexts(painter, option, row, index.data(Qt::DisplayRole).toString(),
               QString::fromUtf8("(%1人)").arg(count));
    painter->restore();
}
