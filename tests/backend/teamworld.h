// The services of teams, external contacts and service numbers without a network: any
// number of users call them, also from several threads. Fields are written as a body,
// "vtId=1001&pgId=0"; "members=" and names need no encoding unless they have "&", "%",
// "+" or "=".
#pragma once

#include "backend/call.h"
#include "backend/context.h"

#include <QTemporaryDir>

#include <json/value.h>

struct TeamAnswer
{
    int code = -1;
    Json::Value data;
};

class TeamWorld
{
public:
    TeamWorld();

    // `service`: the last part of a team service's path, or the whole path.
    TeamAnswer call(const QString &uid, const QString &service, const QString &fields = {});
    int code(const QString &uid, const QString &service, const QString &fields = {})
    {
        return call(uid, service, fields).code;
    }
    // The ids, in the order of the answer.
    QStringList teamsOf(const QString &uid);
    // "uid:role" of all members, in the order in which they joined.
    QString members(const QString &team);
    // "type team member", as far as it has them, of what the user is told after a number, which is
    // set to the last; negative: to who knows nothing yet.
    QStringList events(const QString &uid, qint64 *since);
    qint64 lastEvent(const QString &uid);
    // What contradicts itself in the tables; empty: nothing.
    QStringList contradictions();

    // A team of theirs; "%1" to "%4" of a text are its id, the ids of the groups "top",
    // "sub" in it and "managed".
    struct StandardTeam
    {
        QString id, top, sub, managed;
        QString fill(const QString &text) const;
    };
    StandardTeam makeStandardTeam();
    static const QString Owner, SubAdmin, Member, Stranger;
    static const QString InTop, InSub, AdminInManaged; // in the groups
    static const QString Partner, Outsider, Personal;  // company C2, a member; C3; none

    BackEndContext context{300, 1, 0};

private:
    QTemporaryDir m_folder;
    Services m_services;
};
