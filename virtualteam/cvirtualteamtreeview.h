// The teams on screen: opens levels, asks for them, shows the menus, moves members by
// drag and drop, and brings what TeamCommands did into the model.
#pragma once

#include "controls/rowview.h"
#include "virtualteam/teamrules.h"
#include "virtualteam/teamselection.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>

class MyDrag;
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

    // Opens a team and shows its row.
    void expandTeam(const QString &vtId);
    // What is loaded of a team's closed levels expires: it is asked for when they are
    // opened next. Returns the open ones, as team and group, to be loaded again by the
    // caller.
    QList<QPair<QString, QString>> expireClosedLevels(const QString &vtId);

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

protected:
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool isHolding() const override { return !m_drag.isNull(); }
    QString cardJid(const QModelIndex &index) const override;

private:
    // --- Loading and input: cvirtualteamtreeview.cpp ---------------------------------
    void opened(const QModelIndex &index);
    void request(const QModelIndex &group); // its level
    void activate(const QModelIndex &index);
    void toggle(const QModelIndex &index) { setExpanded(index, !isExpanded(index)); }
    // What a click does beside selecting: the caret and the setting button.
    bool isOnCaret(const QModelIndex &index, QPoint pos) const;
    bool isOnSetting(const QModelIndex &index, QPoint pos) const;
    // A current row that was moved out of sight: the lowest one in sight above takes over.
    void leaveClosedBranch();

    // --- Hub and commands: teamtreefollowing.cpp ---------------------------------------
    void followHub();
    void followCommands();
    // A level has changed: it is asked for, at once if it is open.
    void refreshLevel(const QString &vtId, const QString &groupId);
    void refreshTeam(const QString &vtId);
    void groupAdded(const QString &vtId, const QString &pgId, const QString &groupId,
                    const QString &name);
    void revealAdded();

    // --- Drag and drop: teamtreedrag.cpp -----------------------------------------------
    void runDrag();
    void dropEnded(bool taken, const QString &groupId);
    // The team or sub-group that would take what is dragged there; invalid: none would.
    QModelIndex dropTarget(QPoint pos) const;
    void setDropTarget(const QModelIndex &group, const QModelIndex &pointedAt);

    // --- Menus and what their entries do: teamtreemenus.cpp -------------------------
    void buildMenus(); // m_model and m_commands are there before
    void openMenu(const QModelIndex &index, const QPoint &position); // in the viewport
    void openSettingMenu(const QModelIndex &team, const QPoint &position);
    // What Delete and F2 do with the selection; false: the key means nothing here.
    bool runKey(int key);
    QModelIndex rowOfKeys() const;
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
    TeamSubject m_added;       // a new group whose level is not there yet; else empty

    bool m_pressTaken = false;
    QPointer<MyDrag> m_drag;
    bool m_dragDue = false; // asked for, not yet begun
    QString m_dragTeam;
    QStringList m_dragMembers; // under way
    QPersistentModelIndex m_dropTarget;
    QPersistentModelIndex m_pointedAt;  // by what is dragged
    QPersistentModelIndex m_toBeOpened; // while something is dragged over it
    QTimer m_openTimer;
};
