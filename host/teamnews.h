// Brings what happens to the user's virtual teams from the web services to the plug-in,
// and lists what waits for a decision of the user among the notices.
#pragma once

#include "host/serviceevents.h"

#include <QHash>
#include <QObject>
#include <QTimer>

class HostBus;
class MessagingCore;
class Notices;
struct Notice;
class WebLog;
struct WebRequestRecord;

class TeamNews : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        ServiceEvents *events;
        MessagingCore *core;
        HostBus *bus;
        WebLog *webLog;
        Notices *notices;
    };

    // None of the parts is owned; all outlive this object.
    explicit TeamNews(const Parts &parts, QObject *parent = nullptr);

signals:
    // One line for the status bar.
    void note(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString nameOf(const QString &uid) const;
    void list(const TeamRequest &request);
    void listAll(const QList<TeamRequest> &requests);
    void open(const QString &id);
    Notice noticeOf(const TeamRequest &request) const;
    void tell(const TeamDecision &decision);
    void watch(const WebRequestRecord &record);

    Parts m_parts;
    QHash<QString, TeamRequest> m_requests; // by the id of their notice
    QTimer m_refresh;
};
