#include "contacts/groupnames.h"

#include "common/builtingroups.h"

#include <QObject>

bool isBuiltInGroup(const QString &name)
{
    return name == defaultGroupName() || name == frequentGroupName();
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
