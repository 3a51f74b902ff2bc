#include "backend/routes/teamreplies.h"

#include "backend/orgtree.h"

namespace {
// One object: the desk counts before the road.
void writePresence(JsonText *json, const SampleCompany::Reach &reach)
{
    const bool isMobile = reach.pc == 0 && reach.mobile > 0;
    json->open("presence", '{').flag("av", reach.pc > 0 || isMobile);
    json->member("show", isMobile ? "available" : OrgTree::show(reach.pc));
    json->member("pt", reach.pc > 0        ? "pc"
                       : !isMobile         ? ""
                       : reach.mobile == 1 ? "android"
                                           : "ios");
    json->member("rsc", reach.pc > 0 ? "pc" : isMobile ? "mobile" : "").close('}');
}
} // namespace

QString nickNameOf(const TeamMember &member, const User &user)
{
    return member.nickName.isEmpty() ? user.name : member.nickName;
}

void TeamReply::writeMember(const TeamMember &member, const User &user)
{
    m_json.member("userId", member.uid).member("nickName", nickNameOf(member, user));
    m_json.member("photoName", user.photoName).member("companyCode", user.companyCode);
    m_json.member("duty", member.duty).member("role", qint64(member.role));
    writePresence(&m_json, user.reach);
}

void TeamReply::writePerson(const User &user)
{
    m_json.member("companyCode", user.companyCode).member("companyName", user.companyName);
    m_json.member("photoName", user.photoName).member("mobile", user.mobile);
}

void TeamReply::writeApplication(const TeamApplication &application)
{
    const User &applicant = application.applicant;
    m_json.member("vtId", QString::number(application.team.id));
    m_json.member("vtName", application.team.name).member("userId", applicant.uid);
    m_json.member("nickName", applicant.name);
    m_json.member("creatorEmployeeCode", applicant.employeeCode);
    writePerson(applicant);
    m_json.member("reason", application.reason).flag("audited", application.isDecided);
    m_json.open("members", '[');
    for (const User &user : application.members) {
        m_json.open('{').member("userId", user.uid).member("nickName", user.name);
        m_json.member("employeeCode", user.employeeCode);
        writePerson(user);
        m_json.close('}');
    }
    m_json.close(']');
}
