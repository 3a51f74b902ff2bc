// What one user of the sample company knows before anything is changed: friends and
// their groups, people of other companies, the people in the usual rooms. Anybody of
// the company, or of the other companies, can be that user.
//
// Whoever of the company it is has friends as everybody else has: the first of them
// takes this user's place, and this user the first one's. The people of other companies
// whom the company knows have colleagues as friends, and the first people of the company
// as external contacts; the others have no external contacts. The roster is computed, like the
// people.
#pragma once

#include "sample/samplecompany.h"

struct SampleContact
{
    SamplePerson person;
    QString groupId;
    QString remark;
};

class SampleRoster
{
public:
    // The company must outlive the roster. Of an unknown uid the first person.
    SampleRoster(const SampleCompany &company, const QString &uid);

    const SampleCompany &company() const { return m_company; }
    const SamplePerson &own() const { return m_own; }
    bool isOutsider() const { return m_index < 0; } // the user is of another company
    // False for people of other companies, and for everybody else when the user has a
    // personal account.
    bool isColleague(const SamplePerson &person) const;

    QVector<SampleGroup> groups(bool inner) const; // the default group leads
    int count(bool inner) const;
    // The user leads the inner ones. A position out of range: nobody.
    SampleContact contact(int position, bool inner) const;

    // The company as this user counts it: 0 the user, then everybody else; at most
    // company().people().
    SamplePerson mate(int place) const;

private:
    SampleContact friendAt(int position) const;
    QVector<int> outsideMates() const;

    const SampleCompany &m_company;
    int m_index; // of the user; -1: of another company
    SamplePerson m_own;
    QVector<int> m_outsideMates; // of a user of another company, who leads
};
