// What a user has set for a session: whether its messages are announced.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/routes/routes.h"

#include <json/value.h>

namespace {
constexpr int LongestJid = 1024; // characters

// Which rooms there are is the message server's knowledge; a service that is not
// connected to one can only tell what no room is called.
bool mayBeRoom(const QString &jid)
{
    const int at = jid.indexOf(QLatin1Char('@'));
    return at > 0 && at == jid.lastIndexOf(QLatin1Char('@')) && at + 1 < jid.size() &&
           jid.size() <= LongestJid && !jid.contains(QLatin1Char(' '));
}

Reply setSetting(const Call &call, BackEndContext &context)
{
    const QString room = call.form.required("sessionJid");
    const bool isNotHint = call.form.flag("isNotHint");
    if (!mayBeRoom(room))
        throw IllegalField("sessionJid");
    Transaction transaction(context.database);
    transaction
        .prepare("INSERT OR REPLACE INTO sessionSetting (uid, sessionJid, isNotHint)"
                 " VALUES (?, ?, ?)")
        .bind(call.caller.uid)
        .bind(room)
        .bind(qint64(isNotHint))
        .run();
    transaction.commit();
    return Reply::code(ReplyCode::Done);
}

Reply settings(const Call &call, BackEndContext &context)
{
    Json::Value data(Json::objectValue);
    Json::Value &sessions = data["sessions"] = Json::Value(Json::arrayValue);
    Transaction transaction(context.database);
    Statement rows = transaction.prepare(
        "SELECT sessionJid, isNotHint FROM sessionSetting WHERE uid = ? ORDER BY sessionJid");
    rows.bind(call.caller.uid);
    while (rows.next()) {
        Json::Value session(Json::objectValue);
        session["sessionJid"] = rows.text(0).toStdString();
        session["isNotHint"] = int(rows.number(1));
        sessions.append(session);
    }
    return Reply::data(data);
}

} // namespace

void addSettingsServices(Services *services, BackEndContext &context)
{
    services->post("/center/session/setSetting.do", Services::LoggedIn,
                   [&context](const Call &call) { return setSetting(call, context); });
    services->post("/center/clientsettings/getClientSettings.do", Services::LoggedIn,
                   [&context](const Call &call) { return settings(call, context); });
}
