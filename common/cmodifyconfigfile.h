// Changes settings files on a thread of its own, one change after the other in
// the order of the signals:
//
//     emit CModifyConfigFile::instance().signal_changeConfigValue(
//         ClientPaths::userSettingsFile(), SettingsKeys::Language, language,
//         SettingsFile::Ini);
//
// A read right after may still see the old value. Failures end in the log.
#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

class QThread;

class CModifyConfigFile : public QObject
{
    Q_OBJECT

public:
    static CModifyConfigFile &instance(); // never destroyed; first call on the GUI thread

    CModifyConfigFile();
    ~CModifyConfigFile() override;

    // Carries out everything that was asked for before, and ends the thread; later
    // changes are lost. Happens by itself when the application is about to quit.
    // False when it took longer than three seconds: the rest is then still going on.
    // Not for the writer's own thread.
    bool finish();

signals:
    // File, key (or keys) and format: SettingsFile::Ini, or else the registry.
    void signal_changeConfigValue(const QString &file, const QString &key, QVariant value,
                                  int format);
    void signal_changeConfigValues(const QString &file, const QMap<QString, QVariant> &values,
                                   int format);
    void signal_removeConfigKey(const QString &file, const QString &key, int format);

public slots:
    void slot_changeConfigValue(const QString &file, const QString &key, QVariant value,
                                int format);
    // An entry with an empty key is left out.
    void slot_changeConfigValues(const QString &file, const QMap<QString, QVariant> &values,
                                 int format);
    void slot_removeConfigKey(const QString &file, const QString &key, int format);

private:
    QThread *m_thread;
};
