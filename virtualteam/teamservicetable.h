// What tells one operation of the team services from another: the service, the fields
// of its form, and what its signal says. For CHttpVirtualTeamOperation itself only.
#pragma once

#include "virtualteam/httpvirtualteamoperation.h"

#include <json/value.h>

// What an operation was asked for.
struct TeamArguments
{
    QString vtId = {};
    QString groupId = {};
    QStringList members = {};
    QString text = {}; // a name, a post, what is searched for
    QString reason = {};
    bool agrees = false;
};

// How it ended.
struct TeamOutcome
{
    bool ok;
    int code;
    const Json::Value &data; // "data" of the reply: it may be anything
};

struct CHttpVirtualTeamOperation::Service
{
    struct Field
    {
        const char *name = nullptr;
        QString (*value)(const TeamArguments &arguments) = nullptr;
    };

    const char *key;     // of the address; null: that of member details, which has none
    const char *request; // for the log, like the next
    const char *reply;
    void (CHttpVirtualTeamOperation::*slot)(QNetworkReply *reply);
    void (*tell)(CHttpVirtualTeamOperation &q, const TeamArguments &a, const TeamOutcome &o);
    Field fields[3] = {};

    static const Service Teams, SearchMember, Create, Invite, Audit, CreateDetail, JoinDetail,
        AnswerInvitation, Structure, AddMembers, DeleteMembers, Quit, Dissolve, Rename,
        ChangeNickName, ChangeDuty, MemberInfo, GrantAuthority, FuzzySearch, RenameGroup, AddGroup,
        DeleteGroup, MoveMembers, Members, SetAdmins, AddAdmins, DeleteAdmins;
};
