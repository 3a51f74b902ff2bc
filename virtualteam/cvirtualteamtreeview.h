// The teams on screen: opens levels, asks for them, shows the menus, moves members by
// drag and drop, and brings what TeamCommands did into the model.
#pragma once

#include "controls/rowview.h"
#include "virtualteam/teamrules.h"
#include "virtualteam/teamselection.h"

#include <QPersistentModelIndex>

class QAction;
class TeamCommands;
class TeamMenu;
class TeamTreeModel;

class CVirtualTeamTreeView : public RowView
{
    Q_OBJECT

public:
    explicit CVirtualTeamTreeView(QWidget *parent = nullptr);
    ~CVirtualTeamTreeView() override;

    TeamTreeModel *teams() const { return m_model; }
    TeamCommands *commands() const { return m_commands; }

    // Opens a team and shows its row, or the row of one of its members once its level
    // is there.
    void expandTeam(const QString &vtId);
    // Levels that are open, and what is loaded of closed ones is asked for again when
    // they are opened next.
    QList<QPair<QString, QString>> openLevels(const QString &vtId) const;

signals:
    // One level is wanted.
    void signal_GetMembers(QString vtId, QString pgId);
    // The list of teams is to be loaded again.
    void teamsChanged();
    void signal_updateVirtualTeamName(const QString &vtId, const QString &name);
    void signal_updateVirtualTeamGroupName(const QString &vtId, const QString &groupId,
                                           const QString &name);
    void signal_updateVirtualTeamNickName(const QString &vtId, const QString &userId,
                                          const QString &nickName);
    void signal_updateVirtualTeamPostName(const QString &vtId, const QString &userId,
                                          const QString &post);
    void signal_addMembersToVirtualTeam(const QString &vtId, const QStringList &userIds,
                                        int groupId);
    void signal_addAdminFinish(const QString &vtId, const QStringList &added,
                               const QStringList &removed);

public slots:
    void slot_orgMenuClicked(QAction *action);
    void slot_empMenuClicked(QAction *action);
    void slot_multipMenuClicked(QAction *action);
    void slot_settingMenuClicked(QAction *action);
    void slot_deleteVirtualTeamMemberFinish(const QString &vtId, const QStringList &userIds);

private:
    // --- Menus and what their entries do: teamtreemenus.cpp -------------------------
    void buildMenus(); // m_model and m_commands are there before
    void openMenu(const QModelIndex &index, const QPoint &position); // in the viewport
    void openSettingMenu(const QModelIndex &team, const QPoint &position);
    // What Delete and F2 do with the selection; false: the key means nothing here.
    bool runKey(int key);
    void openChatWith(const QModelIndex &member);
    void showMenu(TeamMenu *menu, const TeamSubject &subject, const QPoint &position);
    TeamSubject subjectOf(const QModelIndex &index, bool withSelection) const;
    TeamSelection selectionOf(const TeamSubject &subject) const; // what is left of it
    bool isThere(const TeamSubject &subject) const;
    TeamActions actionsFor(const TeamSubject &subject) const;
    void run(TeamAction action, const TeamSubject &subject);

    TeamTreeModel *m_model = nullptr;
    TeamCommands *m_commands = nullptr;
    TeamMenu *m_orgMenu = nullptr;
    TeamMenu *m_empMenu = nullptr;
    TeamMenu *m_multipMenu = nullptr;
    TeamMenu *m_settingMenu = nullptr;
    TeamSubject m_menuSubject; // of the menu that was opened last
};
