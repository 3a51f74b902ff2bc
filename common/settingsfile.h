// A settings file: the one place where the program makes a QSettings object.
//
// QSettings keeps every parsed file for the whole process in the encoding of its
// first reader, so that one reader without the codec would spoil the file for all
// others. It also turns values that begin with "@Variant(" or "@DateTime(" into
// objects, recursively and without limits; a file that holds one is not given to
// it at all. And it tells of lines that it cannot read only to the first who opens a
// file, and drops them with the next change.
//
// Objects are short-lived and belong to one thread. A key is "/group/name"; the
// leading slash may be missing. A value that holds ";" must stand in quotes.
#pragma once

#include "common/platform.h"

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class SettingsFile
{
public:
    enum Format
    {
        Native = 0, // the registry; nothing is read or written where there is none
        Ini = 1     // UTF-8
    };
    static constexpr qint64 MaximumSize = 4 * 1024 * 1024; // bytes; a larger file is refused

    explicit SettingsFile(const QString &path, Format format = Ini);
    ~SettingsFile();

    // False for a file that cannot be used: every value is then absent and
    // nothing is written. A missing file can.
    bool isUsable() const { return m_settings != nullptr; }
    // False also for a file with unreadable lines, which writing would drop.
    bool isWritable() const { return m_settings && !m_damaged; }

    bool contains(const QString &key) const;
    // The fallback answers for an absent key only: "key=" is an empty text. Commas
    // of a hand-written text divide it for QSettings; they are put back, without
    // the blanks behind them. A value that is no text is absent.
    QString text(const QString &key, const QString &fallback = QString()) const;
    QStringList list(const QString &key) const;
    bool flag(const QString &key) const;   // false for "", "0", "false"
    int number(const QString &key) const;  // 0 for what is no number
    double real(const QString &key) const; // 0 for what is no finite number

    // Texts, lists of texts, numbers and flags; anything else is written as its
    // text. False when nothing was set.
    bool setValue(const QString &key, const QVariant &value);
    bool remove(const QString &key);

    // Writes the changes, readable by the owner only; waits so long for another program
    // that has the file open. False, with a line in the log, when that failed.
    bool save(int patience = Platform::FilePatience); // ms

private:
    QVariant value(const QString &key) const;
    bool examine(); // false for a file that is refused
    void makeFileForOwner() const;
    void replaceFile(int patience); // ms

    const QString m_path;
    std::unique_ptr<QSettings> m_settings;
    bool m_damaged = false; // has lines that are no settings
    bool m_marked = false;  // begins with a byte order mark
};
