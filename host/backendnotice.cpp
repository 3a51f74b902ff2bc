#include "host/backendnotice.h"

#include "common/lockfile.h"
#include "common/platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace {
constexpr int LockMs = 1000; // a reader holds the lock for a moment only
constexpr int MaximumSize = 64 * 1024;

const char Process[] = "process";
const char People[] = "people";
const char Seed[] = "seed";

QString fileIn(const QString &folder)
{
    return folder + QLatin1String("/backend.json");
}

std::unique_ptr<QLockFile> lockOf(const QString &file)
{
    auto lock = std::make_unique<QLockFile>(file + QLatin1String(".lock"));
    lock->setStaleLockTime(0); // however long the host runs
    return lock;
}

// The process that holds the lock; 0: nobody.
qint64 ownerOf(const QLockFile &lock)
{
    qint64 process = 0;
    QString machine, program;
    return lock.getLockInfo(&process, &machine, &program) ? process : 0;
}
} // namespace

bool BackendNotice::publish(const QString &folder, const SharedBackend &backend, QString *problem)
{
    withdraw();
    const QString file = fileIn(folder);
    auto lock = lockOf(file);
    const QJsonObject told{
        {QStringLiteral("address"), backend.address.address},
        {QStringLiteral("caFile"), backend.address.caFile},
        {QStringLiteral("passwordFile"), backend.address.passwordFile},
        {QLatin1String(People), backend.people},
        {QLatin1String(Seed), QString::number(backend.seed)},
        {QLatin1String(Process), QCoreApplication::applicationPid()},
    };
    QSaveFile target(file);
    const QByteArray content = QJsonDocument(told).toJson(QJsonDocument::Compact) + '\n';
    if (tryLockFile(lock.get(), LockMs) && target.open(QIODevice::WriteOnly) &&
        Platform::restrictToOwner(target) && target.write(content) == content.size() &&
        Platform::waitUntilClosed(file) && target.commit()) {
        m_lock = std::move(lock);
        m_file = file;
        return true;
    }
    *problem = QCoreApplication::translate("BackendNotice",
                                           "The file %1, by which other hosts find the back "
                                           "end, cannot be written.")
                   .arg(file);
    return false;
}

void BackendNotice::withdraw()
{
    if (!m_lock)
        return;
    QFile::remove(m_file);
    m_lock.reset();
}

bool BackendNotice::read(const QString &folder, SharedBackend *backend)
{
    const QString file = fileIn(folder);
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return false;
    const QByteArray content = source.read(MaximumSize);
    source.close(); // an open file cannot be removed on Windows
    const QJsonObject told = QJsonDocument::fromJson(content).object();
    const std::unique_ptr<QLockFile> lock = lockOf(file);
    if (tryLockFile(lock.get())) {
        // Without an owner: that one was killed.
        QFile::remove(file);
        return false;
    }
    // It may be another reader who holds the lock just now.
    if (ownerOf(*lock) != qint64(told.value(QLatin1String(Process)).toDouble()))
        return false;
    QString problem;
    backend->people = told.value(QLatin1String(People)).toInt();
    backend->seed = told.value(QLatin1String(Seed)).toString().toULongLong();
    return backend->people > 0 && BackendProcess::readAddress(content, &backend->address, &problem);
}
