#include "contacts/friendlistview.h"

#include "common/context.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace {

struct Entry
{
    const char *sortKey;
    const char *text;
    bool isKey; // else the text is shown as it stands
    const char *id;
    int type;
    int right; // an ApplicationContext::Right; -1: everybody has it
};

constexpr Entry entries[] = {
    {"00001", "organizationTree", true, "organizationTree", 1, ApplicationContext::Org},
    {"00002", "virtureteam", true, "virtureteam", 6, ApplicationContext::VirtualTeam},
    {"00003", "我的好友", false, "friends", 0, -1},
    {"00004", "customer", true, "customer", 5, ApplicationContext::Customer},
    {"00005", "groupChat", true, "groupChat", 2, ApplicationContext::GroupChat},
    {"00006", "服务号", false, "serviceNumbers", 3, ApplicationContext::ServiceNo},
    {"00007", "outsidefrd", true, "outsidefrd", 7, ApplicationContext::External},
    {"00008", "latestContact", true, "latestContact", 4, ApplicationContext::Latest},
};

constexpr int EntryHeight = 68;
constexpr int LineHeight = 16;
constexpr int IconSize = 24;
constexpr int TextPixels = 12;
constexpr int MarkWidth = 3;

// An entry's text follows the language, so it is translated when it is read.
class EntryItem : public QStandardItem
{
public:
    explicit EntryItem(const Entry &entry) : m_text(entry.text), m_isKey(entry.isKey)
    {
        setData(QString::fromUtf8(entry.text), EntryRole::TextKey);
        setData(QString::fromLatin1(entry.id), EntryRole::Id);
        setData(QString::fromLatin1(entry.sortKey), EntryRole::SortKey);
        setData(true, EntryRole::IsEntry);
        setData(entry.type, EntryRole::Type);
    }

    QVariant data(int role) const override
    {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole)
            return QStandardItem::data(role);
        const QString text = m_isKey ? QObject::tr(m_text) : QString::fromUtf8(m_text);
        const int unread = QStandardItem::data(EntryRole::Unread).toInt();
        if (role == Qt::DisplayRole || unread == 0)
            return text;
        return QString(text + QStringLiteral(", ") + QObject::tr("unreadMessages").arg(unread));
    }

private:
    const char *m_text;
    const bool m_isKey;
};

class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return QSize(FriendListView::ColumnWidth, EntryHeight);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const Skin::Colors &colors = Skin::instance().colors();
        const bool current = option.state.testFlag(QStyle::State_Selected);
        const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
        painter->save();
        painter->fillRect(option.rect, current   ? colors.background
                                       : hovered ? colors.hover
                                                 : colors.side);
        if (current) {
            const QRect mark(option.rect.left(), option.rect.top() + 14, MarkWidth,
                             option.rect.height() - 28);
            painter->fillRect(QStyle::visualRect(option.direction, option.rect, mark),
                              colors.theme);
        }
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(colors.theme);
            painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        }
        const QColor color = current ? colors.theme : colors.secondary;
        const QString icon = QStringLiteral("Resources/images/contacts/entry_%1.png")
                                 .arg(index.data(EntryRole::Id).toString());
        const QPoint middle = option.rect.center();
        painter->drawPixmap(
            middle.x() - IconSize / 2, option.rect.top() + 10,
            loadPicture(icon, IconSize, painter->device()->devicePixelRatioF(), color));
        const int unread = index.data(EntryRole::Unread).toInt();
        const QRect badge(QPoint(middle.x() + IconSize / 4, option.rect.top() + 5),
                          RowPainter::badgeSize(unread));
        if (!badge.isEmpty())
            RowPainter::drawBadge(painter, QStyle::visualRect(option.direction, option.rect, badge),
                                  unread);
        painter->setFont(skinFont(TextPixels));
        painter->setPen(current ? colors.theme : colors.text);
        const QRect textArea(option.rect.left() + 3, option.rect.top() + 36,
                             option.rect.width() - 6, 2 * LineHeight);
        drawText(painter, textArea, index.data(Qt::DisplayRole).toString());
        painter->restore();
    }

private:
    // Two lines at most, divided between words.
    static void drawText(QPainter *painter, const QRect &area, const QString &text)
    {
        const QFontMetrics metrics = painter->fontMetrics();
        const auto line = [&](int row, const QString &words) {
            painter->drawText(
                QRect(area.left(), area.top() + row * LineHeight, area.width(), LineHeight),
                Qt::AlignCenter | Qt::TextSingleLine,
                metrics.elidedText(words, Qt::ElideRight, area.width()));
        };
        const int blank = text.indexOf(QLatin1Char(' '));
        if (blank < 0 || metrics.horizontalAdvance(text) <= area.width()) {
            line(0, text);
            return;
        }
        line(0, text.left(blank));
        line(1, text.mid(blank + 1));
    }
};

} // namespace

FriendListView::FriendListView(QWidget *parent)
    : QListView(parent), m_model(new QStandardItemModel(this))
{
    setObjectName(QStringLiteral("FriendListView"));
    setModel(m_model);
    setItemDelegate(new EntryDelegate(this));
    setFixedWidth(ColumnWidth);
    setFrameShape(NoFrame);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The column is too narrow for one; the wheel and the keys scroll it.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_model->setSortRole(EntryRole::SortKey);
    for (const Entry &entry : entries) {
        if (entry.right >= 0 && !ctx().hasRight(entry.right))
            continue;
        m_model->appendRow(new EntryItem(entry));
    }
    const auto recolor = [this] {
        QPalette colors = Skin::instance().palette();
        colors.setColor(QPalette::Base, Skin::instance().colors().side);
        setPalette(colors);
    };
    recolor();
    connect(&Skin::instance(), &Skin::changed, this, recolor);
}

QModelIndex FriendListView::entry(const QString &id) const
{
    return m_model->match(m_model->index(0, 0), EntryRole::Id, id, 1, Qt::MatchExactly).value(0);
}

bool FriendListView::selectEntry(const QString &id)
{
    const QModelIndex found = entry(id);
    if (found.isValid())
        setCurrentIndex(found);
    return found.isValid();
}

void FriendListView::setUnread(const QString &id, int count)
{
    const QModelIndex found = entry(id);
    if (found.isValid() && found.data(EntryRole::Unread).toInt() != count)
        m_model->setData(found, count, EntryRole::Unread);
}

void FriendListView::announce(const QModelIndex &index)
{
    if (index.isValid())
        emit signal_clickItem(index.data(EntryRole::Type).toInt(),
                              index.data(EntryRole::Id).toString());
}

void FriendListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    announce(current);
}

void FriendListView::mousePressEvent(QMouseEvent *event)
{
    // A click on another entry makes it current and is announced by that.
    const bool again = indexAt(event->pos()) == currentIndex();
    QListView::mousePressEvent(event);
    if (again && event->button() == Qt::LeftButton)
        announce(currentIndex());
}
