// The MD5 digest of a file, computed in slices between the events of the GUI
// thread, so that a large file does not hold up the interface.
#pragma once

#include <QCryptographicHash>
#include <QFile>
#include <QObject>

class FileDigest : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 Slice = 1024 * 1024; // bytes

    explicit FileDigest(QObject *parent = nullptr);

    // Once.
    void start(const QString &file);
    void stop(); // no finished() follows

signals:
    // Lower-case hexadecimal; empty when the file cannot be read. Not inside start().
    void finished(const QByteArray &digest);

private:
    void readOn();

    bool m_stopped = false;
    QFile m_file;
    QCryptographicHash m_hash{QCryptographicHash::Md5};
};
