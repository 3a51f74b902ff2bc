#include "org/orgparser.h"

#include "common/cchcharactertopp.h"
#include "http/jsonfields.h"
#include "http/servicepresence.h"

#include <limits>
#include <utility>

namespace {

constexpr JsonField<OrgElement> departmentFields[] = {{"orgId", &OrgElement::strId, false},
                                                      {"orgName", &OrgElement::strName, false},
                                                      {"parentId", &OrgElement::strParentId, true},
                                                      {"spelling", &OrgElement::strSpell, false}};

constexpr JsonField<OrgElement> employeeFields[] = {
    {"duty", &OrgElement::strDuty, true},
    {"email", &OrgElement::strEmail, false},
    {"empChSpell", &OrgElement::strSpell, false},
    {"employeeCode", &OrgElement::strEmpCode, false},
    {"nickName", &OrgElement::strName, false},
    {"orgId", &OrgElement::strParentId, true},
    {"photoName", &OrgElement::strPhotoName, false},
    {"presence", nullptr, false},
    {"userId", &OrgElement::strId, false}};
static_assert(areInOrder(departmentFields) && areInOrder(employeeFields));

void readPresence(const Json::Value &entries, OrgElement *element)
{
    if (!entries.isArray())
        return;
    const ServicePresence presence = servicePresence(entries);
    element->nStatus = presence.status;
    element->nDevice = presence.device;
}

template <size_t Count>
void readElement(const Json::Value &entry, const JsonField<OrgElement> (&fields)[Count],
                 SharedTexts *shared, OrgElement *element)
{
    readFields(entry, fields, shared, element,
               [&](std::string_view, const Json::Value &value) { readPresence(value, element); });
    if (element->strSpell.isEmpty() && !element->strName.isEmpty()) {
        element->strSpell = CChCharacterToPP().toPinyin(element->strName, false);
        element->strSpell.squeeze();
    }
}

void readDepartment(const Json::Value &entry, SharedTexts *shared, OrgElement *element)
{
    readElement(entry, departmentFields, shared, element);
}

void readEmployee(const Json::Value &entry, SharedTexts *shared, OrgElement *element)
{
    readElement(entry, employeeFields, shared, element);
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
