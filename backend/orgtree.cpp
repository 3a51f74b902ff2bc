#include "backend/orgtree.h"

#include "backend/people.h"
#include "backend/reply.h"

namespace {
void writePresence(JsonText *json, const SampleCompany::Reach &reach)
{
    json->open("presence", '[');
    if (reach.pc > 0) {
        json->open('{').flag("av", true).member("show", OrgTree::show(reach.pc));
        json->member("pt", "pc").member("rsc", "pc").close('}');
    }
    if (reach.mobile > 0) {
        json->open('{').flag("av", true).member("show", "available");
        json->member("pt", reach.mobile == 1 ? "android" : "ios");
        json->member("rsc", "mobile").close('}');
    }
    json->close(']');
}

void writeEmployee(JsonText *json, const User &user)
{
    json->open('{').member("userId", user.uid).member("nickName", user.nickName);
    json->member("empChSpell", user.spell).member("orgId", user.orgId);
    json->member("email", user.email).member("photoName", user.photoName);
    json->member("employeeCode", user.employeeCode).member("duty", user.duty);
    writePresence(json, user.reach);
    json->close('}');
}
} // namespace

OrgTree::OrgTree(const People &people) : m_people(people)
{
    const QVector<SampleDepartment> &departments = people.company().departments();
    for (int i = 0; i < departments.size(); ++i) {
        const SampleDepartment &source = departments.at(i);
        Department department;
        department.id = source.id;
        department.parentId = source.parentId;
        department.name = source.name;
        department.parent = source.parent;
        department.source = i;
        add(department);
    }
    if (people.departmentSize() > 0) {
        Department large;
        large.id = People::largeDepartment();
        large.parentId = SampleCompany::companyCode();
        large.name = QString::fromUtf8("大部门");
        large.spell = QStringLiteral("dabumen");
        add(large);
    }
}

void OrgTree::add(Department department)
{
    const int index = m_departments.size();
    QVector<int> &siblings =
        department.parent < 0 ? m_topmost : m_departments[department.parent].children;
    siblings.append(index);
    m_byId.insert(department.id, index);
    m_departments.append(std::move(department));
}

const char *OrgTree::show(int pc)
{
    static constexpr const char *shows[] = {"", "available", "away", "xa", "dnd", "chat"};
    return shows[qBound(0, pc, 5)];
}

int OrgTree::find(const QString &id) const
{
    return m_byId.value(id, -1);
}

QVector<int> OrgTree::path(int index) const
{
    QVector<int> result;
    for (; index >= 0; index = m_departments.at(index).parent)
        result.prepend(index);
    return result;
}

QString OrgTree::fullName(int index) const
{
    QStringList names;
    for (const int step : path(index))
        names.append(m_departments.at(step).name);
    return names.join(QLatin1Char('/'));
}

void OrgTree::writeDepartment(JsonText *json, int index) const
{
    const Department &department = m_departments.at(index);
    json->member("orgId", department.id).member("orgName", department.name);
    json->member("parentId", department.parentId).member("spelling", department.spell);
}

void OrgTree::writeLargeDepartment(JsonText *json) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const quint64 version = m_people.version();
    if (version != m_largeVersion) {
        m_largeText.clear();
        JsonText text(&m_largeText);
        for (int i = 0; i < m_people.departmentSize(); ++i)
            writeEmployee(&text, m_people.largeDepartmentEmployee(i));
        m_largeVersion = version;
    }
    json->raw(m_largeText);
}

void OrgTree::writeEmployees(JsonText *json, int index) const
{
    const int source = m_departments.at(index).source;
    if (source < 0) {
        writeLargeDepartment(json);
        return;
    }
    for (const int person : m_people.company().members(source))
        writeEmployee(json, m_people.employee(person));
}
