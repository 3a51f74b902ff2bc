#include "host/backendprocess.h"

#include "common/logging.h"
#include "common/platform.h"
#include "host/childprocess.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace {
constexpr int MaximumLine = 64 * 1024; // bytes
constexpr int EndMs = 2500;
constexpr int KillMs = 500;
constexpr int MaximumPassword = 1024;

QString defaultProgram()
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') +
           Platform::programFileName(QStringLiteral("friendui-backend"));
}
} // namespace

BackendProcess::BackendProcess(const Options &options, QObject *parent)
    : QObject(parent), m_options(options)
{
    if (m_options.program.isEmpty())
        m_options.program = defaultProgram();
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        giveUp(lastWords(
            tr("The back end did not answer within %1 s.").arg(m_options.readyTimeout / 1000.0)));
    });
}

BackendProcess::~BackendProcess()
{
    stop();
}

bool BackendProcess::isRunning() const
{
    return m_process != nullptr;
}

void BackendProcess::start()
{
    if (m_process)
        return;
    m_restarted = false;
    launch();
}

void BackendProcess::launch()
{
    m_output.clear();
    m_lastError.clear();
    m_serving = false;
    QStringList arguments{QStringLiteral("--data"),           m_options.dataFolder,
                          QStringLiteral("--people"),         QString::number(m_options.people),
                          QStringLiteral("--seed"),           QString::number(m_options.seed),
                          QStringLiteral("--port"),           QStringLiteral("0"),
                          QStringLiteral("--end-with-stdin"), QStringLiteral("--quiet")};
    if (m_options.controlPort >= 0)
        arguments += {QStringLiteral("--control-port"), QString::number(m_options.controlPort)};
    m_process = new QProcess(this);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &BackendProcess::readOutput);
    connect(m_process, &QProcess::readyReadStandardError, this, &BackendProcess::readErrors);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &BackendProcess::ended);
    // Queued: a program that is missing is told inside QProcess::start().
    connect(
        m_process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart && m_process)
                giveUp(tr("The back end %1 cannot be started: %2")
                           .arg(m_options.program, m_process->errorString()));
        },
        Qt::QueuedConnection);
    ChildProcess::startUnseen(m_process);
    m_deadline.start(m_options.readyTimeout);
    m_process->start(m_options.program, arguments);
}

void BackendProcess::readErrors()
{
    const QList<QByteArray> lines = m_process->readAllStandardError().split('\n');
    for (const QByteArray &line : lines) {
        const QString text = QString::fromUtf8(line).simplified().left(300);
        if (text.isEmpty())
            continue;
        m_lastError = text;
        LOG_ERROR("back end: " << logText(text));
    }
}

void BackendProcess::readOutput()
{
    const QByteArray bytes = m_process->readAllStandardOutput();
    if (m_serving)
        return;
    m_output += bytes;
    const int end = m_output.indexOf('\n');
    if (end >= 0)
        takeLine(m_output.left(end));
    else if (m_output.size() > MaximumLine)
        giveUp(tr("The back end writes something else than its address."));
}

void BackendProcess::takeLine(const QByteArray &line)
{
    BackendAddress address;
    QString problem;
    if (!readAddress(line, &address, &problem)) {
        giveUp(problem);
        return;
    }
    m_deadline.stop();
    m_output.clear();
    m_serving = true;
    m_address = address;
    LOG_INFO("the back end serves at " << logText(address.address));
    emit ready();
}

void BackendProcess::ended(int exitCode, QProcess::ExitStatus status)
{
    readErrors();
    readOutput(); // may be its only line, which a short-lived program wrote
    if (!m_process)
        return;
    const QString how = status == QProcess::CrashExit
                            ? tr("The back end crashed.")
                            : tr("The back end ended with code %1.").arg(exitCode);
    const QString reason = lastWords(how);
    const bool again = m_serving && !m_restarted;
    if (!again) {
        giveUp(reason);
        return;
    }
    end(0);
    m_restarted = true;
    LOG_ERROR(logText(reason) << " It is started once more.");
    emit restarting(reason);
    launch();
}

QString BackendProcess::lastWords(const QString &reason) const
{
    return m_lastError.isEmpty() ? reason : reason + QLatin1Char(' ') + m_lastError;
}

void BackendProcess::giveUp(const QString &reason)
{
    end(0);
    LOG_ERROR(logText(reason));
    emit failed(reason);
}

void BackendProcess::stop()
{
    if (m_process)
        end(EndMs);
}

// Gives the process so many milliseconds to end by itself.
void BackendProcess::end(int patience)
{
    QProcess *process = m_process;
    m_process = nullptr;
    m_deadline.stop();
    m_serving = false;
    process->disconnect(this);
    // The end of its input tells it to finish what it writes.
    process->closeWriteChannel();
    if (process->state() != QProcess::NotRunning &&
        (patience == 0 || !process->waitForFinished(patience))) {
        process->kill();
        process->waitForFinished(KillMs);
    }
    process->deleteLater();
}

bool BackendProcess::readAddress(const QByteArray &line, BackendAddress *address, QString *problem)
{
    const QJsonDocument document = QJsonDocument::fromJson(line);
    const QJsonObject told = document.object();
    const QString base = told.value(QLatin1String("address")).toString();
    const QUrl url(base, QUrl::StrictMode);
    if (!document.isObject() || !url.isValid() || url.host().isEmpty()) {
        *problem = tr("The back end writes something else than its address.");
        return false;
    }
    if (url.scheme() != QLatin1String("https")) {
        *problem = tr("The back end serves without encryption; it is not used.");
        return false;
    }
    BackendAddress result;
    result.address = base;
    while (result.address.endsWith(QLatin1Char('/')))
        result.address.chop(1);
    result.caFile = told.value(QLatin1String("caFile")).toString();
    result.controlPort = told.value(QLatin1String("controlPort")).toInt(-1);
    if (!QFileInfo(result.caFile).isFile()) {
        *problem = tr("The back end's certificate %1 is missing.").arg(result.caFile);
        return false;
    }
    result.passwordFile = told.value(QLatin1String("passwordFile")).toString();
    result.password = passwordIn(result.passwordFile);
    if (result.password.isEmpty()) {
        *problem = tr("There is no password in %1.").arg(result.passwordFile);
        return false;
    }
    *address = result;
    return true;
}

QString BackendProcess::passwordIn(const QString &file)
{
    QFile source(file);
    if (file.isEmpty() || !source.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(source.readLine(MaximumPassword)).trimmed();
}
