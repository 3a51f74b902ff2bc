#include "host/backendnotice.h"

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
    if (lock->tryLock(LockMs) && target.open(QIODevice::WriteOnly) &&
        target.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
        target.write(content) == content.size() && target.commit()) {
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
    // Who gets the lock has found it without an owner.
    if (lockOf(file)->tryLock(0))
        return false;
    QString problem;
    const QJsonObject told = QJsonDocument::fromJson(content).object();
    backend->people = told.value(QLatin1String(People)).toInt();
    backend->seed = told.value(QLatin1String(Seed)).toString().toULongLong();
    return backend->people > 0 && BackendProcess::readAddress(content, &backend->address, &problem);
}
