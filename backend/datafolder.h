// The folder that holds everything the back end keeps: made readable by its owner
// only, and used by one back end at a time.
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <memory>

class DataFolder
{
public:
    // Makes the folder where it is missing and locks it. False with *problem set:
    // another back end uses it, or it cannot be written.
    bool open(const QString &folder, QString *problem);
    void close();

    QString path(const QString &name) const; // of a file in it
    // A folder in it, made when missing; empty when that fails.
    QString subfolder(const QString &name) const;

    // The password of all sample users: random, made when the file is missing.
    // Empty with *problem set when it can be neither read nor written.
    QString password(QString *problem) const;
    QString passwordFile() const;

private:
    QString m_folder;
    std::unique_ptr<QLockFile> m_lock;
};

// Makes the file where it is missing and lets nobody but its owner read it.
bool touchOwnerOnly(const QString &file, QString *problem);
// Writes the file as a whole or not at all, for its owner only.
bool writeOwnerOnly(const QString &file, const QByteArray &content, QString *problem);
// From the system's generator for keys.
QByteArray randomBytes(int count);
