#include "virtualteam/dialogs/cvirtualteamtransauthtreeview.h"

#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/typefinder.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/companynames.h"
#include "virtualteam/dialogs/cvirtualteamtransauthtreedelegate.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teamtreemodel.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

using Delegate = CVirtualTeamTransAuthTreeDelegate;

CVirtualTeamTransAuthTreeView::CVirtualTeamTransAuthTreeView(const CVirtualTeamSimpleInfo &team,
                                                             TeamChoices::Kind kind,
                                                             QWidget *parent)
    : TeamChoiceView(new TeamChoices(new TeamTreeModel, kind), parent),
      m_teams(static_cast<TeamChoices *>(model())->teams()),
      m_choices(static_cast<TeamChoices *>(model())),
      m_vtId(team.vtId)
{
    m_choices->setParent(this);
    m_teams->setParent(this);
    setObjectName(QStringLiteral("CVirtualTeamTransAuthTreeView"));
    setItemDelegate(new Delegate(this));
    setAccessibleName(displayText(team.vtName));
    connectRows();
    connectHub();
    m_teams->setTeams({team});
    setExpanded(rowOf(rootGroupId()), true);
}

void CVirtualTeamTransAuthTreeView::connectRows()
{
    using View = CVirtualTeamTransAuthTreeView;
    connect(this, &QTreeView::expanded, this, &View::opened);
    connect(this, &QTreeView::clicked, this, &View::clickedRow);
    connect(this, &RowView::orderHeld, m_teams, &TeamTreeModel::setOrderFrozen);
    connect(this, &RowView::activatedRow, this, [this](const QModelIndex &index) {
        if (TeamChoices::groupId(index).isEmpty() && index.data(TeamChoices::Choosable).toBool())
            emit confirmed();
    });
}

void CVirtualTeamTransAuthTreeView::connectHub()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_updateFriendPresence, m_teams, &TeamTreeModel::setPresence);
    connect(hub, &Hub::signal_UpdateFrdHead, viewport(), [this] { viewport()->update(); });
    connect(hub, &Hub::signal_isConnected, viewport(), [this] { viewport()->update(); });
}

template <class Answer>
void CVirtualTeamTransAuthTreeView::ask(const QString &groupId, Answer answer)
{
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &CHttpVirtualTeamOperation::signal_GetVirtualTeamStructureFinish, this,
            [operation, answer](bool ok, const QString &, const QString &,
                                const QList<CVirtualTeamSimpleInfo> &groups,
                                const QList<CVirtualTeamMemberInfo> &members) {
                answer(ok, operation->resultCode(), groups, members);
            });
    operation->getVirtualTeamStructure(m_vtId, groupId);
}

// --- Choice --------------------------------------------------------------------------

void CVirtualTeamTransAuthTreeView::setMoving(const QStringList &userIds, const QString &group)
{
    m_moving = QSet<QString>(userIds.begin(), userIds.end());
    // Each group that is opened tells it by itself, and the topmost is open.
    if (group.isEmpty() || group == rootGroupId())
        return;
    ask(group, [this, group](bool ok, int, const auto &, const auto &members) {
        if (ok)
            learnPlace(group, members);
        emit choiceChanged();
    });
}

CVirtualTeamMemberInfo CVirtualTeamTransAuthTreeView::chosenMember() const
{
    const QModelIndex row = chosenRow();
    if (!row.data(TeamChoices::Choosable).toBool())
        return {};
    return m_teams->member(m_choices->mapToSource(row));
}

QString CVirtualTeamTransAuthTreeView::chosenGroup() const
{
    const QModelIndex row = chosenRow();
    return row.data(TeamChoices::Choosable).toBool() ? TeamChoices::groupId(row) : QString();
}

QString CVirtualTeamTransAuthTreeView::chosenName() const
{
    const QModelIndex row = chosenRow();
    return row.data(TeamChoices::Choosable).toBool() ? row.data(Qt::DisplayRole).toString()
                                                     : QString();
}

bool CVirtualTeamTransAuthTreeView::isOnCaret(const QModelIndex &index,
                                              const QPoint &position) const
{
    return !TeamChoices::groupId(index).isEmpty() && model()->hasChildren(index) &&
           Delegate::caretArea(visualRect(index), Delegate::depth(index), layoutDirection())
               .contains(position);
}

void CVirtualTeamTransAuthTreeView::clickedRow(const QModelIndex &index)
{
    if (TeamRowKind(index.data(TeamRowRole::Kind).toInt()) == TeamRowKind::Failed)
        request(TeamChoices::groupId(index.parent()));
    else if (!TeamChoices::groupId(index).isEmpty() &&
             m_choices->choiceKind() == TeamChoices::Members)
        setExpanded(index, !isExpanded(index));
}

