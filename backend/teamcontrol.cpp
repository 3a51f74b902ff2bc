#include "backend/teamcontrol.h"

#include "backend/commandjson.h"
#include "backend/context.h"
#include "backend/teams/sampleteam.h"
#include "backend/teams/teams.h"

namespace {
constexpr int PeopleOfGroup = 25; // of the team of the command line
constexpr int MostGroups = 10000;

Company companyOf(const QString &code, Transaction &transaction, const People &people)
{
    const std::optional<Company> company = Companies(transaction, people).find(code);
    if (!company)
        throw BadCommand("unknown company");
    return *company;
}
} // namespace

void changeCompany(const Json::Value &command, BackEndContext *context)
{
    refuseOthers(command, {"code", "approval", "approver"});
    const QString code = QString::fromStdString(command["code"].asString());
    Transaction transaction(context->database);
    Company company = companyOf(code, transaction, context->people);
    Teams teams(transaction, context->people, company.approver);
    if (command.isMember("approval"))
        company.needsApproval = command["approval"].asBool();
    if (command.isMember("approver"))
        company.approver = QString::fromStdString(command["approver"].asString());
    try {
        teams.changeCompany(company);
    } catch (const Refusal &) {
        throw BadCommand("the approver is not one of the company's people");
    }
    transaction.commit();
    context->bell.ring();
}

void makeTeam(const Json::Value &command, BackEndContext *context, Json::Value *answer)
{
    refuseOthers(command, {"owner", "members", "groups"});
    SampleTeam team;
    team.owner = QString::fromStdString(command["owner"].asString());
    team.members = command["members"].asInt();
    team.groups = command["groups"].asInt();
    if (team.members < 1 || team.groups < 0 || team.groups > MostGroups)
        throw BadCommand("members or groups out of range");
    Transaction transaction(context->database);
    const qint64 id = team.make(transaction, context->people);
    if (id == 0)
        throw BadCommand("unknown owner, or not that many people");
    transaction.commit();
    context->bell.ring();
    (*answer)["vtId"] = std::to_string(id);
}

void requireTeamApproval(BackEndContext *context)
{
    Transaction transaction(context->database);
    Company company = companyOf(SampleCompany::companyCode(), transaction, context->people);
    company.needsApproval = true;
    Companies(transaction, context->people).change(company);
    transaction.commit();
}

bool provideTeam(int members, BackEndContext *context)
{
    SampleTeam team;
    team.owner = SampleCompany::uid(0);
    team.members = members;
    team.groups = (members + PeopleOfGroup - 1) / PeopleOfGroup;
    Transaction transaction(context->database);
    if (TeamStore(transaction).ownsTeamNamed(team.owner, SampleTeam::name()))
        return true;
    if (team.make(transaction, context->people) == 0)
        return false;
    transaction.commit();
    return true;
}
