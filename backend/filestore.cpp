#include "backend/filestore.h"

#include "backend/context.h"
#include "backend/eventlog.h"
#include "backend/numbers/serviceicon.h"
#include "backend/portrait.h"
#include "common/platform.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

FileStore::FileStore(BackEndContext &context)
    : m_context(context),
      m_files(context.folder.subfolder(QStringLiteral("files"))),
      m_portraits(context.folder.subfolder(QStringLiteral("portraits"))),
      m_icons(context.folder.subfolder(QStringLiteral("icons")))
{
    readPhotos();
}

void FileStore::readPhotos()
{
    Transaction transaction(m_context.database);
    Statement rows = transaction.prepare("SELECT uid, name FROM portrait");
    while (rows.next())
        m_context.people.setPhoto(rows.text(0), rows.text(1));
}

// The name carries the row's number. The row counts only when the file is in place.
template <typename Place> QString FileStore::add(const Entry &entry, const Place &place)
{
    Transaction transaction(m_context.database);
    transaction.prepare("INSERT INTO upload (uid, type, size, md5) VALUES (?, ?, ?, ?)")
        .bind(entry.uid)
        .bind(entry.type)
        .bind(entry.size)
        .bind(QString::fromLatin1(entry.md5))
        .run();
    const qint64 number = transaction.lastId();
    QString name = entry.uid + QLatin1Char('_') + QString::number(number);
    if (!entry.ending.isEmpty())
        name += QLatin1Char('.') + entry.ending;
    transaction.prepare("UPDATE upload SET name = ? WHERE number = ?")
        .bind(name)
        .bind(number)
        .run();
    if (!place(m_files + QLatin1Char('/') + name))
        return {};
    transaction.commit();
    return name;
}

QString FileStore::store(const QString &uid, const QString &type, const QString &ending,
                         const QByteArray &content)
{
    const QByteArray md5 = QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
    return add({uid, type, ending, content.size(), md5},
               [&content](const QString &file) { return writeOwnerOnly(file, content, nullptr); });
}

QString FileStore::adopt(const QString &uid, const QString &ending, const QString &file,
                         qint64 size, const QByteArray &md5)
{
    return add({uid, QStringLiteral("file"), ending, size, md5}, [&file](const QString &target) {
        QFile::remove(target);
        return Platform::waitUntilClosed(file) && QFile::rename(file, target);
    });
}

void FileStore::usePhoto(const QString &uid, const QString &name)
{
    Transaction transaction(m_context.database);
    {
        // Clients name what they have just uploaded.
        Statement row = transaction.prepare("SELECT 1 FROM portrait WHERE uid = ? AND name = ?");
        row.bind(uid).bind(name);
        if (row.next())
            return;
    }
    transaction.prepare("INSERT OR REPLACE INTO portrait (uid, name) VALUES (?, ?)")
        .bind(uid)
        .bind(name)
        .run();
    EventLog(transaction).tellEverybody(EventType::Picture, uid);
    transaction.commit();
    m_context.people.setPhoto(uid, name);
    m_context.bell.ring();
}

QString FileStore::find(const QString &name)
{
    // Only a name that the store has given becomes part of a path.
    {
        Transaction transaction(m_context.database);
        Statement row = transaction.prepare("SELECT 1 FROM upload WHERE name = ?");
        row.bind(name);
        if (row.next())
            return m_files + QLatin1Char('/') + name;
    }
    const QString file = portrait(name);
    return file.isEmpty() ? icon(name) : file;
}

QString FileStore::icon(const QString &name)
{
    const QString code = m_context.numbers.codeOfIcon(name);
    if (code.isEmpty())
        return {};
    const QString file = m_icons + QLatin1Char('/') + name;
    if (!QFileInfo::exists(file) && !writeOwnerOnly(file, drawServiceIcon(code), nullptr))
        return {};
    return file;
}

bool FileStore::isHeadOf(const QString &uid, const QString &name)
{
    Transaction transaction(m_context.database);
    Statement row =
        transaction.prepare("SELECT 1 FROM upload WHERE name = ? AND uid = ? AND type = 'head'");
    row.bind(name).bind(uid);
    return row.next();
}

QString FileStore::portrait(const QString &name)
{
    const QString ending = QStringLiteral(".png");
    const QString uid = name.chopped(qMin(name.size(), ending.size()));
    if (name != uid + ending || !m_context.people.find(uid) || !People::hasPicture(uid))
        return {};
    const QString file = m_portraits + QLatin1Char('/') + name;
    if (!QFileInfo::exists(file) && !writeOwnerOnly(file, drawPortrait(uid), nullptr))
        return {};
    return file;
}
