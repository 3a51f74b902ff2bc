// Uploads that arrive in parts. What is not completed within a day is dropped. All
// functions may be called from any thread; each works only on the caller's own
// transfers.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct BackEndContext;
class FileStore;

class Transfers
{
public:
    static constexpr qint64 LargestFile = 1024LL * 1024 * 1024; // bytes
    static constexpr int MostParts = 4096;
    static constexpr int MostOpen = 16; // transfers of one user

    // Uses the folder "parts" of the context's data folder, and drops what is old.
    Transfers(BackEndContext &context, std::shared_ptr<FileStore> store);

    // The transfer's id; empty: the user has too many.
    QString begin(const QString &uid, const QString &fileName, qint64 size, const QString &md5);
    bool isOpen(const QString &uid, const QString &id);
    // `number` from 1 to MostParts. A part that is sent again replaces the older one.
    bool addPart(const QString &uid, const QString &id, int number, const QByteArray &content);
    // Puts parts 1 to `parts` together; the name in the store, or empty when a part is
    // missing, or when the whole is not what was announced: then all parts are gone.
    QString complete(const QString &uid, const QString &id, int parts);
    bool abort(const QString &uid, const QString &id);

private:
    struct Transfer
    {
        QString fileName, md5;
        qint64 size = -1; // no such transfer
    };
    Transfer find(const QString &uid, const QString &id);
    bool claim(const QString &uid, const QString &id);
    QString folder(const QString &id) const;
    QString partFile(const QString &id, int number) const;
    qint64 sizeOfParts(const QString &id, int parts) const;
    QByteArray assemble(const QString &id, int parts, const QString &target) const;
    void dropOld();
    void dropOrphans();
    void remove(const QString &id);

    BackEndContext &m_context;
    std::shared_ptr<FileStore> m_store;
    QString m_folder;
};
