#include "contacts/friendcommands.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/friendtreemodel.h"
#include "contacts/groupnames.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/paneactions.h"

#include <QPointer>

namespace {
QStringList withoutOwn(QStringList jids)
{
    jids.removeAll(ctx().ownJid());
    return jids;
}
} // namespace

FriendCommands::FriendCommands(FriendTreeModel *model, bool inner, QWidget *view)
    : QObject(view), m_model(model), m_inner(inner), m_view(view)
{
}

QStringList FriendCommands::groupNames() const
{
    QStringList names;
    const QList<GroupData> groups = m_model->groups();
    for (const GroupData &group : groups)
        names.append(group.name);
    return names;
}

QString FriendCommands::refusal(const QString &name) const
{
    const char *key = groupNameRefusal(name, groupNames());
    if (!key)
        return QString();
    if (name.trimmed().isEmpty())
        LOG_DEBUG("newName.isEmpty()");
    return QObject::tr(key);
}

bool FriendCommands::isGroupEditable(const QString &groupId) const
{
    return m_model->hasGroup(groupId) && !isBuiltInGroup(m_model->groupName(groupId));
}

void FriendCommands::createGroup()
{
    InputBox::ask(
        m_view, QObject::tr("newgroup"), QObject::tr("groupNameColon"), QString(),
        [this](const QString &name) { return refusal(name); },
        [this](const QString &name) {
            m_askedFor.append(name.trimmed());
            FriendUIEventProcess::createGroup(name.trimmed(), m_inner);
        });
}

void FriendCommands::renameGroup(const QString &groupId)
{
    if (!isGroupEditable(groupId))
        return;
    const QString oldName = m_model->groupName(groupId);
    InputBox::ask(
        m_view, QObject::tr("renameMuc"), QObject::tr("groupNameColon"), oldName,
        [this, oldName](const QString &name) {
            return name.trimmed() == oldName ? QString() : refusal(name);
        },
        [this, groupId, oldName](const QString &name) {
            // The group may have gone while the box was open.
            if (name.trimmed() != oldName && m_model->hasGroup(groupId))
                FriendUIEventProcess::renameGroup(groupId, name.trimmed(), m_inner);
        });
}

void FriendCommands::deleteGroup(const QString &groupId)
{
    if (!isGroupEditable(groupId))
        return;
    const QString question =
        QObject::tr("confirmDeleteGroup").arg(displayText(m_model->groupName(groupId)));
    TipBox::ask(m_view, question, [this, groupId] {
        if (m_model->hasGroup(groupId))
            FriendUIEventProcess::deleteGroup(groupId, m_inner);
    });
}

void FriendCommands::refreshGroups()
{
    FriendUIEventProcess::refreshGroups(m_inner);
}

void FriendCommands::openChat(const QString &jid)
{
    if (jid != ctx().ownJid())
        FriendUIEventProcess::openChat(jid, MessageData::Person);
}

void FriendCommands::openHistory(const QString &jid)
{
    FriendUIEventProcess::openHistory(jid, MessageData::Person);
}

void FriendCommands::viewDetail(const QString &jid)
{
    if (PaneActions *actions = paneActions())
        actions->openContactDetail(jid);
}

void FriendCommands::changeRemark(const QString &jid)
{
    FriendData contact;
    if (jid == ctx().ownJid() || !m_model->contact(jid, &contact))
        return;
    const QString old = contact.remark;
    InputBox::ask(m_view, QObject::tr("changeRemarkName"), QObject::tr("remarkColon"), old, {},
                  [this, jid, old](const QString &remark) {
                      if (remark.trimmed() != old && m_model->hasContact(jid))
                          FriendUIEventProcess::setRemark(jid, remark.trimmed());
                  });
}

void FriendCommands::deleteContact(const QString &jid)
{
    FriendData contact;
    if (jid == ctx().ownJid() || !m_model->contact(jid, &contact))
        return;
    const QString question = QObject::tr("confirmDeleteContact").arg(contactDisplayName(contact));
    TipBox::ask(m_view, question, [this, jid] {
        if (m_model->hasContact(jid))
            FriendUIEventProcess::deleteContact(jid, m_inner);
    });
}

void FriendCommands::deleteContacts(const QStringList &jids)
{
    const QStringList others = withoutOwn(jids);
    if (others.size() == 1)
        deleteContact(others.first());
    if (others.size() < 2)
        return;
    TipBox::ask(m_view, QObject::tr("confirmDeleteContacts").arg(others.size()), [this, others] {
        for (const QString &jid : others) {
            if (m_model->hasContact(jid))
                FriendUIEventProcess::deleteContact(jid, m_inner);
        }
    });
}

void FriendCommands::blacklist(const QString &jid)
{
    FriendData contact;
    if (m_inner || !m_model->contact(jid, &contact))
        return;
    const QString question = QObject::tr("confirmBlacklist").arg(contactDisplayName(contact));
    TipBox::ask(m_view, question, [this, jid] {
        if (!m_model->hasContact(jid))
            return;
        emit blacklisting(jid);
        FriendUIEventProcess::blacklistExternalContact(jid);
    });
}

void FriendCommands::moveContacts(const QStringList &jids, const QString &groupId)
{
    const QStringList others = withoutOwn(jids);
    const QPointer<FriendCommands> alive(this);
    for (const QString &jid : others) {
        if (!alive) // the host has closed its window meanwhile
            return;
        // Looked up again for each: the answer to the one before may have come.
        if (!m_model->hasContact(jid) || !m_model->hasGroup(groupId))
            continue;
        const QString oldGroupId = m_model->groupOf(jid);
        if (oldGroupId != groupId)
            FriendUIEventProcess::moveContact(jid, oldGroupId, groupId, m_inner);
    }
}

void FriendCommands::createGroupChat(const QStringList &jids)
{
    const QStringList others = withoutOwn(jids);
    if (!others.isEmpty())
        FriendUIEventProcess::createGroupChat(others);
}

void FriendCommands::sendFile(const QStringList &jids)
{
    const QStringList others = withoutOwn(jids);
    if (!others.isEmpty())
        FriendUIEventProcess::sendFile(others, MessageData::Person);
}

void FriendCommands::writeMail(const QStringList &jids)
{
    const QStringList others = withoutOwn(jids);
    if (!others.isEmpty())
        FriendUIEventProcess::writeMail(others);
}
