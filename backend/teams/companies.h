// The companies of the sample people: who decides for them about virtual teams, and
// whether a team that one of their people makes waits for that decision. What was
// changed about them is kept in the database. Lives within a transaction.
#pragma once

#include "backend/database.h"
#include "backend/people.h"

struct Company
{
    QString code, name;
    QString approver; // uid of one of its people
    bool needsApproval = false;
};

class Companies
{
public:
    Companies(Transaction &transaction, const People &people)
        : m_transaction(transaction), m_people(people)
    {
    }

    // None: there is no such company.
    std::optional<Company> find(const QString &code);
    // The company of the code gets the values; `name` is not looked at.
    void change(const Company &company);

private:
    std::optional<Company> atStart(const QString &code) const;

    Transaction &m_transaction;
    const People &m_people;
};
