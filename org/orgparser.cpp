#include "org/orgparser.h"

#include "common/cchcharactertopp.h"
#include "http/jsonreader.h"
#include "http/servicepresence.h"

#include <QHash>

#include <limits>
#include <string_view>
#include <utility>

namespace {

// Decoding leaves up to twice the room that a text takes.
QString ownText(const Json::Value &value)
{
    QString text = JsonReader::toText(value);
    text.squeeze();
    return text;
}

// The texts that many entries of one reply have in common.
class SharedTexts
{
public:
    QString of(const Json::Value &value)
    {
        const char *begin = nullptr, *end = nullptr;
        if (!value.isString() || !value.getString(&begin, &end))
            return ownText(value);
        const QByteArray bytes = QByteArray::fromRawData(begin, int(end - begin));
        const auto known = m_known.constFind(bytes);
        if (known != m_known.constEnd())
            return *known;
        return *m_known.insert(QByteArray(begin, bytes.size()), ownText(value));
    }

private:
    QHash<QByteArray, QString> m_known;
};

// A member of an entry and where it belongs. In the order of their names, which is
// the order in which jsoncpp keeps the members: both are gone through once, where a
// search for each would cost more than parsing the entry.
struct Field
{
    std::string_view name;
    QString OrgElement::*text;
    bool isShared;
};

constexpr Field departmentFields[] = {{"orgId", &OrgElement::strId, false},
                                      {"orgName", &OrgElement::strName, false},
                                      {"parentId", &OrgElement::strParentId, true},
                                      {"spelling", &OrgElement::strSpell, false}};

constexpr Field employeeFields[] = {{"duty", &OrgElement::strDuty, true},
                                    {"email", &OrgElement::strEmail, false},
                                    {"empChSpell", &OrgElement::strSpell, false},
                                    {"employeeCode", &OrgElement::strEmpCode, false},
                                    {"nickName", &OrgElement::strName, false},
                                    {"orgId", &OrgElement::strParentId, true},
                                    {"photoName", &OrgElement::strPhotoName, false},
                                    {"presence", nullptr, false},
                                    {"userId", &OrgElement::strId, false}};

void readPresence(const Json::Value &entries, OrgElement *element)
{
    const ServicePresence presence = servicePresence(entries);
    element->nStatus = presence.status;
    element->nDevice = presence.device;
}

template <size_t Count>
void readFields(const Json::Value &entry, const Field (&fields)[Count], SharedTexts *shared,
                OrgElement *element)
{
    if (!entry.isObject())
        return;
    const Field *field = fields;
    for (auto member = entry.begin(); member != entry.end(); ++member) {
        const char *end = nullptr;
        const char *const begin = member.memberName(&end);
        const std::string_view name(begin, size_t(end - begin));
        while (field != std::end(fields) && field->name < name)
            ++field;
        if (field == std::end(fields))
            break;
        if (field->name != name)
            continue;
        if (field->text)
            element->*field->text = field->isShared ? shared->of(*member) : ownText(*member);
        else if (member->isArray())
            readPresence(*member, element);
    }
    if (element->strSpell.isEmpty() && !element->strName.isEmpty()) {
        element->strSpell = CChCharacterToPP().toPinyin(element->strName, false);
        element->strSpell.squeeze();
    }
}

void readDepartment(const Json::Value &entry, SharedTexts *shared, OrgElement *element)
{
    readFields(entry, departmentFields, shared, element);
}

void readEmployee(const Json::Value &entry, SharedTexts *shared, OrgElement *element)
{
    readFields(entry, employeeFields, shared, element);
    element->bIsEmp = true;
}

// Elements are read where they will stay: copying one costs as much as reading two.
class Slices
{
public:
    Slices(std::vector<OrgElementList> *slices, int size) : m_slices(slices), m_size(size)
    {
        m_slices->emplace_back();
    }

    template <class Read> void add(const Json::Value &entry, const Read &read, SharedTexts *texts)
    {
        if (m_size > 0 && m_slices->back().size() >= m_size)
            m_slices->emplace_back();
        OrgElementList &slice = m_slices->back();
        slice.append(OrgElement());
        read(entry, texts, &slice.last());
        if (slice.last().strId.isEmpty())
            slice.removeLast();
    }

private:
    std::vector<OrgElementList> *const m_slices;
    const int m_size;
};

void addBothKinds(const Json::Value &level, SharedTexts *texts, Slices *slices)
{
    for (const Json::Value &entry : JsonReader::array(level, "org"))
        slices->add(entry, readDepartment, texts);
    for (const Json::Value &entry : JsonReader::array(level, "emp"))
        slices->add(entry, readEmployee, texts);
}

// As deep as the reader lets a reply nest.
void addLevels(const Json::Value &level, SharedTexts *texts, Slices *slices)
{
    addBothKinds(level, texts, slices);
    for (const Json::Value &entry : JsonReader::array(level, "org"))
        addLevels(JsonReader::object(entry, "children"), texts, slices);
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
    const ServicePresence presence = searchPresence(JsonReader::array(entry, "presenceList"));
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
    element.strSpell = CChCharacterToPP().toPinyin(element.strName, false);
    return element;
}

} // namespace

bool OrgParser::children(const QByteArray &utf8, int sliceSize, std::vector<OrgElementList> *slices,
                         QString *error)
{
    Json::Value root;
    if (!JsonReader::parse(utf8, &root, error))
        return false;
    SharedTexts texts;
    Slices made(slices, sliceSize);
    addBothKinds(root, &texts, &made);
    return true;
}

bool OrgParser::location(const QByteArray &utf8, int sliceSize, std::vector<OrgElementList> *slices,
                         QString *error)
{
    Json::Value root;
    if (!JsonReader::parse(utf8, &root, error))
        return false;
    const Json::Value &top = JsonReader::object(root, "location");
    SharedTexts texts;
    Slices made(slices, sliceSize);
    made.add(top, readDepartment, &texts);
    addLevels(JsonReader::object(top, "children"), &texts, &made);
    return true;
}

void OrgParser::addLevel(const Json::Value &level, OrgElementList *elements)
{
    SharedTexts texts;
    std::vector<OrgElementList> all;
    Slices slices(&all, 0);
    addLevels(level, &texts, &slices);
    elements->append(all.front());
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
