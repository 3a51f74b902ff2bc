// What a user can do with teams: asks, refuses what cannot be, sends the request,
// tells of a failure, and tells by a signal of what has changed. A request that runs
// is not sent a second time.
#pragma once

#include "virtualteam/teamselection.h"

#include <QObject>
#include <QSet>
#include <QStringList>

class QWidget;

class TeamCommands : public QObject
{
    Q_OBJECT

public:
    // `view` is the parent of every box and dialog.
    explicit TeamCommands(QWidget *view);
    ~TeamCommands() override;

    // --- Group and team -------------------------------------------------------------
    void addMembers(const TeamSelection &where, const QStringList &presentIds); // host's picker
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
    void createGroupChat(const TeamSelection &members);

    // People picked in the host's picker.
    void addPicked(const QString &vtId, const QString &groupId, const QStringList &userIds);

    // Whether a request that changes this team runs.
    bool isBusy(const QString &vtId) const { return m_busy.contains(vtId); }

signals:
    void busyChanged(const QString &vtId);
    void teamsChanged(); // which there are, or the own roles: to be loaded again
    void levelChanged(const QString &vtId, const QString &groupId); // to be loaded again
    void teamLeft(const QString &vtId);                             // or dissolved
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
    QWidget *m_view;
    QSet<QString> m_busy;
};
