// The menus of the team tree: which entries each of them has, and which of them it
// offers now.
#pragma once

#include "controls/skinmenu.h"
#include "virtualteam/teamrules.h"

class TeamMenu : public SkinMenu
{
    Q_OBJECT

public:
    enum Kind
    {
        Group,   // "orgMenu", of teams and sub-groups
        Member,  // "empMenu"
        Several, // "multipMenu", of several members
        Setting  // "settingMenu", of a team's setting button
    };

    TeamMenu(Kind kind, QWidget *parent);

    // Shows what may be done, as far as the host grants it. `busy`: nothing that
    // changes the team can be chosen now.
    void offer(TeamActions actions, bool busy);
    void setBusy(bool busy);

    // Which way the entry about sub-administrators goes: its object name tells it.
    void setDemotes(bool demotes);
    bool demotes() const;

    static TeamAction actionOf(const QAction *entry);

private:
    void add(const char *key, TeamAction action);
    QAction *find(TeamAction action) const; // null: this menu does not have it
};
