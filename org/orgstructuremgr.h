// Everything of the organisation that was loaded since the process started. Filled
// by the answers that HttpMgr passes on; nothing is ever removed.
#pragma once

#include "http/orgrecords.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

class OrgStructureMgr : public QObject
{
    Q_OBJECT

public:
    // The one that HttpMgr's answers go to.
    static OrgStructureMgr *instance();

    // An empty one that hears of nothing by itself.
    OrgStructureMgr();

    // Asks the service for a department's children.
    void requestChildren(const QString &orgId, const QString &companyCode);
    // Answers from the cache: true, after signal_recvOrgElementList(), when the
    // department's children are known.
    bool queryChildren(const QString &orgId);

    // Not to be copied: the next answer would have to copy all of it.
    const OrgElementMap &elements() const { return m_elements; }
    const QStringList &rootList() const { return m_rootList; }
    QStringList childrenOf(const QString &orgId) const { return m_childrenOf.value(orgId); }
    bool isLoaded(const QString &orgId) const { return m_loaded.value(orgId); }

    // News of somebody who may be in the cache; the values of PresenceData.
    void setPresence(const QString &uid, int status, int device);

public slots:
    void slot_recvOrgStructureElements(const OrgElementList &orgList,
                                       const QString &strCompanyCode);
    void slot_locateOrgElements(const OrgElementList &orgList, QString strFrdJid);

signals:
    // In this order after an answer: what it brought, then all there is. The map is
    // the cache itself.
    void signal_upDataOrgStructure(const OrgElementMap &mapOrgElements);
    void signal_recvOrgElementList(const OrgElementList &orgList);
    void signal_locateEmp(const OrgElementMap &mapOrgElements, QString strFrdJid);
    void signal_locateOrg(QString strOrgId);

private:
    void connectAnswers();
    void store(const OrgElementList &orgList, const QString &companyCode);
    // Whether the list that the element belongs to has it; it is noted as there.
    bool isInList(const OrgElement &element, const OrgElement *old, bool isTop);
    void childrenArrived(const QString &orgId);

    QMap<QString, QString> m_reserved;
    QStringList m_rootList; // ids
    QMap<QString, QStringList> m_childrenOf;
    OrgElementMap m_elements;
    QMap<QString, bool> m_loaded;

    // The lists that hold an id, by their parent's id, for the few ids that are in
    // another list than in that of their last parent; the root list has the key "".
    QHash<QString, QSet<QString>> m_listsOf;
    QString m_companyCode; // whose departments are in the root list
};
