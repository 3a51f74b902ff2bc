// The pictures of the people whom the user knows: takes the news that somebody has another
// one, has the file fetched, and tells the plug-in. The user's own one goes through here to
// the web services.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QHash>
#include <QObject>
#include <QSet>

class ExternalRoster;
class HostBus;
class MessagingCore;
class ServiceEvents;
class WebServices;

class PersonPictures : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        const WebServices *services;
        ServiceEvents *events;
        ExternalRoster *roster;
        MessagingCore *core;
        HostBus *bus;
    };

    // None of the parts is owned; all outlive this object.
    explicit PersonPictures(const Parts &parts, QObject *parent = nullptr);

    // First tells the services of another picture; a profile with one that they refuse is
    // not stored.
    void storeOwnProfile(const VcardInfo &profile);

signals:
    // One line for the status bar.
    void note(const QString &text);

private:
    void refusePicture();
    void take(const QString &jid, const QString &photoName);
    void show(const QString &jid, const QString &photoName, const QString &file);
    void fetched(const QString &photoName, const QString &file);

    Parts m_parts;
    QHash<QString, QSet<QString>> m_fetching; // jids by the name of the picture
};
