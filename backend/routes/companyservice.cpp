// Whether the teams of a company need approval, and whose. Any employee may change
// it: it is there to try things out.
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

namespace {
Reply teamApproval(const Call &call, Teams &teams)
{
    const QString code = teams.caller().companyCode;
    const std::optional<Company> found = teams.company(code);
    if (!found)
        throw Refusal(ReplyCode::Personal);
    Company company = *found;
    if (call.form.has("approval"))
        company.needsApproval = call.form.flag("approval");
    if (call.form.has("approver"))
        company.approver = call.form.required("approver");
    if (call.form.has("approval") || call.form.has("approver"))
        teams.changeCompany(company);
    TeamReply reply;
    reply.json().member("companyCode", code).flag("approval", company.needsApproval);
    reply.json().member("approver", company.approver);
    reply.json().member("approverName", teams.person(company.approver).name);
    return reply.end();
}
} // namespace

void addCompanyServices(Services *services, BackEndContext &context)
{
    addTeamChangeAt(services, context, "/center/company/teamApproval.do", teamApproval);
}
