#include "contacts/search/searchresultdelegate.h"

#include "contacts/search/searchresultmodel.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QStyle>
#include <QTextLayout>

namespace {

constexpr int NamePixels = 14;
constexpr int NameLine = 20; // height
constexpr int SecondPixels = 12;
constexpr int SecondLine = 17;
constexpr int MarkOpacity = 64;     // of 255
constexpr int BoldAllowance = 6;    // what marked letters may take more
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

class Line
{
public:
    Line(QPainter *painter, const QStyleOptionViewItem &option, int pixels, const QColor &color)
        : m_painter(painter),
          m_option(option),
          m_font(skinFont(pixels)),
          m_metrics(m_font),
          m_color(color)
    {
    }

    // In which the text is not cut.
    int width(const QString &text) const { return m_metrics.horizontalAdvance(text) + 1; }

    // `area` as if text ran from left to right.
    void draw(const QRect &area, const MarkedText &line, Qt::TextElideMode mode) const
    {
        const int room = line.marks.isEmpty() ? area.width() : area.width() - BoldAllowance;
        const QString text = m_metrics.elidedText(line.text, mode, room);
        const bool whole = text == line.text;
        QTextLayout layout(text, m_font);
        QTextOption wrap(QStyle::visualAlignment(m_option.direction, Qt::AlignLeft));
        wrap.setWrapMode(QTextOption::NoWrap);
        wrap.setTextDirection(m_option.direction);
        layout.setTextOption(wrap);
        layout.setFormats(formats(line.marks, whole ? text.size() : text.size() - 1));
        layout.beginLayout();
        QTextLine row = layout.createLine();
        row.setLineWidth(area.width());
        layout.endLayout();
        const QRect place = QStyle::visualRect(m_option.direction, m_option.rect, area);
        m_painter->setPen(m_color);
        layout.draw(m_painter,
                    QPointF(place.left(), place.top() + (place.height() - row.height()) / 2));
    }

private:
    QVector<QTextLayout::FormatRange> formats(const SearchMarks &marks, int end) const
    {
        QColor marker = Skin::instance().colors().theme;
        marker.setAlpha(MarkOpacity);
        QTextCharFormat format;
        format.setBackground(marker);
        format.setFontWeight(QFont::DemiBold); // seen on any ground, also a selected row's
        QVector<QTextLayout::FormatRange> ranges;
        for (const SearchMark &mark : marks) {
            const int length = qMin(mark.second, end - mark.first);
            if (length > 0)
                ranges.append({mark.first, length, format});
        }
        return ranges;
    }

    QPainter *m_painter;
    const QStyleOptionViewItem &m_option;
    const QFont m_font;
    const QFontMetrics m_metrics;
    const QColor m_color;
};

void drawTexts(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rest,
               const SearchResultModel::Shown &shown, bool faded)
{
    const QColor quiet = Skin::instance().quietText(option.state.testFlag(QStyle::State_Selected));
    const QColor text = faded ? quiet : Skin::instance().colors().text;
    const Line first(painter, option, NamePixels, text);
    const bool hasSecond = !shown.second.text.isEmpty() || !shown.place.isEmpty();
    if (!hasSecond) {
        first.draw(rest, shown.name, Qt::ElideRight);
        return;
    }
    const int top = rest.center().y() - (NameLine + SecondLine) / 2;
    first.draw(QRect(rest.left(), top, rest.width(), NameLine), shown.name, Qt::ElideRight);

    const Line second(painter, option, SecondPixels, quiet);
    const QRect area(rest.left(), top + NameLine, rest.width(), SecondLine);
    if (shown.place.isEmpty()) {
        second.draw(area, shown.second, Qt::ElideRight);
        return;
    }
    // Of a long path the end tells most.
    MarkedText before = shown.second;
    if (!before.text.isEmpty())
        before.text += QStringLiteral(" · ");
    const int room = area.width() - second.width(shown.place);
    const int width = qMin(second.width(before.text), qMax(room, int(area.width() * SecondShare)));
    if (width > 0)
        second.draw(QRect(area.left(), area.top(), width, area.height()), before, Qt::ElideRight);
    second.draw(area.adjusted(width, 0, 0, 0), {shown.place, {}}, Qt::ElideLeft);
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
    drawTexts(painter, option, row.rest(), shown, faded);
    painter->restore();
}
