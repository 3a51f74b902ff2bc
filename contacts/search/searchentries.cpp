#include "contacts/search/searchentries.h"

#include "common/displaytext.h"

#include <QStringList>

namespace {

SearchEntry begin(SearchEntry::Kind kind, const QString &id, const SearchEntry *known)
{
    SearchEntry entry = known ? *known : SearchEntry();
    entry.kind = kind;
    entry.id = id;
    return entry;
}

SearchEntry named(SearchEntry::Kind kind, const QString &id, const QString &name)
{
    SearchEntry entry = begin(kind, id, nullptr);
    entry.name = name;
    return entry;
}

void take(const QString &news, QString *field)
{
    if (!news.isEmpty())
        *field = news;
}

} // namespace

SearchEntry SearchEntries::contact(const FriendData &contact, const SearchEntry *known)
{
    SearchEntry entry = begin(SearchEntry::Person, contact.jid, known);
    take(contact.nickName, &entry.name);
    take(contact.account.isEmpty() ? jidUser(contact.jid) : contact.account, &entry.account);
    entry.remark = contact.remark;
    entry.isContact = true;
    entry.hasLeft = contact.onJob == 0;
    return entry;
}

SearchEntry SearchEntries::element(const OrgElement &element, const SearchEntry *known)
{
    SearchEntry entry = element.bIsEmp ? begin(SearchEntry::Person, makeJid(element.strId), known)
                                       : begin(SearchEntry::Department, element.strId, known);
    take(element.strName, &entry.name);
    entry.placeId = element.strParentId;
    if (element.bIsEmp) {
        take(jidUser(element.strId), &entry.account);
        take(element.strEmpCode, &entry.employeeCode);
        take(element.strEmail, &entry.mail);
    }
    return entry;
}

SearchEntry SearchEntries::group(const GroupData &group)
{
    return named(SearchEntry::Group, group.id, group.name);
}

SearchEntry SearchEntries::team(const QString &id, const QString &name)
{
    return named(SearchEntry::Team, id, name);
}

SearchEntry SearchEntries::room(const QString &roomJid, const QString &subject)
{
    return named(SearchEntry::Room, roomJid, subject);
}

SearchEntry SearchEntries::serviceNumber(const CServiceNumData &number)
{
    SearchEntry entry = named(SearchEntry::ServiceNumber, number.code, number.name);
    entry.account = number.code;
    return entry;
}

SearchEntry SearchEntries::channel(const CSChannelData &channel)
{
    return named(SearchEntry::Channel, channel.id, channel.name);
}

void SearchEntries::addProfile(const VcardInfo &profile, SearchEntry *person)
{
    take(profile.nickName, &person->name);
    take(profile.userName, &person->account);
    take(profile.employeeCode, &person->employeeCode);
    take(profile.email, &person->mail);
    take(profile.orgId, &person->placeId);
    QStringList phones;
    for (const QString &phone : {profile.mobile, profile.otherPhone, profile.personalMobile}) {
        if (!phone.isEmpty())
            phones.append(phone);
    }
    take(phones.join(QLatin1Char(';')), &person->phones);
}
