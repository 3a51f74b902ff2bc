// What a user can do with teams: asks, refuses what cannot be, sends the request,
// tells of a failure, and tells by a signal of what has changed. A request that runs
// is not sent a second time.
//
// What is asked about is copied: it may have gone from the tree by the time of the
// answer, which the service tells then. Who may do what is TeamRules' business.
#pragma once

#include "controls/windowregistry.h"
#include "virtualteam/dialogs/virtualteameditwidget.h"
#include "virtualteam/teamselection.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <functional>

class CHttpVirtualTeamOperation;

class TeamCommands : public QObject
{
    Q_OBJECT

public:
    // `view` is the parent of every box and dialog.
    explicit TeamCommands(QWidget *view);
    ~TeamCommands() override;

    // --- Group and team -------------------------------------------------------------
    // Opens the host's picker. `presentIds`: who is known to be in the team already;
    // the others of its members are asked for.
    void addMembers(const TeamSelection &where, const QStringList &presentIds);
    void addGroup(const TeamSelection &parent);
    void renameGroup(const TeamSelection &group);
    void deleteGroup(const TeamSelection &group);
    void renameTeam(const CVirtualTeamSimpleInfo &team);
    void inviteCompany(const CVirtualTeamSimpleInfo &team);
    void setAdministrators(const CVirtualTeamSimpleInfo &team); // the dialog
    void transferAuthority(const CVirtualTeamSimpleInfo &team);
    void quit(const CVirtualTeamSimpleInfo &team);
    void dissolve(const CVirtualTeamSimpleInfo &team);

    // --- Members: all of the selection, or the only one -------------------------------
    void editNickName(const TeamSelection &member);
    void editPost(const TeamSelection &member);
    void toggleAdministrator(const TeamSelection &member);
    void deleteMembers(const TeamSelection &members);
    void moveMembers(const TeamSelection &members); // the dialog
    void moveMembersTo(const QString &vtId, const QString &groupId, const QStringList &userIds);
    void openChat(const TeamSelection &member);
    void viewDetail(const TeamSelection &member);
    void createGroupChat(const TeamSelection &members);

    // People picked in the host's picker. They wait while the team is busy, and go in
    // portions that the service takes; the whole has one result.
    void addPicked(const QString &vtId, const QString &groupId, const QStringList &userIds);
    static constexpr int MostPicks = 20;    // of one team that wait
    static constexpr int MostAtOnce = 1000; // people in one request
    // Forgets what was picked for teams that are none any more.
    void keepPicksOf(const QStringList &vtIds);

    // Whether a request that changes this team runs.
    bool isBusy(const QString &vtId) const { return m_busy.contains(vtId); }

    // Tells that a change cannot be made.
    void refuse();

signals:
    void busyChanged(const QString &vtId);
    void teamsChanged(); // which there are, or the own roles: to be loaded again
    void levelChanged(const QString &vtId, const QString &groupId); // to be loaded again
    // The service knows another team than this one: all that is open of it is to be
    // loaded again.
    void teamOutdated(const QString &vtId);
    void teamLeft(const QString &vtId); // or dissolved
    void teamRenamed(const QString &vtId, const QString &name);
    void groupRenamed(const QString &vtId, const QString &groupId, const QString &name);
    void groupDeleted(const QString &vtId, const QString &groupId);
    void groupAdded(const QString &vtId, const QString &pgId, const QString &groupId,
                    const QString &name);
    void nickNameChanged(const QString &vtId, const QString &userId, const QString &nickName);
    void postChanged(const QString &vtId, const QString &userId, const QString &post);
    void membersDeleted(const QString &vtId, const QStringList &userIds);
    void membersMoved(const QString &vtId, const QString &groupId, const QStringList &userIds);
    // Who became a sub-administrator and who is none any more.
    void administratorsChanged(const QString &vtId, const QStringList &added,
                               const QStringList &removed);
    void authorityGranted(const QString &vtId, const QString &userId);

private:
    using Operation = CHttpVirtualTeamOperation;
    // Makes the request for the text that was typed.
    using Send = std::function<void(VirtualTeamEditWidget *dialog, const QString &text)>;

    struct Pick
    {
        QString groupId;
        QStringList userIds;
        int done = 0;   // of them, those that the service has dealt with
        int failed = 0; // of these

        QStringList portion() const { return userIds.mid(done, MostAtOnce); }
    };

    // An operation that keeps the team busy until it has ended.
    Operation *begin(const QString &vtId);
    // Whether a question about the team leads anywhere: tells of a lost connection, and
    // is silent while the team is busy, since the menus are disabled then.
    bool mayAsk(const QString &vtId);
    // Asks about what is called `name`; `send` makes the request if nothing has come in
    // between.
    void confirm(const QString &vtId, const QString &question, const QString &name,
                 const std::function<void()> &send);
    // Raises the dialog of that key, or opens the one that `make` makes.
    void open(const QString &vtId, const QString &about, const std::function<BaseDialog *()> &make);
    // Asks for a line of text. One dialog for each `about`.
    void edit(VirtualTeamEditWidget::Mode mode, const QString &vtId, const QString &about,
              const QString &preset, const Send &send);
    void endEdit(VirtualTeamEditWidget *dialog, const Operation *operation, bool ok,
                 const QString &failure);
    void failed(const Operation *operation, const QString &text, QWidget *over = nullptr);
    // Has the team loaded again when the service's answer means that it has changed.
    void checkOutdated(const Operation *operation);
    void forgetUser();
    void editPersonalInfo(VirtualTeamEditWidget::Mode mode, const TeamSelection &member);
    void sendPicked(const QString &vtId);
    void portionEnded(const Operation *operation, bool ok);
    void pickEnded(const Operation *operation, const Pick &pick, bool ok);
    void askMembers(const QString &vtId, int groupId, const QStringList &presentIds);

    QWidget *m_view;
    QHash<QString, int> m_busy; // by team, how many requests
    // By team, the one that is sent first; never empty.
    QHash<QString, QList<Pick>> m_picks;
    WindowRegistry<BaseDialog> m_dialogs;
};
