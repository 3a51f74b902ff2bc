// The add-contact window's groups: choosing one, and making one.
#include "detail/addfriend.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "detail/addfriendpages.h"
#include "detail/addfriendresult.h"
#include "plugin/frienduieventprocess.h"

namespace {
constexpr int LongestGroupName = 16;

// What fits into the box may end in half of a pair.
QString groupNameOf(const QString &typed)
{
    const bool isCut = !typed.isEmpty() && typed.back().isHighSurrogate();
    return typed.left(typed.size() - (isCut ? 1 : 0)).trimmed();
}
} // namespace

void AddFriend::chooseGroup(const QString &groupId)
{
    m_form->chooseGroup(groupId);
}

void AddFriend::refreshGroups()
{
    m_form->setGroups(ctx().groups(true));
}

void AddFriend::slot_newgroup()
{
    LOG_SCOPE("AddFriend::slot_newgroup()");
    if (!isOnline()) {
        TipBox::tell(this, QObject::tr("teamnotcreate"));
        return;
    }
    const auto refusal = [](const QString &name) {
        if (!isOnline())
            return QObject::tr("teamnotcreate");
        QStringList existing;
        const QList<GroupData> groups = ctx().groups(true);
        for (const GroupData &group : groups)
            existing.append(group.name);
        const char *key = AddFriendResult::newGroupRefusal(groupNameOf(name), existing);
        if (name.trimmed().isEmpty())
            LOG_DEBUG("newName.isEmpty()");
        return key ? QObject::tr(key) : QString();
    };
    InputBox *box = InputBox::ask(this, QObject::tr("newgroup"), QObject::tr("groupNameColon"),
                                  QString(), refusal, [this](const QString &name) {
                                      m_pendingGroup = groupNameOf(name);
                                      FriendUIEventProcess::createGroup(m_pendingGroup, true);
                                  });
    box->setMaximumLength(LongestGroupName);
}

void AddFriend::groupAnswered(const GroupData &group, bool success)
{
    const bool isOurs = !m_pendingGroup.isEmpty() && group.name == m_pendingGroup;
    if (isOurs)
        m_pendingGroup.clear();
    m_form->setGroups(ctx().groups(true), success ? group : GroupData());
    if (!isOurs)
        return;
    if (success)
        m_form->chooseGroup(group.id);
    else
        TipBox::tell(this, QObject::tr("teamcreatefailed"));
}
