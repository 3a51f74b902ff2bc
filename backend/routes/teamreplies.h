// Writes what the team services answer.
#pragma once

#include "backend/reply.h"
#include "backend/teams/teams.h"

// {"code":0,"data":{ ... }}
class TeamReply
{
public:
    TeamReply() { m_json.open('{').member("code", qint64(ReplyCode::Done)).open("data", '{'); }

    JsonText &json() { return m_json; }
    // The members of a member's object, as lists of members have them.
    void writeMember(const TeamMember &member, const User &user);
    // The members of an object with the person's contact.
    void writePerson(const User &user);
    void writeApplication(const TeamApplication &application);

    Reply end()
    {
        m_json.close('}').close('}');
        return Reply::text(std::move(m_text));
    }

private:
    std::string m_text;
    JsonText m_json{&m_text};
};

// As the team sees the person.
QString nickNameOf(const TeamMember &member, const User &user);
