#include "sample/sampleroster.h"

namespace {
constexpr int CompanyContacts = 40; // whom people of other companies know
}

SampleRoster::SampleRoster(const SampleCompany &company, const QString &uid)
    : m_company(company), m_index(company.indexOf(uid)), m_own(company.find(uid))
{
    if (m_own.index < 0) {
        m_index = 0;
        m_own = company.person(0);
    }
    if (isOutsider())
        m_outsideMates = outsideMates();
}

QVector<int> SampleRoster::outsideMates() const
{
    const int own = SampleCompany::outsiderIndexOf(m_own.uid);
    QVector<int> mates{own};
    for (int i = 0; i < SampleCompany::KnownOutsiderCount; ++i) {
        if (i != own && isColleague(m_company.outsider(i)))
            mates.append(i);
    }
    return mates;
}

bool SampleRoster::isColleague(const SamplePerson &person) const
{
    return person.uid == m_own.uid ||
           (!person.companyCode.isEmpty() && person.companyCode == m_own.companyCode);
}

SamplePerson SampleRoster::mate(int place) const
{
    if (place == 0)
        return m_own;
    return m_company.person(place == m_index ? 0 : place);
}

QVector<SampleGroup> SampleRoster::groups(bool inner) const
{
    if (!inner)
        return SampleCompany::outsiderGroups();
    const QVector<SampleGroup> all = m_company.friendGroups();
    return isOutsider() ? all.mid(0, 2) : all;
}

int SampleRoster::count(bool inner) const
{
    if (!isOutsider())
        return inner ? m_company.friendCount() : SampleCompany::KnownOutsiderCount;
    if (inner)
        return m_outsideMates.size();
    const bool isKnown =
        SampleCompany::outsiderIndexOf(m_own.uid) < SampleCompany::KnownOutsiderCount;
    return isKnown ? qMin(CompanyContacts, m_company.friendCount()) : 0;
}

SampleContact SampleRoster::friendAt(int position) const
{
    const SampleFriend seat = m_company.friendAt(position);
    return {mate(seat.person), m_company.friendGroups().at(seat.group).id, seat.remark};
}

SampleContact SampleRoster::contact(int position, bool inner) const
{
    if (position < 0 || position >= count(inner))
        return {};
    if (inner && !isOutsider())
        return friendAt(position);
    const QVector<SampleGroup> all = groups(inner);
    if (inner)
        return {m_company.outsider(m_outsideMates.at(position)), all.first().id, QString()};
    const QString group = all.at(position % all.size()).id;
    if (isOutsider())
        return {m_company.person(m_company.friendAt(position).person), group, QString()};
    return {m_company.outsider(position), group, QString()};
}
