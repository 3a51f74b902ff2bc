#include "tests/backend/teamworld.h"

#include "backend/peopleindex.h"
#include "backend/routes/routes.h"
#include "backend/teams/teamstore.h"

#include <json/reader.h>

const QString TeamWorld::Owner = QStringLiteral("u000010");
const QString TeamWorld::SubAdmin = QStringLiteral("u000011");
const QString TeamWorld::Member = QStringLiteral("u000012");
const QString TeamWorld::Stranger = QStringLiteral("u000020");
const QString TeamWorld::InTop = QStringLiteral("u000013");
const QString TeamWorld::InSub = QStringLiteral("u000014");
const QString TeamWorld::AdminInManaged = QStringLiteral("u000015");
const QString TeamWorld::Partner = QStringLiteral("x000000");
const QString TeamWorld::Outsider = QStringLiteral("x000001");
const QString TeamWorld::Personal = QStringLiteral("x000002");

namespace {
QString text(const Json::Value &value)
{
    return QString::fromStdString(value.asString());
}
} // namespace

TeamWorld::TeamWorld()
{
    QString problem;
    if (!context.database.open(m_folder.filePath(QStringLiteral("teams.sqlite")), &problem))
        qFatal("%s", qPrintable(problem));
    addTeamServices(&m_services, context);
    addTeamFoundingServices(&m_services, context);
    const auto index = std::make_shared<const PeopleIndex>(context.people);
    addTeamPeopleServices(&m_services, context, index);
    addEventServices(&m_services, context);
    addCompanyServices(&m_services, context);
    addFriendServices(&m_services, context);
    addFriendSearch(&m_services, context, index);
    addServiceNumbers(&m_services, context);
}

TeamAnswer TeamWorld::call(const QString &uid, const QString &service, const QString &fields)
{
    const QString path = service.startsWith(QLatin1Char('/'))
                             ? service
                             : QStringLiteral("/center/vt/%1.do").arg(service);
    const Services::Service *found = m_services.find("POST", path.toStdString());
    if (!found)
        qFatal("no service %s", qPrintable(path));
    Call call;
    call.form = FormBody::parse(fields.toStdString());
    call.caller = {Caller::LoggedIn, uid};
    Json::Value root;
    try {
        const std::string body = found->handler(call).body;
        Json::CharReaderBuilder builder;
        const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
        if (!reader->parse(body.data(), body.data() + body.size(), &root, nullptr))
            return {};
    } catch (const IllegalField &) { // as the dispatcher answers it
        return {ReplyCode::Illegal, {}};
    }
    return {root["code"].asInt(), root["data"]};
}

QStringList TeamWorld::teamsOf(const QString &uid)
{
    QStringList ids;
    const TeamAnswer answer = call(uid, QStringLiteral("getAllVirtualTeam"));
    for (const Json::Value &team : answer.data["vt"])
        ids.append(text(team["vtId"]));
    return ids;
}

QString TeamWorld::members(const QString &team)
{
    Transaction transaction(context.database);
    QStringList result;
    for (const TeamMember &member : TeamStore(transaction).members(team.toLongLong()))
        result.append(member.uid + QLatin1Char(':') + QString::number(member.role));
    return result.join(QLatin1Char(' '));
}

QStringList TeamWorld::events(const QString &uid, qint64 *since)
{
    const TeamAnswer answer = call(uid, QStringLiteral("/center/event/getEvents.do"),
                                   *since < 0 ? QString() : QStringLiteral("since=%1").arg(*since));
    *since = answer.data["next"].asInt64();
    QStringList result;
    for (const Json::Value &event : answer.data["events"])
        result.append(QStringList{text(event["type"]), text(event["teams"]), text(event["member"])}
                          .join(QLatin1Char(' '))
                          .simplified());
    return result;
}

qint64 TeamWorld::lastEvent(const QString &uid)
{
    return call(uid, QStringLiteral("/center/event/getEvents.do")).data["next"].asInt64();
}

