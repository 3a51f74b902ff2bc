// Runs the reference back end beside the host: starts the program, reads the line
// in which it tells its address, starts it once more when it dies, and ends it
// together with the host. GUI thread only.
#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>

// Where web services are, and what is needed to use them.
struct BackendAddress
{
    QString address; // base address without a slash at its end; empty: none
    QString caFile;  // PEM; empty: the system's authorities do
    QString password;
    QString passwordFile; // where the password stands; empty: nowhere
    int controlPort = -1; // -1: off
};

class BackendProcess : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        QString program; // empty: friendui-backend beside this program
        QString dataFolder;
        int people = 300;
        quint64 seed = 1;
        int controlPort = -1;     // -1: off
        int readyTimeout = 60000; // ms from the start to the line with the address
    };

    explicit BackendProcess(const Options &options, QObject *parent = nullptr);
    // Ends the process, as stop() does.
    ~BackendProcess() override;

    // One of ready() and failed() follows, never inside this call. Does nothing
    // while the process runs; may be called again after failed().
    void start();
    // Ends the process: at most 3 seconds. No signal follows.
    void stop();

    bool isRunning() const;
    const BackendAddress &address() const { return m_address; } // once ready

    // Reads the line that the program writes when it serves. False with *problem
    // set when it does not tell a usable address.
    static bool readAddress(const QByteArray &line, BackendAddress *address, QString *problem);
    // The first line of a file with a password, without the blanks around it;
    // empty when there is none.
    static QString passwordIn(const QString &file);

signals:
    // It serves; also after it was started once more.
    void ready();
    // It died and is being started once more.
    void restarting(const QString &reason);
    // It is not there and will not come by itself.
    void failed(const QString &reason);

private:
    void launch();
    void readOutput();
    void readErrors();
    void takeLine(const QByteArray &line);
    void ended(int exitCode, QProcess::ExitStatus status);
    void giveUp(const QString &reason);
    void end(int patience);
    QString lastWords(const QString &reason) const;

    Options m_options;
    BackendAddress m_address;
    QProcess *m_process = nullptr;
    QTimer m_deadline;
    QByteArray m_output;
    QString m_lastError; // the last line that the program wrote about a problem
    bool m_serving = false;
    bool m_restarted = false;
};
