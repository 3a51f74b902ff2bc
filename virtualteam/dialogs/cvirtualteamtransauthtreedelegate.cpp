#include "virtualteam/dialogs/cvirtualteamtransauthtreedelegate.h"

#include "controls/rowpainter.h"
#include "virtualteam/dialogs/choicemark.h"
#include "virtualteam/dialogs/teamchoices.h"

#include <QTreeView>

namespace {
constexpr qreal RefusedOpacity = 0.4; // of the mark of what cannot be chosen

bool isChosen(const QStyleOptionViewItem &option)
{
    return option.state.testFlag(QStyle::State_Selected);
}
} // namespace

CVirtualTeamTransAuthTreeDelegate::CVirtualTeamTransAuthTreeDelegate(QObject *parent)
    : CVirtualTeamTreeDelegate(parent)
{
}

void CVirtualTeamTransAuthTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                              const QModelIndex &index) const
{
    if (TeamChoices::groupId(index).isEmpty()) {
        CVirtualTeamTreeDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    paintGroup(painter, option, index);
    painter->restore();
}

void CVirtualTeamTransAuthTreeDelegate::paintChoice(QPainter *painter,
                                                    const QStyleOptionViewItem &option,
                                                    RowPainter *row, const QModelIndex &) const
{
    paintChoiceMark(painter, option, row, ChoiceMark::Radio, isChosen(option));
}

void CVirtualTeamTransAuthTreeDelegate::paintGroup(QPainter *painter,
                                                   const QStyleOptionViewItem &option,
                                                   const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QTreeView *>(option.widget);
    RowPainter row(painter, option);
    row.background();
    row.indent(indentOf(depth(index)));
    if (index.model()->hasChildren(index))
        row.caret(view && view->isExpanded(index));
    else
        row.indent(RowPainter::CaretRoom);
    const QString note = index.data(TeamChoices::Note).toString();
    const bool isRefused = !note.isEmpty();
    if (isRefused || index.data(TeamChoices::Choosable).toBool()) {
        painter->setOpacity(isRefused ? RefusedOpacity : 1);
        paintChoiceMark(painter, option, &row, ChoiceMark::Radio, !isRefused && isChosen(option));
        painter->setOpacity(1);
    }
    row.texts(index.data(Qt::DisplayRole).toString(), note, isRefused);
}
