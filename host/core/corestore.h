// The embedded core's database file: opening, schema and its upgrade, damage,
// transactions. What the tables mean is up to RosterBook and RoomBook.
//
// The file can be read and written by its owner only. A damaged file is renamed
// and kept, and a new one is begun; notice() names it.
#pragma once

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>

class CoreStore
{
public:
    explicit CoreStore(const QString &fileName);
    ~CoreStore();
    CoreStore(const CoreStore &) = delete;
    CoreStore &operator=(const CoreStore &) = delete;

    // False with *problem set, a text for the user, when there is no usable file.
    bool open(QString *problem);
    QString fileName() const { return m_fileName; }
    QString notice() const { return m_notice; }

    // The statements that lead from one schema version to the next; a new file
    // takes all steps.
    static const QVector<QStringList> &schemaSteps();

    // Prepared once and kept: read it to its end, or finish() it, before it is used
    // again.
    QSqlQuery prepared(const QString &statement) const;
    // Executes and logs a failure.
    bool run(QSqlQuery *query) const;
    bool run(const QString &statement, const QVariantList &values = {}) const;
    // The first column of the first row; invalid without one.
    QVariant value(const QString &statement, const QVariantList &values = {}) const;
    // All that `work` writes, or nothing. A failure of `work` or of the file: false.
    // Inside another transaction it is a part of that one.
    bool inTransaction(const std::function<bool()> &work);

    QString meta(const QString &key) const; // empty when it was never set
    bool setMeta(const QString &key, const QString &value);
    // A number that was never handed out before under this key, from 1 on.
    qint64 nextNumber(const QString &key, qint64 atLeast = 1);

private:
    enum Outcome
    {
        Usable,
        Damaged,
        Refused
    };
    Outcome tryOpen(QString *problem);
    Outcome prepareSchema(QString *problem);
    bool upgrade(int from);
    bool setAside(QString *problem);
    void close();

    QString m_fileName, m_connection, m_notice;
    QSqlDatabase m_database;
    mutable QHash<QString, QSqlQuery> m_prepared;
    bool m_inTransaction = false;
};
