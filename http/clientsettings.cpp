#include "http/clientsettings.h"

#include "common/context.h"
#include "common/logging.h"
#include "common/sessionsettings.h"
#include "http/httpmgr.h"
#include "http/jsonreader.h"
#include "http/servicecall.h"

QSet<QString> ClientSettings::silentSessions(const Json::Value &data)
{
    QSet<QString> silent;
    for (const Json::Value &session : JsonReader::array(data, "sessions")) {
        const QString jid = JsonReader::text(session, "sessionJid");
        if (!jid.isEmpty() && JsonReader::flag(session, "isNotHint"))
            silent.insert(jid);
    }
    return silent;
}

void HttpMgr::setSessionMsgConfig(const QString &roomJid, bool notHint)
{
    LOG_SCOPE("HttpMgr::setSessionMsgConfig(const QString &roomJid, bool notHint)");
    const ServiceRequest request{
        "/ClientSetting/setMucMessageConfigUrl",
        {{"sessionJid", roomJid},
         {"isNotHint", notHint ? QStringLiteral("1") : QStringLiteral("0")}}};
    const QString user = ctx().userId();
    ServiceCall::start(request, this, HERE, [=](const ServiceReply &reply) {
        // What is stored by now may be somebody else's.
        const bool ok = reply.ok && ctx().userId() == user;
        if (!ok)
            LOG_ERROR("the setting of " << logText(roomJid)
                                        << " was refused: " << QString::number(reply.code));
        else if (!SessionSettings::setMuted(roomJid, notHint))
            LOG_ERROR("the setting of " << logText(roomJid) << " is not stored here");
        m_settingChanges += ok;
        emit signal_setSessionMsgConfigDone(ok, roomJid, QStringLiteral("isNotHint"), notHint);
    });
}

void HttpMgr::loadClientSettings()
{
    LOG_SCOPE("HttpMgr::loadClientSettings()");
    const QString user = ctx().userId();
    const int changes = m_settingChanges;
    // An older one tells nothing that this one will not.
    delete m_settingsLoading;
    const auto take = [=](const ServiceReply &reply) {
        m_settingsLoading.clear();
        if (!reply.ok || ctx().userId() != user) {
            LOG_ERROR(
                "the settings of conversations were not loaded: " << QString::number(reply.code));
            emit signal_clientSettingsLoaded(false);
        } else if (changes != m_settingChanges) {
            // The reply may be older than what the user has set since.
            loadClientSettings();
        } else {
            emit signal_clientSettingsLoaded(
                SessionSettings::replaceMuted(ClientSettings::silentSessions(reply.data())));
        }
    };
    m_settingsLoading = ServiceCall::start({"/ClientSetting/settingUrl"}, this, HERE, take);
}