void CVirtualTeamTransAuthTreeView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    m_pressTaken = event->button() == Qt::LeftButton && isOnCaret(index, event->pos());
    if (!m_pressTaken) {
        RowView::mousePressEvent(event);
        return;
    }
    finder()->clear();
    setExpanded(index, !isExpanded(index));
}

void CVirtualTeamTransAuthTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!std::exchange(m_pressTaken, false))
        RowView::mouseReleaseEvent(event);
}

void CVirtualTeamTransAuthTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    // The second click on a caret is one of its own; the same with a row that only opens.
    if (isOnCaret(index, event->pos())) {
        mousePressEvent(event);
        return;
    }
    RowView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && m_choices->choiceKind() == TeamChoices::Groups &&
        !TeamChoices::groupId(index).isEmpty())
        setExpanded(index, !isExpanded(index));
}

void CVirtualTeamTransAuthTreeView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex index = currentIndex();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_F5) {
        reload();
    } else if (event->key() == Qt::Key_Asterisk) {
        // The base class would open, and so ask for, everything below at once.
    } else if (isEnter && index.isValid() && !index.data(TeamChoices::Choosable).toBool()) {
        clickedRow(index);
    } else {
        TeamChoiceView::keyPressEvent(event);
    }
}

// --- Levels --------------------------------------------------------------------------

QModelIndex CVirtualTeamTransAuthTreeView::rowOf(const QString &groupId) const
{
    return m_choices->mapFromSource(m_teams->groupIndex(m_vtId, groupId));
}

void CVirtualTeamTransAuthTreeView::opened(const QModelIndex &index)
{
    const QString group = TeamChoices::groupId(index);
    switch (m_teams->childrenState(m_vtId, group)) {
    case TeamChildren::NotAsked:
    case TeamChildren::Failed:
        request(group);
        break;
    case TeamChildren::Loading:
    case TeamChildren::Loaded:
        break;
    }
}

void CVirtualTeamTransAuthTreeView::reload()
{
    QModelIndexList levels{rowOf(rootGroupId())};
    while (!levels.isEmpty()) {
        const QModelIndex level = levels.takeFirst();
        if (!isExpanded(level))
            continue;
        for (int row = 0; row < model()->rowCount(level); ++row) {
            const QModelIndex below = model()->index(row, 0, level);
            if (!TeamChoices::groupId(below).isEmpty())
                levels.append(below);
        }
        request(TeamChoices::groupId(level));
    }
}

void CVirtualTeamTransAuthTreeView::request(const QString &groupId)
{
    if (groupId.isEmpty() || m_asked.contains(groupId))
        return;
    m_asked.insert(groupId);
    // What is shown stays while it is asked for anew.
    if (m_teams->childrenState(m_vtId, groupId) != TeamChildren::Loaded)
        m_teams->setChildrenState(m_vtId, groupId, TeamChildren::Loading);
    ask(groupId, [this, groupId](bool ok, int code, const auto &groups, const auto &members) {
        m_asked.remove(groupId);
        if (ok)
            arrived(groupId, groups, members);
        else
            failed(groupId, code);
    });
}

void CVirtualTeamTransAuthTreeView::arrived(const QString &groupId,
                                            const QList<CVirtualTeamSimpleInfo> &groups,
                                            const QList<CVirtualTeamMemberInfo> &members)
{
    const bool wantsMembers = m_choices->choiceKind() == TeamChoices::Members;
    m_teams->setLevel(m_vtId, groupId, groups,
                      wantsMembers ? members : QList<CVirtualTeamMemberInfo>());
    learnPlace(groupId, members);
    if (wantsMembers)
        CompanyNames::instance().find(m_vtId, members);
    emit choiceChanged();
}

void CVirtualTeamTransAuthTreeView::failed(const QString &groupId, int code)
{
    LOG_ERROR("CVirtualTeamTransAuthTreeView: a level of the team failed nCode:"
              << QString::number(code));
    if (code == TeamCode::Unknown && groupId == rootGroupId()) {
        emit teamGone();
        return;
    }
    if (code == TeamCode::Unknown)
        m_teams->removeGroup(m_vtId, groupId);
    else if (m_teams->childrenState(m_vtId, groupId) != TeamChildren::Loaded)
        m_teams->setChildrenState(m_vtId, groupId, TeamChildren::Failed);
}

void CVirtualTeamTransAuthTreeView::learnPlace(const QString &groupId,
                                               const QList<CVirtualTeamMemberInfo> &members)
{
    if (m_moving.isEmpty())
        return;
    QSet<QString> elsewhere = m_moving;
    for (const CVirtualTeamMemberInfo &member : members)
        elsewhere.remove(member.userId);
    if (elsewhere.isEmpty())
        m_choices->setRefusedGroup(groupId);
    else if (m_choices->refusedGroup() == groupId)
        m_choices->setRefusedGroup(QString());
}
