// What TeamCommands does with the members of a team.
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/paneactions.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamrules.h"

#include <QPointer>
#include <QTimer>

namespace {

QStringList idsOf(const QList<CVirtualTeamMemberInfo> &members)
{
    QStringList ids;
    for (const CVirtualTeamMemberInfo &member : members)
        ids.append(member.userId);
    return ids;
}

QStringList jidsOfOthers(const TeamSelection &members)
{
    QStringList jids;
    for (const CVirtualTeamMemberInfo &member : members.members) {
        const QString jid = makeJid(member.userId);
        if (!jid.isEmpty() && jid != ctx().ownJid())
            jids.append(jid);
    }
    jids.removeDuplicates(); // who is in several teams
    return jids;
}

} // namespace

// --- Talking -----------------------------------------------------------------------

void TeamCommands::openChat(const TeamSelection &member)
{
    const QStringList others = jidsOfOthers(member);
    if (!others.isEmpty())
        FriendUIEventProcess::openChat(others.first(), MessageData::Person);
}

void TeamCommands::createGroupChat(const TeamSelection &members)
{
    const QStringList others = jidsOfOthers(members);
    if (!others.isEmpty())
        FriendUIEventProcess::createGroupChat(others);
}

void TeamCommands::viewDetail(const TeamSelection &member)
{
    PaneActions *actions = paneActions();
    if (actions && !member.members.isEmpty())
        actions->openContactDetail(makeJid(member.members.first().userId));
}

// --- Adding and moving ---------------------------------------------------------------

void TeamCommands::addMembers(const TeamSelection &where, const QStringList &presentIds)
{
    if (!mayAsk(where.team.vtId))
        return;
    bool isNumber = false;
    const int groupId = where.groupId.toInt(&isNumber);
    if (isNumber) {
        askMembers(where.team.vtId, groupId, presentIds);
        return;
    }
    // The picker could not say where its people belong.
    LOG_ERROR("the id of a sub-group is no number: " << logText(where.groupId));
    TipBox::tell(m_view, TeamMessages::failed());
}

void TeamCommands::askMembers(const QString &vtId, int groupId, const QStringList &presentIds)
{
    Operation *operation = begin(vtId);
    connect(operation, &Operation::siganal_getVirtualTeamMembersFinish, this,
            [this, operation, groupId, presentIds](
                const QString &team, const QList<CVirtualTeamMemberInfo> &members, bool ok) {
                if (!ok) {
                    failed(operation, TeamMessages::failed());
                    return;
                }
                QStringList present = presentIds + idsOf(members);
                present.removeDuplicates();
                // The host may show its picker, and end the view, inside the request.
                QTimer::singleShot(0, this, [team, groupId, present] {
                    FriendUIEventProcess::pickTeamMembers(team, groupId, present);
                });
            });
    operation->getVirtualTeamMembers(vtId);
}

void TeamCommands::moveMembersTo(const QString &vtId, const QString &groupId,
                                 const QStringList &userIds)
{
    if (userIds.isEmpty() || !mayAsk(vtId))
        return;
    Operation *operation = begin(vtId);
    connect(operation, &Operation::signal_transferVirtualTeamMemberFinish, this,
            [this, operation, userIds](const QString &team, const QString &group, bool ok) {
                if (ok)
                    emit membersMoved(team, group, userIds);
                else
                    failed(operation, TeamMessages::moveFailed());
            });
    operation->transferVirtualTeamMember(vtId, groupId, userIds);
}

// --- Changing and deleting -----------------------------------------------------------

void TeamCommands::editNickName(const TeamSelection &member)
{
    editPersonalInfo(VirtualTeamEditWidget::NickName, member);
}

void TeamCommands::editPost(const TeamSelection &member)
{
    editPersonalInfo(VirtualTeamEditWidget::Post, member);
}

