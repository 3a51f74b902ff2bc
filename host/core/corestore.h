// The embedded core's database file: schema and its upgrade, and what is kept by
// key. What the tables mean is up to RosterBook and RoomBook.
#pragma once

#include "common/sqlitefile.h"

#include <QStringList>
#include <QVector>

class CoreStore : public SqliteFile
{
public:
    explicit CoreStore(const QString &fileName);

    // False with *problem set, a text for the user, when there is no usable file.
    bool open(QString *problem);
    // For the user, when a damaged file was set aside: where it is. Else empty.
    QString notice() const { return damageNotice(setAsideAs()); }
    static QString damageNotice(const QString &keptAs);

    // The statements that lead from one schema version to the next; a new file
    // takes all steps.
    static const QVector<QStringList> &schemaSteps();

    QString meta(const QString &key) const; // empty when it was never set
    bool setMeta(const QString &key, const QString &value);
    // A number that was never handed out before under this key, from 1 on.
    qint64 nextNumber(const QString &key, qint64 atLeast = 1);

private:
    Outcome prepareSchema(QString *problem);
    bool upgrade(int from);
};
