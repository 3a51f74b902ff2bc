// The team tree on screen with two teams, and its menus.
#pragma once

#include "tests/support/recordingactions.h"
#include "tests/virtualteam/teammaker.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teammenu.h"

#include <QApplication>
#include <QContextMenuEvent>

#include <functional>
#include <memory>

// Team "T" with the sub-group "7" (u4), and u1, who is the user, u2, the owner u3 unless
// that is the user, the sub-administrator u5; team "S" with u2 and u9.
class MenusFixture
{
public:
    explicit MenusFixture(int role)
    {
        tree->resize(320, 480);
        tree->show();
        setRole(role);
        teams()->setLevel(QStringLiteral("T"), QStringLiteral("7"), {}, membersOf("u4"));
        teams()->setLevel(QStringLiteral("S"), rootGroupId(), {}, membersOf("u2 u9"));
        tree->expandAll();
        tree->doItemsLayout();
    }

    // The user's own, as the service tells it anew.
    void setRole(int role)
    {
        teams()->setTeams({makeTeam(QStringLiteral("T"), role, 5), makeTeam(QStringLiteral("S"))});
        QList<CVirtualTeamMemberInfo> members =
            membersOf(role == TeamRole::Owner ? "u2 u5+" : "u2 u3# u5+");
        members.append(makeMember(QStringLiteral("u1"), role));
        teams()->setLevel(QStringLiteral("T"), rootGroupId(), groupsOf("7"), members);
    }
    TeamTreeModel *teams() const { return tree->teams(); }
    TeamCommands *commands() const { return tree->commands(); }

    // "T", "7" or "u2" of team T; "S/u9" of another.
    QModelIndex row(const QString &name) const
    {
        const QString id = name.section(u'/', -1);
        const QString team = name.contains(u'/') ? name.section(u'/', 0, 0) : QStringLiteral("T");
        if (teams()->teamIndex(id).isValid())
            return teams()->teamIndex(id);
        const QModelIndex member = teams()->memberIndex(team, id);
        return member.isValid() ? member : teams()->groupIndex(team, id);
    }
    void select(const QString &names) const
    {
        tree->clearSelection();
        const QStringList all = names.split(u' ');
        tree->selectionModel()->setCurrentIndex(row(all.first()),
                                                QItemSelectionModel::ClearAndSelect);
        for (const QString &name : all)
            tree->selectionModel()->select(row(name), QItemSelectionModel::Select);
    }
    // The menu of the first of the rows, all of them selected; null: there is none.
    TeamMenu *menuOf(const QString &names) const
    {
        select(names);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(tree->viewport(), &event);
        return qobject_cast<TeamMenu *>(QApplication::activePopupWidget());
    }
    // Opens the menu of the rows; chooses an entry of it when `inBetween` has run.
    void choose(
        const QString &names, const char *key, const std::function<void()> &inBetween = [] {}) const
    {
        TeamMenu *menu = menuOf(names);
        QVERIFY2(menu, qPrintable(names));
        QAction *entry = menu->action(key);
        QVERIFY2(entry, key);
        inBetween();
        menu->close();
        entry->trigger();
    }
    static QString shown(const SkinMenu *menu, bool enabledOnly = false)
    {
        QStringList keys;
        const auto entries = menu ? menu->actions() : QList<QAction *>();
        for (const QAction *entry : entries) {
            if (entry->isVisible() && !entry->isSeparator() && (entry->isEnabled() || !enabledOnly))
                keys.append(entry->objectName());
        }
        return keys.join(u' ');
    }

    TeamService service;
    RecordingActions actions;
    std::unique_ptr<CVirtualTeamTreeView> tree = std::make_unique<CVirtualTeamTreeView>();
};
