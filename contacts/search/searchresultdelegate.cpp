#include "contacts/search/searchresultdelegate.h"

#include "contacts/search/searchresultmodel.h"
#include "controls/avatarstore.h"
#include "controls/markedline.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QStyle>

namespace {

constexpr int NamePixels = 14;
constexpr int NameLine = 20; // height
constexpr int SecondPixels = 12;
constexpr int SecondLine = 17;
constexpr double SecondShare = 0.6; // of the line, at most, when there is a place, too
constexpr int GlyphSize = 20;       // in the disc of who has no picture

struct KindPicture
{
    const char *path;
    bool isGlyph; // drawn in the skin's colour on a disc
};

KindPicture pictureOf(SearchEntry::Kind kind)
{
    switch (kind) {
    case SearchEntry::Room:
        return {"Resources/images/SysTrayIcon/ic_portrait_group.png", false};
    case SearchEntry::Group:
        return {"Resources/images/contacts/entry_friends.png", true};
    case SearchEntry::Department:
        return {"Resources/images/contacts/entry_organizationTree.png", true};
    case SearchEntry::Team:
        return {"Resources/images/FriendDetail/ic_VirtualTeamHead.png", false};
    case SearchEntry::ServiceNumber:
        return {"Resources/images/FriendDetail/ic_portrait_server_90.png", false};
    case SearchEntry::Channel:
        return {"Resources/images/contacts/entry_customer.png", true};
    case SearchEntry::Person:
        break;
    }
    return {nullptr, false};
}

QPixmap kindPicture(SearchEntry::Kind kind, qreal ratio)
{
    const KindPicture picture = pictureOf(kind);
    const QString path = QString::fromLatin1(picture.path);
    if (kind == SearchEntry::ServiceNumber)
        return loadSquarePicture(path, RowPainter::AvatarSize, ratio);
    if (!picture.isGlyph)
        return loadRoundPicture(path, RowPainter::AvatarSize, ratio);
    const Skin::Colors &colors = Skin::instance().colors();
    QPixmap disc(QSize(RowPainter::AvatarSize, RowPainter::AvatarSize) * ratio);
    disc.setDevicePixelRatio(ratio);
    disc.fill(Qt::transparent);
    QPainter painter(&disc);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.border);
    painter.drawEllipse(QRectF(0, 0, RowPainter::AvatarSize, RowPainter::AvatarSize));
    constexpr int Inset = (RowPainter::AvatarSize - GlyphSize) / 2;
    painter.drawPixmap(Inset, Inset, loadPicture(path, GlyphSize, ratio, colors.text));
    return disc;
}

void drawTexts(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rest,
               const SearchResultModel::Shown &shown, bool faded)
{
    // `area` as if text ran from left to right; returns what the line takes of it.
    const auto draw = [&](const MarkedLine &line, const QRect &area, const MarkedText &text,
                          Qt::TextElideMode mode) {
        const MarkedText fitted = line.fitted(text, area.width(), mode);
        line.paint(painter, QStyle::visualRect(option.direction, option.rect, area), fitted,
                   option.direction);
        return line.width(fitted);
    };
    const QColor quiet = Skin::instance().quietText(option.state.testFlag(QStyle::State_Selected));
    painter->setPen(faded ? quiet : Skin::instance().colors().text);
    const MarkedLine first(skinFont(NamePixels));
    if (shown.second.text.isEmpty() && shown.place.isEmpty()) {
        draw(first, rest, shown.name, Qt::ElideRight);
        return;
    }
    const int top = rest.center().y() - (NameLine + SecondLine) / 2;
    draw(first, QRect(rest.left(), top, rest.width(), NameLine), shown.name, Qt::ElideRight);

    painter->setPen(quiet);
    const MarkedLine second(skinFont(SecondPixels));
    QRect area(rest.left(), top + NameLine, rest.width(), SecondLine);
    const MarkedText place{shown.place, {}};
    if (shown.place.isEmpty()) {
        draw(second, area, shown.second, Qt::ElideRight);
        return;
    }
    if (!shown.second.text.isEmpty()) {
        const MarkedText separator{QStringLiteral(" · "), {}};
        const int both = area.width() - second.width(separator);
        const int most = qMax(both - second.width(place), int(both * SecondShare));
        const QRect before(area.left(), area.top(), most, area.height());
        area.setLeft(area.left() + draw(second, before, shown.second, Qt::ElideRight));
        area.setLeft(area.left() + draw(second, area, separator, Qt::ElideRight));
    }
    // Of a long path the end tells most.
    draw(second, area, place, Qt::ElideLeft);
}

} // namespace

SearchResultDelegate::SearchResultDelegate(const SearchResultModel *model, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

QSize SearchResultDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void SearchResultDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    const SearchEntry &entry = m_model->at(index.row()).entry;
    const SearchResultModel::Shown &shown = m_model->shown(index.row());
    const qreal ratio = painter->device()->devicePixelRatioF();
    const bool isPerson = entry.kind == SearchEntry::Person;
    const bool faded = isPerson && (entry.hasLeft || !shown.presence.isOnline());

    painter->save();
    RowPainter row(painter, option);
    row.background();
    const bool hasPicture = isPerson || !shown.picture.isEmpty();
    row.avatar(hasPicture ? AvatarStore::instance().avatar(shown.picture, entry.id, shown.name.text,
                                                           RowPainter::AvatarSize, ratio)
                          : kindPicture(entry.kind, ratio),
               faded);
    if (shown.hasPresence)
        row.presence(shown.presence);
    if (shown.isOutside)
        row.outside();
    if (entry.kind == SearchEntry::ServiceNumber)
        row.verified();
    drawTexts(painter, option, row.rest(), shown, faded);
    painter->restore();
}
