#include "plugin/paneactions.h"

#include "common/context.h"

namespace {
PaneActions *s_actions = nullptr;
}

PaneActions::~PaneActions()
{
    if (s_actions == this)
        s_actions = nullptr;
}

bool PaneActions::mayAddContact(const QString &jid) const
{
    return mayBecomeContact(jid);
}

PaneActions *paneActions()
{
    return s_actions;
}

void setPaneActions(PaneActions *actions)
{
    s_actions = actions;
}

bool mayBecomeContact(const QString &jid)
{
    FriendData known;
    return !jid.isEmpty() && jid != ctx().ownJid() && !ctx().friendData(jid, &known);
}
