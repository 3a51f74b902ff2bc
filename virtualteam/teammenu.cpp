#include "virtualteam/teammenu.h"

#include "common/context.h"
#include "plugin/paneactions.h"

namespace {

struct Entry
{
    const char *key; // null: a separator
    TeamAction action;
};

constexpr Entry separator{nullptr, TeamAction::Chat};
constexpr Entry groupEntries[] = {
    {"addTeamMember", TeamAction::AddMember},
    {"addTeamGroupName", TeamAction::AddGroup},
    {"modifyTeamGroupName", TeamAction::RenameGroup},
    {"delGroup", TeamAction::DeleteGroup},
    separator,
};
constexpr Entry memberEntries[] = {
    {"invitechat", TeamAction::Chat},
    {"createMuc", TeamAction::GroupChat},
    {"viewdetail", TeamAction::ViewProfile},
    separator,
    {"setPersionAdmin", TeamAction::SetAdministrator},
    {"editNickName", TeamAction::EditNickName},
    {"virtemModPostName", TeamAction::EditPost},
    separator,
    {"moveTeamMembers", TeamAction::MoveMembers},
    {"deleteTeamMembers", TeamAction::DeleteMember},
};
constexpr Entry severalEntries[] = {
    {"createMuc", TeamAction::GroupChat},
    separator,
    {"batMoveTeamMembers", TeamAction::MoveMembers},
    {"batDeleteTeamMembers", TeamAction::DeleteMembers},
};
constexpr Entry settingEntries[] = {
    {"setting", TeamAction::Rename},
    {"inviteCompany", TeamAction::InviteCompany},
    {"setAdmin", TeamAction::ChooseAdministrators},
    {"transAuth", TeamAction::TransferAuthority},
    separator,
    {"existVirtualTeam", TeamAction::Leave},
    {"dismissTeam", TeamAction::Dissolve},
};

const char *nameOf(TeamMenu::Kind kind)
{
    switch (kind) {
    case TeamMenu::Group:
        return "orgMenu";
    case TeamMenu::Member:
        return "empMenu";
    case TeamMenu::Several:
        return "multipMenu";
    case TeamMenu::Setting:
        return "settingMenu";
    }
    return "";
}

// What is about people and changes no team.
TeamActions talking()
{
    return TeamAction::Chat | TeamAction::GroupChat | TeamAction::ViewProfile;
}

TeamActions granted()
{
    TeamActions actions = ~TeamActions();
    actions.setFlag(TeamAction::Chat, ctx().hasRight(ApplicationContext::Chat));
    actions.setFlag(TeamAction::GroupChat, ctx().hasRight(ApplicationContext::CreateMuc));
    actions.setFlag(TeamAction::ViewProfile, ctx().hasRight(ApplicationContext::Detail));
    return actions;
}

} // namespace

TeamMenu::TeamMenu(Kind kind, QWidget *parent) : SkinMenu(QLatin1String(nameOf(kind)), parent)
{
    const auto addAll = [this](const auto &entries) {
        for (const Entry &entry : entries) {
            if (entry.key)
                add(entry.key, entry.action);
            else
                addSeparator();
        }
    };
    switch (kind) {
    case Group:
        addAll(groupEntries);
        addAll(settingEntries); // a keyboard does not reach the setting button
        break;
    case Member:
        addAll(memberEntries);
        break;
    case Several:
        addAll(severalEntries);
        break;
    case Setting:
        addAll(settingEntries);
        break;
    }
}

void TeamMenu::add(const char *key, TeamAction action)
{
    addKey(key)->setData(int(action));
}

TeamAction TeamMenu::actionOf(const QAction *entry)
{
    return TeamAction(entry->data().toInt());
}

QAction *TeamMenu::find(TeamAction action) const
{
    for (QAction *entry : actions()) {
        if (!entry->isSeparator() && actionOf(entry) == action)
            return entry;
    }
    return nullptr;
}

void TeamMenu::offer(TeamActions offered, bool busy)
{
    const TeamActions shown = offered & granted();
    for (QAction *entry : actions()) {
        if (!entry->isSeparator())
            entry->setVisible(shown.testFlag(actionOf(entry)));
    }
    setBusy(busy);
}

void TeamMenu::setBusy(bool busy)
{
    for (QAction *entry : actions()) {
        if (!entry->isSeparator())
            entry->setEnabled(!busy || talking().testFlag(actionOf(entry)));
    }
    const PaneActions *pane = paneActions();
    if (QAction *profile = find(TeamAction::ViewProfile))
        profile->setEnabled(pane && pane->canOpenContactDetail());
}

void TeamMenu::setDemotes(bool demotes)
{
    QAction *entry = find(TeamAction::SetAdministrator);
    if (!entry)
        return;
    entry->setObjectName(demotes ? QStringLiteral("cancelPersionAdmin")
                                 : QStringLiteral("setPersionAdmin"));
    entry->setText(demotes ? QObject::tr("cancelPersionAdmin") : QObject::tr("setPersionAdmin"));
}

bool TeamMenu::demotes() const
{
    const QAction *entry = find(TeamAction::SetAdministrator);
    return entry && entry->objectName() == QLatin1String("cancelPersionAdmin");
}
