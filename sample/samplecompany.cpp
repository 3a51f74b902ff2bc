#include "sample/samplecompany.h"

#include "sample/samplenames.h"
#include "sample/samplewords.h"

#include <QDate>

namespace {
constexpr int EverybodyIsAFriendFrom = 2001;
constexpr int OutsiderBase = 10000000; // far behind the people, so that their numbers differ

enum Field
{
    NameKind = 1,
    Surname,
    GivenName,
    Sex,
    Birthday,
    City,
    Sign,
    Duty,
    Phone,
    PrivatePhone,
    HasLeft,
    PolicyField,
    ReachField,
    FriendGroup,
    Remark
};

// A full-period mixing of 64 bits: neighbouring inputs give unrelated outputs.
quint64 mixed(quint64 value)
{
    value += 0x9e3779b97f4a7c15ULL;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
    return value ^ (value >> 31);
}

QString padded(qint64 number, int digits)
{
    return QString::number(number).rightJustified(digits, QLatin1Char('0'));
}

int numberOf(const QString &uid, QLatin1Char letter)
{
    if (uid.size() != 7 || uid.at(0) != letter)
        return -1;
    int number = 0;
    for (int i = 1; i < uid.size(); ++i) {
        const ushort c = uid.at(i).unicode();
        if (c < '0' || c > '9')
            return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}
} // namespace

SampleCompany::SampleCompany(int people, quint64 seed)
    : m_people(qBound(1, people, MaximumPeople)), m_seed(seed)
{
    buildDepartments();
    buildFriendGroups();
}

QString SampleCompany::domain()
{
    return QStringLiteral("corp.example");
}

QString SampleCompany::companyCode()
{
    return QStringLiteral("C1");
}

QString SampleCompany::companyName()
{
    return QString::fromUtf8("示例科技集团");
}

QString SampleCompany::pictureOf(const QString &uid)
{
    return uid.right(6).toInt() % 3 == 0 ? uid + QStringLiteral(".png") : QString();
}

QString SampleCompany::uid(int index)
{
    return QLatin1Char('u') + padded(index, 6);
}

int SampleCompany::indexOf(const QString &uid) const
{
    const int index = numberOf(uid, QLatin1Char('u'));
    return index < m_people ? index : -1;
}

quint64 SampleCompany::draw(int index, int field) const
{
    return mixed(mixed(m_seed) ^ mixed(quint64(index) * 64 + quint64(field)));
}

void SampleCompany::fillContact(SamplePerson *person) const
{
    const int index = person->index;
    const bool male = draw(index, Sex) % 100 < 54;
    const SampleName name =
        sampleName(draw(index, NameKind), draw(index, Surname), draw(index, GivenName), male);
    person->name = name.name;
    person->spell = name.spell;
    person->sex = male ? QString::fromUtf8("男") : QString::fromUtf8("女");
    person->account = name.spell + QString::number(index % OutsiderBase);
    person->birthday =
        QDate(1964, 1, 1).addDays(qint64(draw(index, Birthday) % 13500)).toString(Qt::ISODate);
    person->locality = sampleCity(draw(index, City));
    const quint64 sign = draw(index, Sign);
    if (sign % 100 < 35)
        person->sign = sampleSignature(sign >> 8);
    // No subscriber's number begins with 12.
    person->mobile = QStringLiteral("12") + padded(qint64(draw(index, Phone) % 1000000000), 9);
    person->otherPhone = QStringLiteral("8") + padded(qint64(draw(index, Phone) >> 40) % 10000, 4);
    if (draw(index, PrivatePhone) % 3 == 0)
        person->personalMobile =
            QStringLiteral("12") + padded(qint64(draw(index, PrivatePhone) >> 8) % 1000000000, 9);
}

SamplePerson SampleCompany::person(int index) const
{
    SamplePerson person;
    if (index < 0 || index >= m_people)
        return person;
    person.index = index;
    person.uid = uid(index);
    fillContact(&person);
    person.email = person.account + QLatin1Char('@') + domain();
    person.employeeCode = QLatin1Char('E') + padded(index, 6);
    person.companyCode = companyCode();
    person.companyName = companyName();

    const int leaf = leafOf(index);
    const SampleDepartment &department = m_departments.at(m_leaves.at(leaf));
    person.departmentId = department.id;
    person.departmentName = department.name;
    person.leaderUid = leaderOf(index);
    person.duty = dutyOf(index);
    person.isAdmin = index == headOfLeaf(leaf);
    person.onJob = !hasLeft(index);
    return person;
}

QString SampleCompany::dutyOf(int index) const
{
    const int leaf = leafOf(index);
    if (index == headOfLeaf(0))
        return QString::fromUtf8("总经理");
    if (index == headOfLeaf(leaf))
        return QString::fromUtf8("部门经理");
    const int kind = m_departments.at(m_leaves.at(leaf)).kind;
    return QString::fromUtf8(sampleDivisions().at(kind).duties[draw(index, Duty) % 6]);
}

SamplePerson SampleCompany::find(const QString &uid) const
{
    const int index = indexOf(uid);
    return index >= 0 ? person(index) : outsider(outsiderIndexOf(uid));
}

QString SampleCompany::uidOf(const QString &uidOrAccount) const
{
    const QString wanted = uidOrAccount.trimmed().toLower();
    if (find(wanted).index >= 0)
        return wanted;
    // An account ends in its owner's number, but the letters before may end in
    // digits of their own.
    for (int begin = wanted.size(); begin > 0 && wanted.at(begin - 1).isDigit(); --begin) {
        const int index = wanted.midRef(begin - 1).toInt();
        for (const SamplePerson &person : {this->person(index), outsider(index)}) {
            if (person.index >= 0 && person.account == wanted)
                return person.uid;
        }
    }
    return QString();
}

SampleCompany::Policy SampleCompany::policy(int index) const
{
    const quint64 share = draw(index, PolicyField) % 10;
    if (share < 6)
        return AcceptsAll;
    return share < 9 ? AsksFirst : RefusesAll;
}

SampleCompany::Reach SampleCompany::reach(quint64 number) const
{
    // Of a hundred people at an ordinary hour.
    static constexpr struct
    {
        int share;
        Reach reach;
    } usual[] = {{30, {0, 0}}, {58, {1, 0}}, {66, {1, 1}}, {76, {2, 0}}, {79, {3, 0}},
                 {84, {4, 0}}, {86, {5, 0}}, {94, {0, 1}}, {100, {0, 2}}};
    const int share = int(mixed(number) % 100);
    for (const auto &entry : usual) {
        if (share < entry.share)
            return entry.reach;
    }
    return {};
}

SampleCompany::Reach SampleCompany::reachAtStart(int index) const
{
    return hasLeft(index) ? Reach() : reach(draw(index, ReachField));
}

SampleCompany::Reach SampleCompany::reachAtStart(const QString &uid) const
{
    const int index = indexOf(uid);
    return index >= 0 ? reachAtStart(index) : reach(quint64(outsiderIndexOf(uid)));
}

bool SampleCompany::hasLeft(int index) const
{
    return index != 0 && draw(index, HasLeft) % 50 == 0;
}

void SampleCompany::buildFriendGroups()
{
    static constexpr const char *names[] = {"我的好友",   "常用联系人", "Engineering", "项目组",
                                            "市场与销售", "Support",    "同学会",      "老同事"};
    const bool everybody = m_people >= EverybodyIsAFriendFrom;
    m_friendCount =
        everybody ? m_people : 1 + qMin(m_people - 1, qBound(60, m_people * 3 / 10, 120));
    const int count = everybody ? qBound(8, m_people / 500, 200) : 8;
    for (int i = 0; i < count; ++i) {
        const QString id = i == 0 ? QString::fromLatin1("") : QString::number(i);
        if (i < 8) {
            m_friendGroups.append({id, QString::fromUtf8(names[i])});
            continue;
        }
        const SampleDivision &division = sampleDivisions().at(i % sampleDivisions().size());
        m_friendGroups.append({id, QString::fromUtf8(division.departments[i % 6]) +
                                       QLatin1Char(' ') + QString::number(i)});
    }
}

SampleFriend SampleCompany::friendAt(int position) const
{
    SampleFriend result;
    if (position < 0 || position >= m_friendCount)
        return result;
    if (position == 0) { // the person's own row, in the default group
        result.person = 0;
        return result;
    }
    result.person = m_friendCount == m_people
                        ? position
                        : 1 + int(qint64(position - 1) * (m_people - 1) / (m_friendCount - 1));
    const quint64 number = draw(result.person, FriendGroup);
    if (m_friendGroups.size() > 8) {
        result.group = int(number % quint64(m_friendGroups.size()));
    } else {
        static constexpr int shareBelow[] = {20, 28, 48, 63, 75, 85, 93, 100};
        const int share = int(number % 100);
        while (share >= shareBelow[result.group])
            ++result.group;
    }
    const quint64 remark = draw(result.person, Remark);
    if (remark % 100 < 9)
        result.remark = sampleRemark(remark >> 8);
    return result;
}

SamplePerson SampleCompany::outsider(int index) const
{
    static constexpr const char *companies[] = {"示例合作伙伴公司", "Example Customer Ltd."};
    SamplePerson person;
    if (index < 0 || index >= OutsiderCount)
        return person;
    person.index = OutsiderBase + index;
    person.uid = QLatin1Char('x') + padded(index, 6);
    fillContact(&person);
    person.email = person.account + QStringLiteral("@partner.example");
    if (index % 3 < 2) { // the others have a personal account
        person.companyCode = QLatin1Char('C') + QString::number(2 + index % 3);
        person.companyName = QString::fromUtf8(companies[index % 3]);
    }
    return person;
}

int SampleCompany::outsiderIndexOf(const QString &uid)
{
    const int index = numberOf(uid, QLatin1Char('x'));
    return index < OutsiderCount ? index : -1;
}

QVector<SampleGroup> SampleCompany::outsiderGroups()
{
    return {{QString::fromLatin1(""), QString::fromUtf8("我的好友")},
            {QStringLiteral("901"), QString::fromUtf8("合作伙伴")},
            {QStringLiteral("902"), QString::fromUtf8("客户")}};
}
