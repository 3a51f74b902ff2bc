// The one place that opens SQLite files.
//
// A file can be read and written by its owner only, from its creation on. It is
// opened in WAL mode, so that one process reads while another writes, and looked
// through for damage. A damaged file is renamed and kept, with its journals, and a
// new one is begun.
//
// Not for a file that this process has open already: looking at it would take the
// other connection's locks away, as the system grants them to the process.
#pragma once

#include "common/sqliteconnection.h"

class SqliteFile : public SqliteConnection
{
public:
    enum Outcome
    {
        Usable,
        Damaged, // also another program's file: it is set aside
        Refused  // as it is, but it stays where it is
    };
    // Brings the tables of the opened file up to date. *problem is set, unless
    // the outcome is Usable.
    using Schema = std::function<Outcome(QString *problem)>;

    // How long another process is waited for; the window stands still meanwhile.
    static constexpr int BusyTimeout = 1000; // ms

    // Adds a connection of this name, and takes it away in the end; one that exists is
    // used, and stays.
    SqliteFile(const QString &fileName, const QString &connectionName);
    ~SqliteFile() override;

    // A name that no other connection of the process has.
    static QString freeConnectionName(const char *purpose);

    // False with *problem set, a text for the user, when there is no usable file.
    bool open(const Schema &schema, QString *problem);
    void close();
    QString fileName() const { return m_fileName; }
    // The name under which a damaged file was kept; empty when there was none.
    QString setAsideAs() const { return m_setAsideAs; }

private:
    bool openOrReplace(const Schema &schema, QString *problem);
    Outcome make(QString *problem);
    Outcome tryOpen(const Schema &schema, QString *problem);
    bool setAside(QString *problem);

    const QString m_fileName;
    QString m_setAsideAs;
    bool m_isOwnConnection;
};
