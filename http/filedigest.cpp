#include "http/filedigest.h"

#include <QTimer>

FileDigest::FileDigest(QObject *parent) : QObject(parent) {}

void FileDigest::start(const QString &file)
{
    m_file.setFileName(file);
    QTimer::singleShot(0, this, [this] {
        if (m_stopped || m_file.open(QIODevice::ReadOnly))
            readOn();
        else
            emit finished(QByteArray());
    });
}

void FileDigest::stop()
{
    m_stopped = true;
}

void FileDigest::readOn()
{
    if (m_stopped)
        return;
    m_hash.addData(m_file.read(Slice));
    if (m_file.error() != QFileDevice::NoError) {
        emit finished(QByteArray());
        return;
    }
    if (m_file.atEnd()) {
        emit finished(m_hash.result().toHex());
        return;
    }
    QTimer::singleShot(0, this, &FileDigest::readOn);
}
