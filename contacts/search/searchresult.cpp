#include "contacts/search/searchresult.h"

#include "common/context.h"
#include "common/displaytext.h"

#include <QStringList>

SearchResult SearchResults::local(const SearchEntry &entry)
{
    SearchResult result;
    result.entry = entry;
    return result;
}

SearchResult SearchResults::person(const SearchUserData &user)
{
    SearchResult result;
    result.isTold = true;
    result.entry.kind = SearchEntry::Person;
    result.entry.id = makeJid(user.userId);
    result.entry.name = user.nickName;
    result.entry.account = user.userId;
    result.entry.employeeCode = user.employeeCode;
    result.entry.mail = user.email;
    result.entry.phones = user.mobile;
    if (!user.otherPhone.isEmpty())
        result.entry.phones += QLatin1Char(';') + user.otherPhone;
    result.entry.placeId = user.orgId;
    QStringList place;
    if (user.companyCode != ctx().companyCode())
        place.append(user.companyName);
    place.append(user.orgName);
    place.removeAll(QString());
    result.place = place.join(QStringLiteral(" / "));
    result.photoName = user.photoName;
    result.presence.pcShow = PresenceData::ePcShowType(user.nStatus);
    result.presence.mobile = user.nDevice;
    return result;
}

SearchResult SearchResults::department(const OrgElement &element)
{
    SearchResult result;
    result.isTold = true;
    result.entry.kind = SearchEntry::Department;
    result.entry.id = element.strId;
    result.entry.name = element.strName;
    result.entry.placeId = element.strParentId;
    // Some services end the path with the department itself.
    QStringList place = element.strReserved1.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (QString &name : place)
        name = name.trimmed();
    if (!place.isEmpty() && place.last() == element.strName)
        place.removeLast();
    result.place = place.join(QStringLiteral(" / "));
    return result;
}

bool SearchResults::mayBeSeen(const SearchEntry &entry)
{
    switch (entry.kind) {
    case SearchEntry::Person:
        return entry.isContact || ctx().hasRight(ApplicationContext::Org);
    case SearchEntry::Group:
        return true;
    case SearchEntry::Room:
        return ctx().hasRight(ApplicationContext::GroupChat);
    case SearchEntry::Department:
        return ctx().hasRight(ApplicationContext::Org);
    case SearchEntry::Team:
        return ctx().hasRight(ApplicationContext::VirtualTeam);
    case SearchEntry::ServiceNumber:
        return ctx().hasRight(ApplicationContext::ServiceNo);
    case SearchEntry::Channel:
        return ctx().hasRight(ApplicationContext::Customer);
    }
    return false;
}
