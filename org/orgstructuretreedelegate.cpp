#include "org/orgstructuretreedelegate.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "http/fileservices.h"
#include "org/orgtreemodel.h"

#include <QFileInfo>
#include <QStyle>
#include <QTreeView>

namespace {

constexpr int Indent = 16;
constexpr int CaretSize = RowPainter::CaretSize;
constexpr int CaretRoom = RowPainter::CaretRoom;
// Rows of a very deep organisation would leave the view.
constexpr int MaximumIndents = 8;

int indentOf(int depth)
{
    return qMin(depth, MaximumIndents) * Indent;
}

// The local picture behind the name that the service tells: its base name only,
// since it is no path of ours.
QString pictureOf(const QString &photoName)
{
    const QString name = QFileInfo(photoName).fileName();
    if (name.isEmpty())
        return QString();
    const QString known = ctx().headPath(name);
    return known.isEmpty() ? PictureFiles::instance().file(name) : known;
}

} // namespace

OrgStructureTreeDelegate::OrgStructureTreeDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

int OrgStructureTreeDelegate::depth(const QModelIndex &index)
{
    int depth = 0;
    for (QModelIndex at = index.parent(); at.isValid(); at = at.parent())
        ++depth;
    return depth;
}

QRect OrgStructureTreeDelegate::caretArea(const QRect &row, int depth,
                                          Qt::LayoutDirection direction)
{
    // The whole height, so that it is easy to hit.
    const QRect area(row.left() + RowPainter::Margin - CaretSize / 2 + indentOf(depth), row.top(),
                     CaretRoom + CaretSize / 2, row.height());
    return QStyle::visualRect(direction, row, area);
}

QRect OrgStructureTreeDelegate::locateArea(const QRect &row, Qt::LayoutDirection direction)
{
    // Larger than the sign, so that it is easy to hit.
    const int width = RowPainter::MarkSize + 2 * RowPainter::Margin;
    const QRect area(row.right() - width + 1, row.top(), width, row.height());
    return QStyle::visualRect(direction, row, area);
}

bool OrgStructureTreeDelegate::hasLocateSign(const QModelIndex &index)
{
    return index.isValid() && !index.parent().isValid() && index.row() == 0 &&
           ctx().hasRight(ApplicationContext::LocateSelf);
}

QSize OrgStructureTreeDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    // The width is the view's own.
    return QSize(0, RowPainter::RowHeight);
}

void OrgStructureTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    painter->save();
    switch (OrgRowKind(index.data(OrgRole::Kind).toInt())) {
    case OrgRowKind::Employee:
        paintEmployee(painter, option, index);
        break;
    case OrgRowKind::Department:
        paintDepartment(painter, option, index);
        break;
    case OrgRowKind::Loading:
    case OrgRowKind::Failed: {
        RowPainter row(painter, option);
        row.background();
        row.indent(indentOf(depth(index)));
        if (OrgRowKind(index.data(OrgRole::Kind).toInt()) == OrgRowKind::Failed)
            row.mark(loadPicture(QStringLiteral("Resources/images/icon/glyph_refresh.png"),
                                 RowPainter::MarkSize, painter->device()->devicePixelRatioF(),
                                 Skin::instance().colors().theme));
        else
            row.indent(CaretRoom);
        row.texts(index.data(Qt::DisplayRole).toString(), QString(), true);
        break;
    }
    }
    painter->restore();
}

void OrgStructureTreeDelegate::paintEmployee(QPainter *painter, const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    // Without a connection nobody's presence is known, as in the friend tree.
    PresenceData presence;
    if (isOnline()) {
        presence.pcShow = PresenceData::ePcShowType(index.data(OrgRole::Status).toInt());
        presence.mobile = index.data(OrgRole::Device).toInt();
    }
    const QString name = index.data(Qt::DisplayRole).toString();
    const bool faded = !presence.isOnline();

    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    row.avatar(AvatarStore::instance().avatar(pictureOf(index.data(OrgRole::Photo).toString()),
                                              makeJid(index.data(OrgRole::Id).toString()), name,
                                              RowPainter::AvatarSize,
                                              painter->device()->devicePixelRatioF()),
               faded);
    row.presence(presence);
    if (hasLocateSign(index))
        row.markAtRight(loadPicture(QStringLiteral("Resources/images/icon/glyph_locate.png"),
                                    RowPainter::MarkSize, painter->device()->devicePixelRatioF(),
                                    Skin::instance().colors().secondary));
    row.texts(name, ::displayText(index.data(OrgRole::Duty).toString()), faded);
}

void OrgStructureTreeDelegate::paintDepartment(QPainter *painter,
                                               const QStyleOptionViewItem &option,
                                               const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QTreeView *>(option.widget);
    const bool open = view && view->isExpanded(index);
    const qreal ratio = painter->device()->devicePixelRatioF();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QColor quiet = Skin::instance().quietText(selected);

    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    row.caret(open);
    if (hasLocateSign(index))
        row.markAtRight(loadPicture(QStringLiteral("Resources/images/icon/glyph_locate.png"),
                                    RowPainter::MarkSize, ratio, quiet));
    row.texts(index.data(Qt::DisplayRole).toString(), QString(), false);
}
