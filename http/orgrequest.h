// One request to the organisation services. Implemented above this layer; HttpMgr
// makes one per request and passes its signals on. Starting is called once; the
// object deletes itself when it has ended.
#pragma once

#include "http/orgrecords.h"

#include <QObject>

class OrgRequest : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void searchOrg(const QString &orgId, const QString &companyCode) = 0;
    virtual void locateOrg(const QString &id, bool bIsOrg) = 0;
    virtual void fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo,
                                int pageSize) = 0;

signals:
    // A large department arrives in several of these, in reply order.
    void signal_searchOrgElements(const OrgElementList &elements, const QString &strCompanyCode);
    void searchOrgFail(QString strSearchOrgElementId, int nStatusCode);
    // The department's children are all delivered, also when there are none.
    void signal_searchOrgDone(const QString &strOrgId);
    void signal_locateOrgElements(const OrgElementList &elements, QString strFrdJid);
    void signal_locateOrgFail(QString strFrdJid);
    void signal_noLocate();
    void signal_searchFinished(const SearchResponseData &response, int iOrgCount,
                               const OrgElementList &departments, QString strSearchText);
    void signal_fuzzySearchFail(QString strSearchText);
};
