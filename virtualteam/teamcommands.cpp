#include "virtualteam/teamcommands.h"

#include "controls/tipbox.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamrules.h"
#include "virtualteam/teamuser.h"

#include <QPointer>

TeamCommands::TeamCommands(QWidget *view) : QObject(view), m_view(view)
{
    whenUserLeaves(this, [this] { forgetUser(); });
    connect(this, &TeamCommands::busyChanged, this, &TeamCommands::sendPicked);
}

TeamCommands::~TeamCommands() = default;

// --- What all of them share ------------------------------------------------------

CHttpVirtualTeamOperation *TeamCommands::begin(const QString &vtId)
{
    auto *operation = new CHttpVirtualTeamOperation(this);
    connect(operation, &QObject::destroyed, this, [this, vtId] {
        if (--m_busy[vtId] > 0)
            return;
        m_busy.remove(vtId);
        emit busyChanged(vtId);
    });
    if (++m_busy[vtId] == 1)
        emit busyChanged(vtId);
    return operation;
}

// What was asked or sent for somebody else is neither answered nor told of any more; the
// dialogs close by themselves.
void TeamCommands::forgetUser()
{
    const auto boxes = m_view->findChildren<TipBox *>();
    for (TipBox *box : boxes)
        box->close();
    m_picks.clear();
    const auto operations = findChildren<Operation *>(QString(), Qt::FindDirectChildrenOnly);
    for (Operation *operation : operations)
        delete operation;
}

bool TeamCommands::mayAsk(const QString &vtId)
{
    return TeamMessages::mayRequest(m_view) && !isBusy(vtId);
}

void TeamCommands::confirm(const QString &vtId, const QString &question, const QString &name,
                           const std::function<void()> &send)
{
    if (!mayAsk(vtId))
        return;
    TipBox::ask(m_view, TeamMessages::about(question, name), [this, vtId, send] {
        if (!TeamMessages::mayRequest(m_view))
            return;
        if (isBusy(vtId))
            TipBox::tell(m_view, QObject::tr("teamBusy"));
        else
            send();
    });
}

void TeamCommands::open(const QString &vtId, const QString &about,
                        const std::function<BaseDialog *()> &make)
{
    if (BaseDialog *shown = m_dialogs.find(about)) {
        shown->present();
        return;
    }
    if (!mayAsk(vtId))
        return;
    BaseDialog *dialog = m_dialogs.findOrMake(about, make);
    connect(dialog, &BaseDialog::closed, this, [this, about] { m_dialogs.take(about); });
    whenUserLeaves(dialog, [dialog] { dialog->reject(); });
    dialog->present();
}

void TeamCommands::refuse()
{
    TipBox::tell(m_view, QObject::tr("notmodify"));
}

void TeamCommands::failed(const Operation *operation, const QString &text, QWidget *over)
{
    TipBox::tell(over ? over : m_view, text);
    checkOutdated(operation);
}

void TeamCommands::checkOutdated(const Operation *operation)
{
    const int code = operation->resultCode();
    if (code != TeamCode::Unknown && code != TeamCode::NotAllowed && code != TeamCode::Blocked)
        return;
    const QString vtId = operation->vtId();
    emit teamsChanged();
    emit teamOutdated(vtId);
}

// --- One line of text --------------------------------------------------------------

void TeamCommands::edit(VirtualTeamEditWidget::Mode mode, const QString &vtId, const QString &about,
                        const QString &preset, const Send &send)
{
    const QString key = QStringLiteral("%1|%2|%3").arg(QString::number(mode), vtId, about);
    open(vtId, key, [this, mode, preset, send] {
        auto *dialog = new VirtualTeamEditWidget(mode, preset, m_view);
        connect(dialog, &VirtualTeamEditWidget::signal_sure, this,
                [this, dialog, send](const QString &text) {
                    if (!dialog->isChange(text)) {
                        dialog->finish(true);
                        refuse();
                    } else if (!TeamMessages::mayRequest(dialog)) {
                        dialog->finish(false);
                    } else {
                        send(dialog, text);
                    }
                });
        return dialog;
    });
}

void TeamCommands::endEdit(VirtualTeamEditWidget *dialog, const Operation *operation, bool ok,
                           const QString &failure)
{
    if (dialog)
        dialog->finish(ok);
    if (!ok)
        failed(operation, failure, dialog);
}

// --- Sub-groups --------------------------------------------------------------------

