// The host's answers to what the plug-in asks at any time: identity, folders,
// roster, rooms, skin, rights. A host overrides what it has; every function has
// a default that means "unknown". New functions are appended, never inserted.
// All calls are made on the GUI thread. A changed answer is announced by an
// event; the plug-in does not poll.
#pragma once

#include "hostapi/hostrecords.h"
#include "hostapi/webrequestrecord.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

class CLogThread;
class CPassportLoginServer;
class CServerSettings;
class LogFileWriter;

class ApplicationContext
{
public:
    enum Right
    {
        Org,
        OrgWatermark,
        DetailWatermark,
        Chat,
        Mail,
        SendFile,
        Detail,
        History,
        AddContact,
        CreateMuc,
        LocateSelf,
        Topic,
        VirtualTeam,
        Customer,
        External,
        ServiceNo,
        Latest,
        GroupChat
    };

    virtual ~ApplicationContext();

    // Log; owned by the host and alive until the process ends.
    virtual LogFileWriter *logWriter() const;
    virtual CLogThread *logThread() const;

    // Who is logged in. An empty user id means nobody yet.
    virtual QString userId() const;
    virtual QString serverDomain() const;
    virtual QString companyCode() const;
    // Fills *out, which is never null, and returns true when the profile is known;
    // so do the others that fill something. The own jid yields the own profile.
    virtual bool vcard(const QString &jid, VcardInfo *out) const;

    // Folders and databases.
    virtual QString userBaseFolder() const; // "/"-separated, no slash at its end
    virtual QSqlDatabase userDatabase() const;
    virtual void setAllUsersDatabase(const QSqlDatabase &database);
    virtual CPassportLoginServer *passport() const;
    virtual CServerSettings *serverSettings() const;

    // Roster.
    virtual QList<GroupData> groups(bool inner) const;
    virtual QList<FriendData> friends() const;
    virtual bool friendData(const QString &jid, FriendData *out) const;
    virtual PresenceData presence(const QString &jid) const;
    virtual bool cooperates(const QString &jid, bool *value) const;

    // Rooms and conversations.
    virtual bool mucData(const QString &jid, MucData *out) const;
    virtual int mucRole(const QString &jid) const; // 0 member, 1 manager, 2 owner
    virtual bool isSessionTop(const QString &jid) const;
    virtual int sessionNotify(const QString &jid) const; // 0 notify, 1 silent
    virtual bool isTransferring(const QString &jid) const;

    // Pictures, skin, rights.
    virtual QString headPath(const QString &jidOrPhoto) const; // local file, or empty
    virtual SysUIData skin() const;
    virtual bool hasRight(int right) const; // a Right; default true
    virtual int contactLimit() const;       // 0 = unlimited
    virtual QString productTeamJid() const;

    // Web services.
    // Of the user who is logged in, for services that take basic authorisation;
    // empty: none is sent. Never written to a log or a file.
    virtual QString password() const;
    // Where the service address file lies; empty: the folder of the executable.
    virtual QString applicationFolder() const;
    // PEM file with certificate authorities to trust besides the system's own;
    // empty: only those.
    virtual QString caFile() const;
    // Called after each web request of the module, also a failed one.
    virtual void webRequestFinished(const WebRequestRecord &record);

    // In the place of the user's documents folder, below which the client keeps what
    // all its users share; empty: the platform's.
    virtual QString documentsFolder() const;

    QString ownJid() const;     // userId@serverDomain; empty while nobody is logged in
    QString userFolder() const; // userBaseFolder/userId; empty when either is
};