void TeamCommands::editPersonalInfo(VirtualTeamEditWidget::Mode mode, const TeamSelection &member)
{
    if (member.members.isEmpty())
        return;
    const bool isPost = mode == VirtualTeamEditWidget::Post;
    const CVirtualTeamMemberInfo &person = member.members.first();
    const QString vtId = member.team.vtId;
    const auto ended = [this, isPost](VirtualTeamEditWidget *dialog, Operation *operation,
                                      const QString &text, bool ok) {
        endEdit(dialog, operation, ok,
                isPost ? TeamMessages::postChangeFailed() : TeamMessages::nickNameChangeFailed());
        const QString user = operation->memberIds().value(0);
        if (!ok)
            return;
        if (isPost)
            emit postChanged(operation->vtId(), user, text);
        else if (text.isEmpty()) // the service knows what the person is called then
            emit teamOutdated(operation->vtId());
        else
            emit nickNameChanged(operation->vtId(), user, text);
    };
    edit(mode, vtId, person.userId, isPost ? person.duty : person.nickName,
         [this, vtId, isPost, ended, id = person.userId](VirtualTeamEditWidget *dialog,
                                                         const QString &text) {
             Operation *operation = begin(vtId);
             connect(operation, &Operation::signal_ModifyVirtualTeamPersonalInfoFinish, this,
                     [operation, text, ended, dialog = QPointer<VirtualTeamEditWidget>(dialog)](
                         const QString &, const QString &, bool ok) {
                         ended(dialog, operation, text, ok);
                     });
             if (isPost)
                 operation->modifyVirtualTeamDuty(vtId, id, text);
             else
                 operation->modifyVirtualTeamNickName(vtId, id, text);
         });
}

void TeamCommands::toggleAdministrator(const TeamSelection &member)
{
    const CVirtualTeamMemberInfo person = member.members.value(0);
    if (person.userId.isEmpty() || person.role == TeamRole::Owner) {
        refuse();
        return;
    }
    const QString vtId = member.team.vtId;
    const QStringList ids{person.userId};
    if (person.role != TeamRole::SubAdministrator) {
        confirm(vtId, QObject::tr("sureSetAdmin"), person.shownName(), [this, vtId, ids] {
            Operation *operation = begin(vtId);
            connect(operation, &Operation::signal_addVirtualTeamAdminFinish, this,
                    [this, operation](const QString &team, const QStringList &added, bool ok) {
                        if (ok)
                            emit administratorsChanged(team, added, {});
                        else
                            failed(operation, TeamMessages::addAdministratorFailed());
                    });
            operation->addVirtualTeamAdmin(vtId, ids);
        });
        return;
    }
    confirm(vtId, QObject::tr("sureCancelAdmin"), person.shownName(), [this, vtId, ids] {
        Operation *operation = begin(vtId);
        connect(operation, &Operation::signal_deleteVirtualTeamAdminFinish, this,
                [this, operation](const QString &team, const QStringList &removed, bool ok) {
                    if (ok)
                        emit administratorsChanged(team, {}, removed);
                    else
                        failed(operation, TeamMessages::removeAdministratorFailed());
                });
        operation->deleteVirtualTeamAdmin(vtId, ids);
    });
}

void TeamCommands::deleteMembers(const TeamSelection &members)
{
    if (members.members.isEmpty())
        return;
    if (!TeamRules::mayDelete(members, ctx().userId())) {
        TipBox::tell(m_view, QString::fromUtf8("所选成员包含子管理员不能被删除！"));
        return;
    }
    const QString vtId = members.team.vtId;
    const bool isOne = members.members.size() == 1;
    const QString question =
        isOne ? QObject::tr("sureDeleteTeamMember") : QString::fromUtf8("确定批量删除成员吗？");
    const QString name = isOne ? members.members.first().shownName() : QString();
    confirm(vtId, question, name, [this, vtId, ids = idsOf(members.members)] {
        Operation *operation = begin(vtId);
        connect(operation, &Operation::signal_deleteVirtualTeamMemberFinish, this,
                [this, operation, ids](const QString &team, bool ok) {
                    if (ok) {
                        emit membersDeleted(team, ids);
                        emit teamsChanged(); // it has fewer members now
                        return;
                    }
                    TeamMessages::tell(m_view,
                                       TeamMessages::deletionFailed(operation->resultCode()));
                    checkOutdated(operation);
                });
        operation->deleteVirtualTeamMember(vtId, ids);
    });
}
