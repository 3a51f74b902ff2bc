// The reference back end in a process of its own, so that what it costs is not
// counted as the client's.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

class BackEndProcess
{
public:
    BackEndProcess();
    ~BackEndProcess();

    bool isServing() const { return m_address.isValid(); }
    QUrl url(const QString &path) const;
    QString caFile() const { return m_caFile; }
    // Makes every answer to a path come so much later, in ms.
    bool delay(const QString &path, int milliseconds);

private:
    bool control(const QString &command, const QByteArray &json);

    QTemporaryDir m_folder;
    QProcess m_process;
    QUrl m_address;
    int m_controlPort = 0;
    QString m_caFile;
};
