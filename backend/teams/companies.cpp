#include "backend/teams/companies.h"

std::optional<Company> Companies::atStart(const QString &code) const
{
    if (code.isEmpty())
        return std::nullopt;
    if (code == SampleCompany::companyCode()) {
        // Its head; the own user of the sample company only where there is nobody else.
        for (const int index : {1, 0}) {
            const SamplePerson person = m_people.company().person(index);
            if (person.index >= 0)
                return Company{code, person.companyName, person.uid, false};
        }
    }
    for (int i = 0; i < SampleCompany::OutsiderCount; ++i) {
        const SamplePerson outsider = m_people.company().outsider(i);
        if (outsider.companyCode == code)
            return Company{code, outsider.companyName, outsider.uid, false};
    }
    return std::nullopt;
}

std::optional<Company> Companies::find(const QString &code)
{
    std::optional<Company> company = atStart(code);
    if (!company)
        return company;
    Statement row = m_transaction.prepare("SELECT approver, approval FROM company WHERE code = ?");
    row.bind(code);
    if (row.next()) {
        // The people may have become fewer since.
        const std::optional<User> approver = m_people.find(row.text(0));
        if (approver && approver->companyCode == code)
            company->approver = approver->uid;
        company->needsApproval = row.number(1) != 0;
    }
    return company;
}

void Companies::change(const Company &company)
{
    m_transaction
        .prepare("INSERT OR REPLACE INTO company (code, approver, approval) VALUES (?, ?, ?)")
        .bind(company.code)
        .bind(company.approver)
        .bind(qint64(company.needsApproval))
        .run();
}
