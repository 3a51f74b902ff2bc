#include "org/orgcommands.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/paneactions.h"

namespace {

QStringList jidsOfOthers(const QStringList &uids)
{
    QStringList jids;
    for (const QString &uid : uids) {
        const QString jid = makeJid(uid);
        if (!jid.isEmpty() && jid != ctx().ownJid())
            jids.append(jid);
    }
    return jids;
}

// Whoever has left the company keeps a row until the organisation is told.
bool isInUse(const QString &jid)
{
    FriendData contact;
    return !ctx().friendData(jid, &contact) || contact.onJob != 0;
}

} // namespace

OrgCommands::OrgCommands(QWidget *view) : QObject(view), m_view(view) {}

void OrgCommands::refuse(const char *key)
{
    TipBox::tell(m_view, QObject::tr(key));
}

void OrgCommands::openChat(const QString &uid)
{
    const QStringList others = jidsOfOthers({uid});
    if (!others.isEmpty())
        FriendUIEventProcess::openChat(others.first(), MessageData::Person);
}

void OrgCommands::openHistory(const QString &uid)
{
    FriendUIEventProcess::openHistory(makeJid(uid), MessageData::Person);
}

void OrgCommands::viewDetail(const QString &uid)
{
    if (PaneActions *actions = paneActions())
        actions->openContactDetail(makeJid(uid));
}

void OrgCommands::sendFile(const QString &uid)
{
    const QStringList others = jidsOfOthers({uid});
    if (others.isEmpty())
        refuse("notransferfile");
    else if (!isInUse(others.first()))
        refuse("nottransferfilewithunusedaccount");
    else
        FriendUIEventProcess::sendFile(others, MessageData::Person);
}

void OrgCommands::writeMail(const QStringList &uids)
{
    const QStringList others = jidsOfOthers(uids);
    if (others.size() > MaximumRecipients)
        refuse("recipients50SendSub");
    else if (!others.isEmpty())
        FriendUIEventProcess::writeMail(others);
}

void OrgCommands::createGroupChat(const QStringList &uids)
{
    const QStringList others = jidsOfOthers(uids);
    if (!others.isEmpty())
        FriendUIEventProcess::createGroupChat(others);
}

bool OrgCommands::mayAddContacts()
{
    if (!isOnline())
        refuse("offlineCannotAdd");
    return isOnline();
}

void OrgCommands::addContact(const QString &uid)
{
    PaneActions *actions = paneActions();
    if (!mayAddContacts() || !actions)
        return;
    const QString jid = makeJid(uid);
    if (!isInUse(jid))
        refuse("notaddcontactslistwithunused");
    else if (!actions->mayAddContact(jid))
        refuse("notaddduplicatecontacts");
    else
        actions->addContact(jid);
}

void OrgCommands::addContacts(const OrgElementList &people)
{
    if (!mayAddContacts())
        return;
    int others = 0;
    int inUse = 0;
    QStringList uids;
    for (const OrgElement &person : people) {
        const QString jid = makeJid(person.strId);
        if (!person.bIsEmp || jid.isEmpty() || jid == ctx().ownJid())
            continue;
        ++others;
        if (!isInUse(jid))
            continue;
        ++inUse;
        if (mayBecomeContact(jid))
            uids.append(person.strId);
    }
    uids.removeDuplicates();
    const int limit = ctx().contactLimit();
    if (others == 0)
        refuse("notaddcontactslist");
    else if (inUse == 0)
        refuse("notaddcontactslistwithunused");
    else if (uids.isEmpty())
        refuse("notaddduplicatecontacts");
    else if (limit > 0 && ctx().friends().size() + uids.size() > limit)
        refuse("addfriendslimited");
    else
        FriendUIEventProcess::addContacts(uids, QString());
}
