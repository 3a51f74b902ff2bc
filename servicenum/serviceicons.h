// The icons of service numbers as files on this computer, fetched when somebody asks
// for them. Every view hears of a new one by the hub.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

class ServiceIcons : public QObject
{
    Q_OBJECT

public:
    ServiceIcons();

    // `value`: what the number's record says of its icon, anybody's text. The default
    // icon's path until the file is there.
    QString icon(const QString &code, const QString &value);
    void forget(const QString &code); // its record names another icon now
    void clear();                     // also ends what is being fetched

signals:
    // Fetched here or stored by the host.
    void ready(const QString &code, const QString &file);

private:
    void fetched(const QString &name, const QString &file);
    void stored(const QString &code, const QString &file);

    QHash<QString, QSet<QString>> m_awaited; // codes by the icon's name
    QHash<QString, QString> m_stored;        // files by code
};
