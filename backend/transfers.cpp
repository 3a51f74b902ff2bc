#include "backend/transfers.h"

#include "backend/context.h"
#include "backend/filestore.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
constexpr qint64 Life = 24 * 3600;    // s
constexpr qint64 Piece = 1024 * 1024; // bytes copied at a time

// Of the original name, for the new one: letters and digits only.
QString endingOf(const QString &fileName)
{
    const QString ending = QFileInfo(fileName).suffix().toLower().left(8);
    for (const QChar c : ending) {
        if (c.unicode() > 0x7f || !c.isLetterOrNumber())
            return {};
    }
    return ending;
}
} // namespace

Transfers::Transfers(BackEndContext &context, std::shared_ptr<FileStore> store)
    : m_context(context),
      m_store(std::move(store)),
      m_folder(context.folder.subfolder(QStringLiteral("parts")))
{
    dropOld();
    dropOrphans();
}

QString Transfers::folder(const QString &id) const
{
    return m_folder + QLatin1Char('/') + id;
}

QString Transfers::partFile(const QString &id, int number) const
{
    return folder(id) + QLatin1Char('/') + QString::number(number);
}

void Transfers::remove(const QString &id)
{
    QDir(folder(id)).removeRecursively();
}

void Transfers::dropOld()
{
    const qint64 limit = QDateTime::currentSecsSinceEpoch() - Life;
    QStringList old;
    {
        Transaction transaction(m_context.database);
        {
            Statement rows = transaction.prepare("SELECT id FROM transfer WHERE begun < ?");
            rows.bind(limit);
            while (rows.next())
                old.append(rows.text(0));
        }
        transaction.prepare("DELETE FROM transfer WHERE begun < ?").bind(limit).run();
        transaction.commit();
    }
    for (const QString &id : qAsConst(old))
        remove(id);
}

// What an end in the middle of things left behind.
void Transfers::dropOrphans()
{
    Transaction transaction(m_context.database);
    const QStringList kept = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &id : kept) {
        Statement row = transaction.prepare("SELECT 1 FROM transfer WHERE id = ?");
        if (!row.bind(id).next())
            remove(id);
    }
}

QString Transfers::begin(const QString &uid, const QString &fileName, qint64 size,
                         const QString &md5)
{
    dropOld();
    const QString id = QString::fromLatin1(randomBytes(16).toHex());
    Transaction transaction(m_context.database);
    Statement open = transaction.prepare("SELECT count(*) FROM transfer WHERE uid = ?");
    if (open.bind(uid).next() && open.number(0) >= MostOpen)
        return {};
    if (!QDir(m_folder).mkdir(id))
        return {};
    transaction
        .prepare("INSERT INTO transfer (id, uid, fileName, size, md5, begun)"
                 " VALUES (?, ?, ?, ?, ?, ?)")
        .bind(id)
        .bind(uid)
        .bind(fileName)
        .bind(size)
        .bind(md5.toLower())
        .bind(QDateTime::currentSecsSinceEpoch())
        .run();
    transaction.commit();
    return id;
}

Transfers::Transfer Transfers::find(const QString &uid, const QString &id)
{
    Transaction transaction(m_context.database);
    Statement row =
        transaction.prepare("SELECT fileName, md5, size FROM transfer WHERE id = ? AND uid = ?");
    if (!row.bind(id).bind(uid).next())
        return {};
    return {row.text(0), row.text(1), row.number(2)};
}

bool Transfers::isOpen(const QString &uid, const QString &id)
{
    return find(uid, id).size >= 0;
}

qint64 Transfers::sizeOfParts(const QString &id, int parts) const
{
    qint64 size = 0;
    for (int number = 1; number <= parts; ++number) {
        const QFileInfo part(partFile(id, number));
        if (!part.exists())
            return -1;
        size += part.size();
    }
    return size;
}

bool Transfers::addPart(const QString &uid, const QString &id, int number,
                        const QByteArray &content)
{
    const Transfer transfer = find(uid, id);
    if (transfer.size < 0)
        return false;
    qint64 total = content.size();
    const QFileInfoList others = QDir(folder(id)).entryInfoList(QDir::Files);
    for (const QFileInfo &other : others) {
        if (other.fileName() != QString::number(number))
            total += other.size();
    }
    if (total > transfer.size)
        return false;
    return writeOwnerOnly(partFile(id, number), content, nullptr);
}

// Only one of several requests for the same transfer gets it.
bool Transfers::claim(const QString &uid, const QString &id)
{
    Transaction transaction(m_context.database);
    transaction.prepare("DELETE FROM transfer WHERE id = ? AND uid = ?").bind(id).bind(uid).run();
    const bool isClaimed = transaction.changes() == 1;
    transaction.commit();
    return isClaimed;
}

// The digest of the whole; empty when it cannot be written.
QByteArray Transfers::assemble(const QString &id, int parts, const QString &target) const
{
    QCryptographicHash digest(QCryptographicHash::Md5);
    QFile whole(target);
    QString problem;
    if (!touchOwnerOnly(target, &problem) || !whole.open(QIODevice::WriteOnly))
        return {};
    for (int number = 1; number <= parts; ++number) {
        QFile part(partFile(id, number));
        if (!part.open(QIODevice::ReadOnly))
            return {};
        while (!part.atEnd()) {
            const QByteArray piece = part.read(Piece);
            digest.addData(piece);
            if (piece.isEmpty() || whole.write(piece) != piece.size())
                return {};
        }
    }
    return whole.flush() ? digest.result().toHex() : QByteArray();
}

QString Transfers::complete(const QString &uid, const QString &id, int parts)
{
    const Transfer transfer = find(uid, id);
    const qint64 size = transfer.size < 0 ? -1 : sizeOfParts(id, parts);
    if (size < 0 || !claim(uid, id))
        return {};
    const QString whole = folder(id) + QStringLiteral("/whole");
    QString name;
    if (size == transfer.size) {
        const QByteArray md5 = assemble(id, parts, whole);
        if (transfer.md5 == QLatin1String(md5))
            name = m_store->adopt(uid, endingOf(transfer.fileName), whole, size, md5);
    }
    remove(id);
    return name;
}

bool Transfers::abort(const QString &uid, const QString &id)
{
    if (!claim(uid, id))
        return false;
    remove(id);
    return true;
}
