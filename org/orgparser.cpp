#include "org/orgparser.h"

#include "common/cchcharactertopp.h"
#include "http/jsonreader.h"
#include "org/orgpresence.h"

#include <QSet>

#include <limits>
#include <utility>

namespace {

// Lives for one reply.
class Texts
{
public:
    // Decoding leaves up to twice the room that a text takes.
    static QString own(const Json::Value &object, const char *key)
    {
        QString text = JsonReader::text(object, key);
        text.squeeze();
        return text;
    }
    // For what many entries have in common.
    QString shared(const Json::Value &object, const char *key)
    {
        const QString text = JsonReader::text(object, key);
        const auto at = m_known.constFind(text);
        if (at != m_known.constEnd())
            return *at;
        return *m_known.insert(own(object, key));
    }

private:
    QSet<QString> m_known;
};

QString spellingOf(const Json::Value &entry, const char *key, const QString &name)
{
    const QString given = Texts::own(entry, key);
    if (!given.isEmpty() || name.isEmpty())
        return given;
    QString computed = CChCharacterToPP().toPinyin(name, false);
    computed.squeeze();
    return computed;
}

OrgElement department(const Json::Value &entry, Texts *texts)
{
    OrgElement element;
    element.strId = texts->shared(entry, "orgId");
    element.strName = Texts::own(entry, "orgName");
    element.strParentId = texts->shared(entry, "parentId");
    element.strSpell = spellingOf(entry, "spelling", element.strName);
    return element;
}

OrgElement employee(const Json::Value &entry, Texts *texts)
{
    OrgElement element;
    element.strId = Texts::own(entry, "userId");
    element.strName = Texts::own(entry, "nickName");
    element.strSpell = spellingOf(entry, "empChSpell", element.strName);
    element.strEmpCode = Texts::own(entry, "employeeCode");
    element.strParentId = texts->shared(entry, "orgId");
    element.strDuty = texts->shared(entry, "duty");
    element.strEmail = Texts::own(entry, "email");
    element.strPhotoName = Texts::own(entry, "photoName");
    const OrgPresence presence = orgPresence(JsonReader::array(entry, "presence"));
    element.nStatus = presence.status;
    element.nDevice = presence.device;
    element.bIsEmp = true;
    return element;
}

template <class Make>
void addEntries(const Json::Value &entries, const Make &make, Texts *texts,
                OrgElementList *elements)
{
    for (const Json::Value &entry : entries) {
        const OrgElement element = make(entry, texts);
        if (!element.strId.isEmpty())
            elements->append(element);
    }
}

void addBothKinds(const Json::Value &level, Texts *texts, OrgElementList *elements)
{
    addEntries(JsonReader::array(level, "org"), department, texts, elements);
    addEntries(JsonReader::array(level, "emp"), employee, texts, elements);
}

// As deep as the reader lets a reply nest.
void addLevels(const Json::Value &level, Texts *texts, OrgElementList *elements)
{
    addBothKinds(level, texts, elements);
    for (const Json::Value &entry : JsonReader::array(level, "org"))
        addLevels(JsonReader::object(entry, "children"), texts, elements);
}

SearchUserData searchHit(const Json::Value &entry)
{
    SearchUserData user;
    const std::pair<const char *, QString *> fields[] = {{"companyCode", &user.companyCode},
                                                         {"userId", &user.userId},
                                                         {"employeeCode", &user.employeeCode},
                                                         {"photoName", &user.photoName},
                                                         {"nickName", &user.nickName},
                                                         {"duty", &user.duty},
                                                         {"companyName", &user.companyName},
                                                         {"orgName", &user.orgName},
                                                         {"mobile", &user.mobile},
                                                         {"otherPhone", &user.otherPhone},
                                                         {"email", &user.email},
                                                         {"orgId", &user.orgId},
                                                         {"leaderId", &user.leaderId},
                                                         {"leaderName", &user.leaderName}};
    for (const auto &[key, field] : fields)
        *field = JsonReader::text(entry, key);
    const OrgPresence presence = searchPresence(JsonReader::array(entry, "presenceList"));
    user.nStatus = presence.status;
    user.nDevice = presence.device;
    return user;
}

OrgElement departmentHit(const Json::Value &entry)
{
    OrgElement element;
    element.strId = JsonReader::text(entry, "orgId");
    element.strName = JsonReader::text(entry, "orgName");
    element.strReserved1 = JsonReader::text(entry, "fullName");
    element.strParentId = JsonReader::text(entry, "parentOrgId");
    element.strSpell = spellingOf(entry, "spelling", element.strName);
    return element;
}

} // namespace

bool OrgParser::children(const QByteArray &utf8, OrgElementList *elements, QString *error)
{
    Json::Value root;
    if (!JsonReader::parse(utf8, &root, error))
        return false;
    Texts texts;
    addBothKinds(root, &texts, elements);
    return true;
}

bool OrgParser::location(const QByteArray &utf8, OrgElementList *elements, QString *error)
{
    Json::Value root;
    if (!JsonReader::parse(utf8, &root, error))
        return false;
    Texts texts;
    const Json::Value &top = JsonReader::object(root, "location");
    const OrgElement element = department(top, &texts);
    if (!element.strId.isEmpty())
        elements->append(element);
    addLevels(JsonReader::object(top, "children"), &texts, elements);
    return true;
}

void OrgParser::addLevel(const Json::Value &level, OrgElementList *elements)
{
    Texts texts;
    addLevels(level, &texts, elements);
}

bool OrgParser::search(const QByteArray &utf8, SearchHits *hits, QString *error)
{
    Json::Value root;
    if (!JsonReader::parse(utf8, &root, error))
        return false;
    const Json::Value &data = JsonReader::object(root, "data");
    for (const Json::Value &entry : JsonReader::array(data, "userList")) {
        const SearchUserData user = searchHit(entry);
        if (!user.userId.isEmpty())
            hits->users.userList.append(user);
    }
    for (const Json::Value &entry : JsonReader::array(data, "orgList")) {
        const OrgElement element = departmentHit(entry);
        if (!element.strId.isEmpty())
            hits->departments.append(element);
    }
    hits->departmentCount =
        int(qBound<qint64>(0, JsonReader::integer(data, "count"), std::numeric_limits<int>::max()));
    return true;
}
