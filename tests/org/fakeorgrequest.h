// An organisation request that is answered when a test says so.
#pragma once

#include "http/orgrequest.h"

#include <QStringList>

class FakeOrgRequest : public OrgRequest
{
    Q_OBJECT

public:
    // Notes "kind id" in the log, which outlives it.
    FakeOrgRequest(QStringList *log, QObject *parent) : OrgRequest(parent), m_log(log) {}

    QString kind; // "children", "person", "department", "page N"
    QString id;

    void searchOrg(const QString &orgId, const QString &) override { begin("children", orgId); }
    void locateOrg(const QString &who, bool isOrg) override
    {
        begin(isOrg ? "department" : "person", who);
    }
    void fuzzySearchOrg(const QString &searchText, bool, int pageNo, int) override
    {
        begin(qPrintable(QStringLiteral("page %1").arg(pageNo)), searchText);
    }

private:
    void begin(const char *what, const QString &whose)
    {
        kind = QString::fromLatin1(what);
        id = whose;
        m_log->append(kind + QLatin1Char(' ') + id);
    }

    QStringList *m_log;
};
