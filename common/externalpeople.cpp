#include "common/externalpeople.h"

#include "common/context.h"

bool isExternal(const QString &jid)
{
    FriendData contact;
    if (ctx().friendData(jid, &contact))
        return contact.outside != 0;
    bool cooperates = false;
    return !jid.isEmpty() && ctx().cooperates(jid, &cooperates);
}
