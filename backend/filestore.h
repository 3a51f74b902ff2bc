// The uploaded files, the pictures of people, the icons of service numbers. Files have names of the
// store's own making and are never changed. All functions may be called from any thread.
#pragma once

#include <QByteArray>
#include <QString>

struct BackEndContext;

class FileStore
{
public:
    // Uses the folders "files" and "portraits" and "icons" of the context's data folder.
    explicit FileStore(BackEndContext &context);

    // Stores the content under a name such as "u000001_3.png" and returns it; empty
    // when it cannot be written. `ending` is without dot.
    QString store(const QString &uid, const QString &type, const QString &ending,
                  const QByteArray &content);
    // The same for a file that is complete on this disk; it is moved.
    QString adopt(const QString &uid, const QString &ending, const QString &file, qint64 size,
                  const QByteArray &md5);
    // Whether it is a picture that the person has uploaded as the own one.
    bool isHeadOf(const QString &uid, const QString &name);
    // From now on the person's picture, of which everybody is told when it is another
    // one; empty: there is none.
    void usePhoto(const QString &uid, const QString &name);
    // The local file of a base name; empty: there is none. A person's picture is
    // or a service number's icon is drawn when it is asked for the first time.
    QString find(const QString &name);

private:
    struct Entry
    {
        QString uid, type, ending;
        qint64 size;
        QByteArray md5;
    };
    template <typename Place> QString add(const Entry &entry, const Place &place);
    QString portrait(const QString &name);
    QString icon(const QString &name);
    void readPhotos();

    BackEndContext &m_context;
    QString m_files, m_portraits, m_icons;
};