void TeamCommands::addGroup(const TeamSelection &parent)
{
    if (!TeamRules::mayAddGroup(parent.level)) {
        TipBox::tell(m_view, QString::fromUtf8("子分组已达10层上限，不能再创建。"));
        return;
    }
    const QString vtId = parent.team.vtId;
    const QString pgId = parent.groupId;
    edit(VirtualTeamEditWidget::AddGroup, vtId, pgId, QString(),
         [this, vtId, pgId](VirtualTeamEditWidget *dialog, const QString &text) {
             Operation *operation = begin(vtId);
             connect(operation, &Operation::signal_addVirtualTeamGroup, this,
                     [this, operation, text, dialog = QPointer<VirtualTeamEditWidget>(dialog)](
                         const QString &team, const QString &group, const QString &added, bool ok) {
                         constexpr int SameName = 10001;
                         endEdit(dialog, operation, ok,
                                 operation->resultCode() == SameName
                                     ? QObject::tr("createexistedteam")
                                     : TeamMessages::failed());
                         if (ok && !added.isEmpty())
                             emit groupAdded(team, group, added, text);
                         else if (ok)
                             emit levelChanged(team, group);
                     });
             operation->addVirtualTeamGroup(vtId, pgId, text);
         });
}

void TeamCommands::renameGroup(const TeamSelection &group)
{
    const QString vtId = group.team.vtId;
    const QString groupId = group.groupId;
    edit(VirtualTeamEditWidget::RenameGroup, vtId, groupId, group.groupName,
         [this, vtId, groupId](VirtualTeamEditWidget *dialog, const QString &text) {
             Operation *operation = begin(vtId);
             connect(operation, &Operation::signal_modifyVirtualTeamGroupFinish, this,
                     [this, operation, text, dialog = QPointer<VirtualTeamEditWidget>(dialog)](
                         const QString &team, const QString &renamed, bool ok) {
                         endEdit(dialog, operation, ok, TeamMessages::groupRenameFailed());
                         if (ok)
                             emit groupRenamed(team, renamed, text);
                     });
             operation->modifyVirtualTeamGroup(vtId, groupId, text);
         });
}

void TeamCommands::deleteGroup(const TeamSelection &group)
{
    const QString vtId = group.team.vtId;
    confirm(vtId, QObject::tr("deleteTeamGroupTip"), group.groupName,
            [this, vtId, groupId = group.groupId] {
                Operation *operation = begin(vtId);
                connect(operation, &Operation::signal_deleteVirtualTeamGroupFinish, this,
                        [this, operation](const QString &team, const QString &deleted, bool ok,
                                          int code) {
                            if (ok) {
                                emit groupDeleted(team, deleted);
                                emit teamsChanged(); // its members have gone with it
                                return;
                            }
                            TeamMessages::tell(m_view, TeamMessages::deletionFailed(code));
                            checkOutdated(operation);
                        });
                operation->deleteVirtualTeamGroup(vtId, groupId);
            });
}

// --- Teams -------------------------------------------------------------------------

void TeamCommands::renameTeam(const CVirtualTeamSimpleInfo &team)
{
    const QString vtId = team.vtId;
    edit(VirtualTeamEditWidget::TeamName, vtId, QString(), team.vtName,
         [this, vtId](VirtualTeamEditWidget *dialog, const QString &text) {
             Operation *operation = begin(vtId);
             connect(operation, &Operation::signal_ModifyVirtualTeamNameFinish, this,
                     [this, operation, text, dialog = QPointer<VirtualTeamEditWidget>(dialog)](
                         const QString &renamed, bool ok) {
                         endEdit(dialog, operation, ok, TeamMessages::failed());
                         if (ok)
                             emit teamRenamed(renamed, text);
                     });
             operation->modifyVirtualTeamName(vtId, text);
         });
}

void TeamCommands::quit(const CVirtualTeamSimpleInfo &team)
{
    const QString vtId = team.vtId;
    confirm(vtId, QObject::tr("sureExistTeam"), team.vtName, [this, vtId] {
        Operation *operation = begin(vtId);
        connect(operation, &Operation::signal_QuitVirtualTeamFinish, this,
                [this, operation](const QString &left, bool ok, int code) {
                    if (ok)
                        emit teamLeft(left);
                    else
                        failed(operation, TeamMessages::quitFailed(code));
                });
        operation->quitVirtualTeam(vtId);
    });
}

void TeamCommands::dissolve(const CVirtualTeamSimpleInfo &team)
{
    const QString vtId = team.vtId;
    const QString question =
        QString::fromUtf8("确定解散虚拟团队？解散团队后，将会删除团队所有信息。");
    confirm(vtId, question, team.vtName, [this, vtId] {
        Operation *operation = begin(vtId);
        connect(operation, &Operation::signal_DissolveVirtualTeamFinish, this,
                [this, operation](const QString &dissolved, bool ok, int code) {
                    if (ok)
                        emit teamLeft(dissolved);
                    else
                        failed(operation, TeamMessages::dissolutionFailed(code));
                });
        operation->dissolveVirtualTeam(vtId);
    });
}
