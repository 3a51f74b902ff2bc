// Everything of the organisation that was loaded since the process started. Filled
// by the answers that HttpMgr passes on; nothing is ever removed.
#pragma once

#include "http/orgrecords.h"

#include <QObject>
#include <QStringList>

class OrgStructureMgr : public QObject
{
    Q_OBJECT

public:
    static OrgStructureMgr *instance();

    // Asks the service for a department's children.
    void requestChildren(const QString &orgId, const QString &companyCode);
    // Answers from the cache: true, after signal_recvOrgElementList(), when the
    // department's children are known.
    bool queryChildren(const QString &orgId);

    const OrgElementMap &elements() const { return m_elements; }
    const QStringList &rootList() const { return m_rootList; }
    QStringList childrenOf(const QString &orgId) const { return m_childrenOf.value(orgId); }
    bool isLoaded(const QString &orgId) const { return m_loaded.value(orgId); }
    // All employees at or below a department, as far as loaded, each once.
    OrgElementList employeesBelow(const QString &orgId) const;

public slots:
    void slot_recvOrgStructureElements(const OrgElementList &orgList,
                                       const QString &strCompanyCode);
    void slot_locateOrgElements(const OrgElementList &orgList, QString strFrdJid);

signals:
    void signal_upDataOrgStructure(const OrgElementMap &mapOrgElements);
    void signal_recvOrgElementList(const OrgElementList &orgList);
    void signal_locateEmp(const OrgElementMap &mapOrgElements, QString strFrdJid);
    void signal_locateOrg(QString strOrgId);

private:
    OrgStructureMgr();

    QMap<QString, QString> m_reserved;
    QStringList m_rootList; // ids
    QMap<QString, QStringList> m_childrenOf;
    OrgElementMap m_elements;
    QMap<QString, bool> m_loaded;
};
