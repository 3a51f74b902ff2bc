#include "backend/people.h"

#include <mutex>

namespace {
// Of "w000012"; -1: not of this form.
int numberOf(const QString &uid, QLatin1Char letter)
{
    if (uid.size() != 7 || uid.at(0) != letter)
        return -1;
    bool ok = false;
    const uint number = uid.midRef(1).toUInt(&ok);
    return ok && uid.at(1).isDigit() ? int(number) : -1;
}
} // namespace

QString People::largeDepartment()
{
    return QStringLiteral("D9000");
}

People::People(int people, quint64 seed, int departmentSize)
    : m_company(people, seed),
      m_crowd(qMax(1, departmentSize), seed + 1),
      m_departmentSize(qBound(0, departmentSize, SampleCompany::MaximumPeople))
{
}

QString People::largeDepartmentUid(int index)
{
    return QLatin1Char('w') + QString::number(index).rightJustified(6, QLatin1Char('0'));
}

bool People::hasPicture(const QString &uid)
{
    return !SampleCompany::pictureOf(uid).isEmpty();
}

User People::made(const SamplePerson &person) const
{
    User user;
    user.uid = person.uid;
    user.account = person.account;
    user.name = user.nickName = person.name;
    user.spell = person.spell;
    user.companyCode = person.companyCode;
    user.companyName = person.companyName;
    user.orgId = person.departmentId;
    user.orgName = person.departmentName;
    user.leaderUid = person.leaderUid;
    user.employeeCode = person.employeeCode;
    user.duty = person.duty;
    user.mobile = person.mobile;
    user.otherPhone = person.otherPhone;
    user.email = person.email;
    user.mayReadOrganisation = person.companyCode == SampleCompany::companyCode();
    return user;
}

void People::applyChanges(User *user) const
{
    user->photoName = SampleCompany::pictureOf(user->uid);
    const std::shared_lock<std::shared_mutex> lock(m_mutex);
    user->photoName = m_photos.value(user->uid, user->photoName);
    const auto found = m_changes.constFind(user->uid);
    if (found == m_changes.constEnd())
        return;
    for (const Change &change : *found)
        change(user);
}

User People::employee(int index) const
{
    User user = made(m_company.person(index));
    user.reach = m_company.reachAtStart(index);
    applyChanges(&user);
    return user;
}

User People::largeDepartmentEmployee(int index) const
{
    User user = made(m_crowd.person(index));
    user.uid = largeDepartmentUid(index);
    user.orgId = largeDepartment();
    user.orgName = QString::fromUtf8("大部门");
    user.leaderUid = largeDepartmentUid(0);
    user.employeeCode = QLatin1Char('W') + user.uid.mid(1);
    user.account.prepend(QStringLiteral("w."));
    user.email.prepend(QStringLiteral("w."));
    user.reach = m_crowd.reachAtStart(index);
    applyChanges(&user);
    return user;
}

std::optional<User> People::find(const QString &uid) const
{
    const int index = m_company.indexOf(uid);
    if (index >= 0)
        return employee(index);
    const int outsider = SampleCompany::outsiderIndexOf(uid);
    if (outsider >= 0) {
        User user = made(m_company.outsider(outsider));
        user.reach = m_company.reach(quint64(outsider));
        applyChanges(&user);
        return user;
    }
    const int inCrowd = numberOf(uid, QLatin1Char('w'));
    if (inCrowd >= 0 && inCrowd < m_departmentSize)
        return largeDepartmentEmployee(inCrowd);
    return std::nullopt;
}

QString People::uidOfLogin(const QString &loginName) const
{
    return find(loginName) ? loginName : m_company.uidOf(loginName);
}

void People::change(const QString &uid, const Change &change)
{
    const std::unique_lock<std::shared_mutex> lock(m_mutex);
    m_changes[uid].append(change);
    ++m_version;
}

void People::forgetChanges()
{
    const std::unique_lock<std::shared_mutex> lock(m_mutex);
    m_changes.clear();
    ++m_version;
}

void People::setPhoto(const QString &uid, const QString &photoName)
{
    const std::unique_lock<std::shared_mutex> lock(m_mutex);
    m_photos.insert(uid, photoName);
    ++m_version;
}
