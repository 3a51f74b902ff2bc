#include "contacts/groupnames.h"

#include "contacts/friendtreesort.h"

#include <QObject>

bool isBuiltInGroup(const QString &name)
{
    return name == FriendTreeSort::defaultGroupName() ||
           name == FriendTreeSort::frequentGroupName();
}

const char *groupNameRefusal(const QString &name, const QStringList &taken)
{
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return "teamnotempty";
    if (isBuiltInGroup(trimmed) || taken.contains(trimmed) ||
        trimmed == QObject::tr("latestContact") || trimmed == QObject::tr("contactsDeleted"))
        return "createexistedteam";
    return nullptr;
}
