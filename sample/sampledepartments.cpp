// The tree of departments, and who belongs where.
#include "sample/samplecompany.h"
#include "sample/samplewords.h"

#include <cmath>

namespace {
constexpr int PeoplePerLeaf = 12;
constexpr int WidestFlatDivision = 6; // with more leaves a third level is put in
} // namespace

void SampleCompany::buildDepartments()
{
    const QVector<SampleDivision> &divisions = sampleDivisions();
    int weights = 0;
    for (const SampleDivision &division : divisions)
        weights += division.weight;
    const int wanted = qMax(1, m_people / PeoplePerLeaf);
    for (int i = 0; i < qMin(wanted, divisions.size()); ++i)
        addDepartments(i, qMax(1, wanted * divisions.at(i).weight / weights));
    for (SampleDepartment &department : m_departments)
        department.head = headOfLeaf(department.firstLeaf);
}

int SampleCompany::addDepartment(int parent, int kind, const QString &name, int leaves, bool isLeaf)
{
    SampleDepartment department;
    const int index = m_departments.size();
    department.id =
        QLatin1Char('D') + QString::number(index + 1).rightJustified(4, QLatin1Char('0'));
    department.parent = parent;
    department.parentId = parent < 0 ? companyCode() : m_departments.at(parent).id;
    department.level = parent < 0 ? 1 : m_departments.at(parent).level + 1;
    department.kind = kind;
    department.name = name;
    department.firstLeaf = m_leaves.size();
    department.leafCount = leaves;
    department.isLeaf = isLeaf;
    if (isLeaf)
        m_leaves.append(index);
    m_departments.append(department);
    return index;
}

void SampleCompany::addDepartments(int division, int leaves)
{
    const SampleDivision &words = sampleDivisions().at(division);
    const int top = addDepartment(-1, division, QString::fromUtf8(words.name), leaves, false);
    const bool flat = leaves <= WidestFlatDivision;
    const int children = flat ? leaves : qMax(WidestFlatDivision, int(std::sqrt(double(leaves))));
    for (int i = 0; i < children; ++i) {
        QString name = QString::fromUtf8(words.departments[i % 6]);
        if (i >= 6)
            name += QLatin1Char(' ') + QString::number(i / 6 + 1);
        const int teams = leaves * (i + 1) / children - leaves * i / children;
        const int department = addDepartment(top, division, name, teams, flat);
        for (int team = 0; !flat && team < teams; ++team) {
            addDepartment(department, division, name + QString::fromUtf8(" %1组").arg(team + 1), 1,
                          true);
        }
    }
}

// Person 1 belongs to the first leaf, person 2 to the second and so on, the own
// user to the last: the head of the company is somebody else.
int SampleCompany::leafOf(int index) const
{
    return (index + m_leaves.size() - 1) % m_leaves.size();
}

int SampleCompany::headOfLeaf(int leaf) const
{
    return leaf + 1 < m_people ? leaf + 1 : 0;
}

QString SampleCompany::leaderOf(int index) const
{
    for (int at = m_leaves.at(leafOf(index)); at >= 0; at = m_departments.at(at).parent) {
        if (m_departments.at(at).head != index)
            return uid(m_departments.at(at).head);
    }
    const int headOfCompany = headOfLeaf(0);
    return index == headOfCompany ? QString() : uid(headOfCompany);
}

QVector<int> SampleCompany::members(int department) const
{
    QVector<int> result;
    if (department < 0 || department >= m_departments.size() ||
        !m_departments.at(department).isLeaf)
        return result;
    const int leaf = m_departments.at(department).firstLeaf;
    for (int index = leaf + 1; index < m_people; index += m_leaves.size())
        result.append(index);
    if (leafOf(0) == leaf)
        result.append(0);
    return result;
}
