// What the window remembers from one start to the next, in host.ini of the data
// folder: language and skin, once the user has chosen them there, and whether the
// roster of an import is shown.
#pragma once

#include <QString>
#include <QVariant>

class HostPreferences
{
public:
    explicit HostPreferences(const QString &dataFolder);

    // "zh_CN" or "en", and "light" or "dark"; empty while nothing was chosen or
    // what the file says is neither.
    QString language() const;
    QString skin() const;

    bool showsImport() const; // false until an import succeeded
    // The number of the last event of the web services that was told; 0: none.
    qint64 eventsReached() const;

    // A file that cannot be written leaves a line in the log.
    void setLanguage(const QString &language) const;
    void setSkin(const QString &skin) const;
    void setShowsImport(bool shows) const;
    void setEventsReached(qint64 number) const;

private:
    QString choice(const QString &key, const char *first, const char *second) const;
    void store(const QString &key, const QVariant &value) const;

    const QString m_file;
};
