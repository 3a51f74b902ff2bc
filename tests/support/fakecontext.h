// A host context whose every answer is a public member that a test sets.
//
//     FakeContext host;
//     host.user = QStringLiteral("u1");
//     const HostContextScope scope(&host);
#pragma once

#include "common/context.h"
#include "common/cserversettings.h"

#include <QMap>
#include <QSet>
#include <QVector>

class FakeContext : public ApplicationContext
{
public:
    QString user;
    QString domain = QStringLiteral("corp.example");
    QString company;
    QString baseFolder;
    QSqlDatabase database;
    QSqlDatabase allUsersDatabase; // what setAllUsersDatabase() was given

    // Not owned. The log manager keeps the first thread and writer that it sees
    // until the process ends, so these must never be destroyed.
    LogFileWriter *writer = nullptr;
    CLogThread *thread = nullptr;
    CPassportLoginServer *passportServer = nullptr;
    CServerSettings settings;
    bool hasSettings = true;

    QList<GroupData> innerGroups;
    QList<GroupData> externalGroups;
    QMap<QString, FriendData> contacts; // by jid
    QMap<QString, PresenceData> presences;
    QMap<QString, bool> cooperation;
    QMap<QString, VcardInfo> profiles;

    QMap<QString, MucData> rooms;
    QMap<QString, int> roomRoles;
    QMap<QString, int> notifications;
    QSet<QString> topSessions;
    QSet<QString> transferring;

    QMap<QString, QString> headPaths;
    SysUIData skinRecord;
    QSet<int> deniedRights;
    int limit = 0;
    QString productTeam;
    QString userPassword;
    QString programFolder;                 // where allurl.ini is looked for
    QString documents;                     // in the place of the user's documents folder
    QString authorities;                   // PEM file
    QVector<WebRequestRecord> webRequests; // in the order in which they finished

    void addContact(const FriendData &contact) { contacts.insert(contact.jid, contact); }

    LogFileWriter *logWriter() const override { return writer; }
    CLogThread *logThread() const override { return thread; }
    QString userId() const override { return user; }
    QString serverDomain() const override { return domain; }
    QString companyCode() const override { return company; }
    bool vcard(const QString &jid, VcardInfo *out) const override
    {
        return lookUp(profiles, jid, out);
    }
    QString userBaseFolder() const override { return baseFolder; }
    QSqlDatabase userDatabase() const override { return database; }
    void setAllUsersDatabase(const QSqlDatabase &given) override { allUsersDatabase = given; }
    CPassportLoginServer *passport() const override { return passportServer; }
    CServerSettings *serverSettings() const override
    {
        return hasSettings ? const_cast<CServerSettings *>(&settings) : nullptr;
    }
    QList<GroupData> groups(bool inner) const override
    {
        return inner ? innerGroups : externalGroups;
    }
    QList<FriendData> friends() const override { return contacts.values(); }
    bool friendData(const QString &jid, FriendData *out) const override
    {
        return lookUp(contacts, jid, out);
    }
    PresenceData presence(const QString &jid) const override { return presences.value(jid); }
    bool cooperates(const QString &jid, bool *value) const override
    {
        return lookUp(cooperation, jid, value);
    }
    bool mucData(const QString &jid, MucData *out) const override
    {
        return lookUp(rooms, jid, out);
    }
    int mucRole(const QString &jid) const override { return roomRoles.value(jid); }
    bool isSessionTop(const QString &jid) const override { return topSessions.contains(jid); }
    int sessionNotify(const QString &jid) const override { return notifications.value(jid); }
    bool isTransferring(const QString &jid) const override { return transferring.contains(jid); }
    QString headPath(const QString &jidOrPhoto) const override
    {
        return headPaths.value(jidOrPhoto);
    }
    SysUIData skin() const override { return skinRecord; }
    bool hasRight(int right) const override { return !deniedRights.contains(right); }
    int contactLimit() const override { return limit; }
    QString productTeamJid() const override { return productTeam; }
    QString password() const override { return userPassword; }
    QString applicationFolder() const override { return programFolder; }
    QString documentsFolder() const override { return documents; }
    QString caFile() const override { return authorities; }
    void webRequestFinished(const WebRequestRecord &record) override { webRequests.append(record); }

private:
    template <class Value>
    static bool lookUp(const QMap<QString, Value> &map, const QString &key, Value *out)
    {
        const auto at = map.constFind(key);
        if (at == map.constEnd())
            return false;
        *out = at.value(); // a host expects that there is somewhere to write to
        return true;
    }
};

// Makes a context the module's own for as long as the scope lives.
class HostContextScope
{
public:
    explicit HostContextScope(ApplicationContext *context) : m_previous(hostContext())
    {
        setHostContext(context);
    }
    ~HostContextScope() { setHostContext(m_previous); }
    HostContextScope(const HostContextScope &) = delete;
    HostContextScope &operator=(const HostContextScope &) = delete;

private:
    ApplicationContext *m_previous;
};
