// Lists the people outside the company who ask to become a contact among the notices; the
// plug-in has the window in which they are answered.
#pragma once

#include "host/serviceevents.h"

#include <QHash>
#include <QObject>

class ExternalRoster;
class HostBus;
class HostContext;
class MessagingCore;
class Notices;
struct Notice;

class ExternalNews : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        ServiceEvents *events;
        ExternalRoster *roster;
        MessagingCore *core;
        HostContext *context;
        HostBus *bus;
        Notices *notices;
    };

    // None of the parts is owned; all outlive this object.
    explicit ExternalNews(const Parts &parts, QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString jidOf(const FriendRequest &request) const;
    Notice noticeOf(const FriendRequest &request) const;
    void take(const FriendRequest &request);
    void list(const FriendRequest &request);
    void listAll(const QList<FriendRequest> &requests);
    void open(const QString &jid);

    Parts m_parts;
    QHash<QString, FriendRequest> m_requests; // by jid
};
