#include "backend/datafolder.h"

#include "common/lockfile.h"
#include "common/platform.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <openssl/rand.h>

#include <stdexcept>

namespace {
bool makeFolder(const QString &folder)
{
    return QDir().mkpath(folder) && Platform::restrictFolderToOwner(folder);
}

QString failure(const QFileDevice &file)
{
    return file.fileName() + QStringLiteral(": ") + file.errorString();
}
} // namespace

QByteArray randomBytes(int count)
{
    QByteArray bytes(count, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char *>(bytes.data()), count) != 1)
        throw std::runtime_error("no random numbers");
    return bytes;
}

bool touchOwnerOnly(const QString &file, QString *problem)
{
    const bool isOwners = Platform::makeFileForOwner(file);
    QFile target(file);
    if (target.open(QIODevice::ReadWrite) && isOwners)
        return true;
    *problem = failure(target);
    return false;
}

bool writeOwnerOnly(const QString &file, const QByteArray &content, QString *problem)
{
    QSaveFile target(file);
    if (target.open(QIODevice::WriteOnly) && Platform::restrictToOwner(target) &&
        target.write(content) == content.size() && Platform::waitUntilClosed(file) &&
        target.commit())
        return true;
    if (problem)
        *problem = failure(target);
    return false;
}

bool DataFolder::open(const QString &folder, QString *problem)
{
    m_folder = QDir(folder).absolutePath();
    if (folder.isEmpty() || !makeFolder(m_folder)) {
        *problem = QStringLiteral("The data folder cannot be made: ") + folder;
        return false;
    }
    m_lock = std::make_unique<QLockFile>(path(QStringLiteral("lock")));
    m_lock->setStaleLockTime(0); // only a process that is gone leaves a stale lock
    if (tryLockFile(m_lock.get()))
        return true;
    *problem = m_lock->error() == QLockFile::LockFailedError
                   ? QStringLiteral("Another back end uses the data folder ")
                   : QStringLiteral("The data folder cannot be written: ");
    *problem += m_folder;
    m_lock.reset();
    return false;
}

void DataFolder::close()
{
    m_lock.reset();
}

QString DataFolder::path(const QString &name) const
{
    return m_folder + QLatin1Char('/') + name;
}

QString DataFolder::subfolder(const QString &name) const
{
    const QString folder = path(name);
    return makeFolder(folder) ? folder : QString();
}

QString DataFolder::passwordFile() const
{
    return path(QStringLiteral("password"));
}

QString DataFolder::password(QString *problem) const
{
    QFile file(passwordFile());
    if (file.open(QIODevice::ReadOnly)) {
        const QString kept = QString::fromUtf8(file.readAll()).trimmed();
        if (!kept.isEmpty()) {
            Platform::restrictToOwner(file);
            return kept;
        }
    }
    const QByteArray fresh =
        randomBytes(12).toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    if (!writeOwnerOnly(passwordFile(), fresh + '\n', problem))
        return {};
    return QString::fromLatin1(fresh);
}
