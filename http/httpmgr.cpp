#include "http/httpmgr.h"

#include "common/logging.h"
#include "http/orgrequest.h"
#include "http/reallinkrequest.h"
#include "http/serviceaddresses.h"

#include <QTimer>

HttpMgr *HttpMgr::instance()
{
    static auto *manager = new HttpMgr;
    return manager;
}

HttpMgr::HttpMgr() = default;

void HttpMgr::setOrgRequestFactory(const OrgRequestFactory &factory)
{
    m_makeOrgRequest = factory;
}

OrgRequest *HttpMgr::makeOrgRequest()
{
    OrgRequest *request = m_makeOrgRequest ? m_makeOrgRequest(this) : nullptr;
    if (!request) {
        LOG_ERROR("there is nothing that asks the organisation services");
        return nullptr;
    }
    connect(request, &OrgRequest::signal_searchOrgElements, this,
            &HttpMgr::signal_searchOrgElements);
    connect(request, &OrgRequest::searchOrgFail, this, &HttpMgr::searchOrgFail);
    connect(request, &OrgRequest::signal_searchOrgDone, this, &HttpMgr::signal_searchOrgDone);
    connect(request, &OrgRequest::signal_locateOrgElements, this,
            &HttpMgr::signal_locateOrgElements);
    connect(request, &OrgRequest::signal_locateOrgFail, this, &HttpMgr::signal_locateOrgFail);
    connect(request, &OrgRequest::signal_noLocate, this, &HttpMgr::signal_noLocate);
    connect(request, &OrgRequest::signal_searchFinished, this, &HttpMgr::signal_searchFinished);
    connect(request, &OrgRequest::signal_fuzzySearchFail, this, &HttpMgr::signal_fuzzySearchFail);
    return request;
}

void HttpMgr::searchOrg(const QString &orgId, const QString &companyCode)
{
    LOG_SCOPE("HttpMgr::searchOrg(const QString &orgId, const QString &companyCode)");
    if (OrgRequest *request = makeOrgRequest())
        request->searchOrg(orgId, companyCode);
    else
        QTimer::singleShot(0, this, [this, orgId] { emit searchOrgFail(orgId, 0); });
}

void HttpMgr::locateOrg(const QString &id, bool bIsOrg)
{
    LOG_SCOPE("HttpMgr::locateOrg(const QString &id, bool bIsOrg)");
    if (OrgRequest *request = makeOrgRequest())
        request->locateOrg(id, bIsOrg);
    else
        QTimer::singleShot(0, this, [this, id] { emit signal_locateOrgFail(id); });
}

void HttpMgr::fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo, int pageSize)
{
    LOG_SCOPE("HttpMgr::fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo, "
              "int pageSize)");
    if (OrgRequest *request = makeOrgRequest())
        request->fuzzySearchOrg(searchText, containOrg, pageNo, pageSize);
    else
        QTimer::singleShot(0, this,
                           [this, searchText] { emit signal_fuzzySearchFail(searchText); });
}

void HttpMgr::getThirdPartyRealLink(const char *key)
{
    LOG_SCOPE("HttpMgr::getThirdPartyRealLink(const char *key)");
    auto *request = new RealLinkRequest(this);
    connect(request, &RealLinkRequest::signal_finished, this, [this](const QString &link) {
        emit signal_getThirdPartyRealLinkFinish(!link.isEmpty(), link);
    });
    request->start(ServiceAddresses::address(key));
}
