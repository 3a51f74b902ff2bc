#include "bench/support/samplecontacts.h"

#include "sample/samplecompany.h"

#include <QRandomGenerator>

namespace {
QString groupId(int number)
{
    return QStringLiteral("g%1").arg(number);
}
} // namespace

QList<GroupData> sampleGroups(int count)
{
    QList<GroupData> list;
    for (int i = 0; i < count; ++i)
        list.append({groupId(i), QStringLiteral("Group %1").arg(i, 4, 10, QLatin1Char('0'))});
    return list;
}

QList<FriendData> sampleContacts(int count, int groups)
{
    const SampleCompany company(count);
    QRandomGenerator random(7);
    QList<FriendData> list;
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        const SamplePerson person = company.person(i);
        FriendData contact;
        contact.jid = person.uid + QStringLiteral("@corp.example");
        contact.account = person.account;
        contact.nickName = person.name;
        contact.sign = person.sign;
        contact.groupId = groupId(random.bounded(groups));
        list.append(contact);
    }
    return list;
}