QStringList TeamWorld::contradictions()
{
    static constexpr std::pair<const char *, const char *> never[] = {
        {"a team without its one owner",
         "SELECT vtId FROM team WHERE (SELECT COUNT(*) FROM teamMember"
         " WHERE teamMember.vtId = team.vtId AND role = 2) <> (creation = 1)"},
        {"a membership without team", "SELECT vtId FROM teamMember"
                                      " WHERE vtId NOT IN (SELECT vtId FROM team)"},
        {"a member in no group of the team",
         "SELECT m.vtId FROM teamMember AS m LEFT JOIN teamGroup AS g"
         " ON g.groupId = m.groupId AND g.vtId = m.vtId"
         " WHERE m.groupId <> 0 AND g.groupId IS NULL"},
        {"a group without parent in the team, or on a wrong level",
         "SELECT g.vtId FROM teamGroup AS g LEFT JOIN teamGroup AS p"
         " ON p.groupId = g.parent AND p.vtId = g.vtId"
         " WHERE g.level <> IFNULL(p.level, 0) + 1 OR (g.parent <> 0) <> (p.groupId NOT NULL)"
         " OR g.vtId NOT IN (SELECT vtId FROM team)"},
        {"a contact on one side", "SELECT a.uid FROM friend AS a LEFT JOIN friend AS b"
                                  " ON b.uid = a.other AND b.other = a.uid WHERE b.uid IS NULL"},
        {"a contact in no group of the user's",
         "SELECT f.uid FROM friend AS f LEFT JOIN friendGroup AS g"
         " ON g.uid = f.uid AND g.groupId = f.groupId"
         " WHERE f.groupId <> 0 AND g.groupId IS NULL"},
        {"a request of a contact", "SELECT asker FROM friendRequest JOIN friend"
                                   " ON uid = asker AND other = asked"},
        {"a blocked contact", "SELECT uid FROM friendBlock JOIN friend USING (uid, other)"},
    };
    Transaction transaction(context.database);
    QStringList found;
    for (const auto &[what, sql] : never) {
        Statement rows = transaction.prepare(sql);
        while (rows.next())
            found.append(QString::fromLatin1(what) + QLatin1Char(' ') + rows.text(0));
    }
    return found;
}

QString TeamWorld::StandardTeam::fill(const QString &text) const
{
    QString filled = text;
    return filled.replace("%1", id).replace("%2", top).replace("%3", sub).replace("%4", managed);
}

TeamWorld::StandardTeam TeamWorld::makeStandardTeam()
{
    static int number = 0;
    const auto made = [this](const char *service, const QString &fields, const char *member) {
        return text(call(Owner, QString::fromLatin1(service), fields).data[member]);
    };
    StandardTeam team;
    team.id = made("createVirtualTeam",
                   QStringLiteral("vtName=Team %1&reason=r&members=").arg(++number) +
                       QStringList{SubAdmin, Member, Partner}.join(QLatin1Char(',')),
                   "vtId");
    const auto group = [&](const QString &parent, const char *name) {
        return made("addVirtualTeamGroup",
                    QStringLiteral("vtId=%1&pgId=%2&groupName=").arg(team.id, parent) +
                        QLatin1String(name),
                    "groupId");
    };
    const auto fillGroup = [&](const QString &id, const QString &uid) {
        code(Owner, QStringLiteral("batchAddVirtualTeamMember"),
             QStringLiteral("vtId=%1&groupId=%2&members=%3").arg(team.id, id, uid));
    };
    team.top = group(QStringLiteral("0"), "top");
    team.sub = group(team.top, "sub");
    team.managed = group(QStringLiteral("0"), "managed");
    fillGroup(team.top, InTop);
    fillGroup(team.sub, InSub);
    fillGroup(team.managed, AdminInManaged);
    code(Owner, QStringLiteral("setVirtualTeamAdmin"),
         QStringLiteral("vtId=%1&members=%2,%3").arg(team.id, SubAdmin, AdminInManaged));
    code(Partner, QStringLiteral("confirmJoinVirtualTeam"),
         QStringLiteral("vtId=%1&agree=1").arg(team.id));
    return team;
}
