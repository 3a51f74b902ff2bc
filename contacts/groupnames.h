// Which names a contact group may have.
#pragma once

#include <QString>
#include <QStringList>

// The translation key of the reason why a name is refused, null when it may be
// taken: "teamnotempty" for a blank one, "createexistedteam" for one that stands
// in `taken` or is built in. Blanks around a name do not count.
const char *groupNameRefusal(const QString &name, const QStringList &taken);

// Whether the name is that of a group which cannot be renamed or deleted.
bool isBuiltInGroup(const QString &name);
