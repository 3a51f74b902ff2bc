// The external contacts as the web services have them: asks for the list, has it kept by
// the messaging core, passes the user's changes on, and tells the plug-in what became of
// them. While the services do not answer, the list stays as it was said last, and every
// change fails.
#pragma once

#include "host/externalcontacts.h"
#include "hostapi/rosterrecords.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class HostBus;
class MessagingCore;
class ServiceCall;
class ServiceEvents;
struct ServiceReply;
struct ServiceRequest;
class WebServices;

class ExternalRoster : public QObject, public ExternalContacts
{
    Q_OBJECT

public:
    struct Parts
    {
        const WebServices *services;
        ServiceEvents *events;
        MessagingCore *core;
        HostBus *bus;
    };

    // None of the parts is owned; all outlive this object.
    explicit ExternalRoster(const Parts &parts, QObject *parent = nullptr);

    // Asks for the list; what differs is told by the core's signals.
    void reload();

    void requestGroups() override;
    void createGroup(const QString &name) override;
    void renameGroup(const QString &groupId, const QString &name) override;
    void deleteGroup(const QString &groupId) override;
    void moveContact(const QString &jid, const QString &oldGroupId,
                     const QString &newGroupId) override;
    void removeContact(const QString &jid) override;
    void setRemark(const QString &jid, const QString &remark) override;
    void searchPeople(const QString &key) override;
    void add(const QString &jid, const QString &validation, const QString &client) override;
    void confirm(const QString &jid, qint32 agree, const QString &client) override;
    void blacklist(const QString &jid) override;

signals:
    // One line for the status bar.
    void note(const QString &text);
    // The services have taken the user's answer to somebody's request.
    void answered(const QString &jid);
    // Of a contact, as the list says.
    void pictureKnown(const QString &jid, const QString &photoName);

private:
    // Of the answer to the plug-in.
    enum Action
    {
        Requested = 0,
        Confirmed = 1,
        Blacklisted = 2
    };
    using Done = std::function<void(const ServiceReply &)>;
    using Change = std::function<void(QList<GroupData> *, QList<FriendData> *)>;

    bool isReachable() const;
    // `done` gets a reply that is not ok while nobody can be asked.
    ServiceCall *send(const ServiceRequest &request, const Done &done);
    void takeList(const ServiceReply &reply);
    // What the user has changed, without asking for all of it again. False: nothing
    // differs from what was known.
    bool keep(const Change &change);
    void answerWith(Action action, const QString &jid, const ServiceReply &reply);
    void settle(Action action, const QString &jid, const QString &client);

    Parts m_parts;
    QPointer<ServiceCall> m_reload;
    bool m_isListWanted = false; // by the plug-in, which is told of all of it
};
