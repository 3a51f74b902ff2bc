// The contact groups that every roster has; they are neither renamed nor deleted.
#pragma once

#include <QString>

inline QString frequentGroupName()
{
    return QString::fromUtf8("常用联系人");
}

// Where a contact stands that nobody has filed; its id is empty.
inline QString defaultGroupName()
{
    return QString::fromUtf8("我的好友");
}
