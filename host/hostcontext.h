// The context that the reference host hands to the plug-in: identity, folders,
// roster and rooms from the messaging core; skin, log and server settings of its
// own.
//
// It also owns the log: started by the constructor, so that nothing the plug-in
// writes is lost, and ended by shutDown(). Writer and thread are never deleted,
// because the plug-in may still log while the process ends.
#pragma once

#include "common/cserversettings.h"
#include "hostapi/applicationcontext.h"

#include <QHash>

class ConversationStore;
class FileTransfers;
class MessagingCore;
class WebLog;

class HostContext : public ApplicationContext
{
public:
    // `dataFolder` is created when missing and holds users/, logs/. The core is
    // not owned and outlives the context.
    HostContext(MessagingCore *core, const QString &dataFolder);
    ~HostContext() override;
    HostContext(const HostContext &) = delete;
    HostContext &operator=(const HostContext &) = delete;

    // Writes what is still queued, then ends the log thread; at most 3 seconds.
    void shutDown();

    QString logFile() const { return m_logFile; }
    // For the user, when the settings of conversations were damaged; else empty.
    QString notice() const;
    // Where the module keeps pictures that it has fetched.
    QString pictureFolder() const { return userFolder() + QLatin1String("/headImage"); }
    CServerSettings &settings() { return m_settings; }
    void setSkin(const SysUIData &skin) { m_skin = skin; }
    void setSessionTop(const QString &jid, bool top);
    // False: answers as a client does at its first log-in, before the server has
    // delivered groups and contacts. True at first.
    void setRosterKnown(bool known) { m_rosterKnown = known; }
    // The log-in to the web services; not owned, null takes it back.
    void setPassport(CPassportLoginServer *passport) { m_passport = passport; }
    // What the web services demand of whoever sends; empty: nothing.
    void setWebAccess(const QString &caFile, const QString &password);
    // The files under way; not owned, null ends it.
    void setTransfers(const FileTransfers *transfers) { m_transfers = transfers; }
    // Somebody who is no contact but known to be of another company, or of none. Until the
    // process ends.
    void setOutsider(const QString &jid, bool cooperates) { m_outsiders.insert(jid, cooperates); }
    // Told of every finished web request; not owned, null ends it.
    void setWebLog(WebLog *log) { m_webLog = log; }

    LogFileWriter *logWriter() const override;
    CLogThread *logThread() const override;

    QString userId() const override;
    QString serverDomain() const override;
    QString companyCode() const override;
    bool vcard(const QString &jid, VcardInfo *out) const override;

    QString userBaseFolder() const override;
    QSqlDatabase userDatabase() const override;
    void setAllUsersDatabase(const QSqlDatabase &database) override;
    CPassportLoginServer *passport() const override { return m_passport; }
    CServerSettings *serverSettings() const override;

    QList<GroupData> groups(bool inner) const override;
    QList<FriendData> friends() const override;
    bool friendData(const QString &jid, FriendData *out) const override;
    PresenceData presence(const QString &jid) const override;
    bool cooperates(const QString &jid, bool *value) const override;

    bool mucData(const QString &jid, MucData *out) const override;
    int mucRole(const QString &jid) const override;
    bool isSessionTop(const QString &jid) const override;
    int sessionNotify(const QString &jid) const override;
    bool isTransferring(const QString &jid) const override;
    QString productTeamJid() const override;

    QString headPath(const QString &jidOrPhoto) const override;
    SysUIData skin() const override;

    QString password() const override { return m_password; }
    // The data folder: the addresses of one host's back end are of no use to another.
    QString applicationFolder() const override { return m_dataFolder; }
    QString caFile() const override { return m_caFile; }
    QString documentsFolder() const override { return m_dataFolder + QLatin1String("/documents"); }
    void webRequestFinished(const WebRequestRecord &record) override;

private:
    void startLog();

    MessagingCore *m_core;
    QString m_dataFolder;
    QString m_logFile;
    LogFileWriter *m_writer = nullptr;
    CLogThread *m_thread = nullptr;
    mutable CServerSettings m_settings;
    mutable QScopedPointer<ConversationStore> m_conversations;
    QSqlDatabase m_allUsers;
    CPassportLoginServer *m_passport = nullptr;
    QHash<QString, bool> m_outsiders; // jid -> whether a partner's
    const FileTransfers *m_transfers = nullptr;
    WebLog *m_webLog = nullptr;
    QString m_password, m_caFile;
    SysUIData m_skin;
    bool m_rosterKnown = true;
};
