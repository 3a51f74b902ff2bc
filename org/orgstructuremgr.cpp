#include "org/orgstructuremgr.h"

#include "http/httpmgr.h"
#include "org/httporgfun.h"

OrgStructureMgr *OrgStructureMgr::instance()
{
    static auto *const manager = [] {
        auto *made = new OrgStructureMgr;
        made->connectAnswers();
        return made;
    }();
    return manager;
}

OrgStructureMgr::OrgStructureMgr()
{
    qRegisterMetaType<OrgElementList>("OrgElementList");
    qRegisterMetaType<OrgElementMap>("OrgElementMap");
}

void OrgStructureMgr::connectAnswers()
{
    HttpMgr *requests = HttpMgr::instance();
    requests->setOrgRequestFactory([](QObject *parent) { return new HttpOrgFun(parent); });
    connect(requests, &HttpMgr::signal_searchOrgElements, this,
            &OrgStructureMgr::slot_recvOrgStructureElements);
    connect(requests, &HttpMgr::signal_locateOrgElements, this,
            &OrgStructureMgr::slot_locateOrgElements);
    connect(requests, &HttpMgr::signal_searchOrgDone, this, &OrgStructureMgr::childrenArrived);
}

void OrgStructureMgr::requestChildren(const QString &orgId, const QString &companyCode)
{
    HttpMgr::instance()->searchOrg(orgId, companyCode);
}

bool OrgStructureMgr::queryChildren(const QString &orgId)
{
    const auto known = m_childrenOf.constFind(orgId);
    if (known == m_childrenOf.constEnd() || !isLoaded(orgId))
        return false;
    QStringList ids = *known;
    if (orgId == m_companyCode)
        ids = m_rootList + ids;
    OrgElementList children;
    QSet<QString> seen;
    for (const QString &id : qAsConst(ids)) {
        if (orgId == m_companyCode && seen.contains(id))
            continue;
        if (orgId == m_companyCode)
            seen.insert(id);
        children.append(m_elements.value(id));
    }
    emit signal_recvOrgElementList(children);
    return true;
}

void OrgStructureMgr::setPresence(const QString &uid, int status, int device)
{
    const auto known = m_elements.find(uid);
    if (known == m_elements.end())
        return;
    known->nStatus = status;
    known->nDevice = device;
}

// --- Answers -------------------------------------------------------------------

void OrgStructureMgr::slot_recvOrgStructureElements(const OrgElementList &orgList,
                                                    const QString &strCompanyCode)
{
    if (!strCompanyCode.isEmpty())
        m_companyCode = strCompanyCode;
    store(orgList, strCompanyCode);
    emit signal_recvOrgElementList(orgList);
    emit signal_upDataOrgStructure(m_elements);
}

void OrgStructureMgr::slot_locateOrgElements(const OrgElementList &orgList, QString strFrdJid)
{
    store(orgList, QString());
    emit signal_locateEmp(m_elements, strFrdJid);
}

// A department without children is loaded too.
void OrgStructureMgr::childrenArrived(const QString &orgId)
{
    m_loaded[orgId] = true;
    m_childrenOf[orgId];
}

void OrgStructureMgr::store(const OrgElementList &orgList, const QString &companyCode)
{
    // Usually all have the same parent.
    auto siblings = m_childrenOf.end();
    for (const OrgElement &element : orgList) {
        const QString &parentId = element.strParentId;
        if (element.strId == parentId)
            continue;
        const bool isTop = parentId.isEmpty() || parentId == companyCode;
        if (!isTop && (siblings == m_childrenOf.end() || siblings.key() != parentId)) {
            siblings = m_childrenOf.find(parentId);
            if (siblings == m_childrenOf.end())
                siblings = m_childrenOf.insert(parentId, QStringList());
            m_loaded[parentId] = true;
        }
        auto known = m_elements.lowerBound(element.strId);
        const bool isNew = known == m_elements.end() || known.key() != element.strId;
        if (!isInList(element, isNew ? nullptr : &*known, isTop))
            (isTop ? m_rootList : *siblings).append(element.strId);
        if (isNew)
            known = m_elements.insert(known, element.strId, element);
        else
            *known = element;
        if (!isTop) // one text for all children
            known->strParentId = siblings.key();
    }
}

// An id is appended to a list once. Looking for it there would take as long as the
// list: where an element stands follows from the parent it had, except for the few
// that are noted.
bool OrgStructureMgr::isInList(const OrgElement &element, const OrgElement *old, bool isTop)
{
    const QString list = isTop ? QString() : element.strParentId;
    if (!old) {
        if (isTop)
            m_listsOf.insert(element.strId, {list});
        return false;
    }
    const auto noted = m_listsOf.find(element.strId);
    if (noted != m_listsOf.end()) {
        const bool isThere = noted->contains(list);
        noted->insert(list);
        return isThere;
    }
    if (!isTop && old->strParentId == list)
        return true;
    m_listsOf.insert(element.strId, {old->strParentId, list});
    return false;
}
