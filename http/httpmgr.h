// The front door to the web services that are single requests: makes the request
// object, starts it, and passes its answer on as a signal of its own.
#pragma once

#include "http/orgrecords.h"

#include <QObject>
#include <QPointer>

#include <functional>

class OrgRequest;
class ServiceCall;

class HttpMgr : public QObject
{
    Q_OBJECT

public:
    static HttpMgr *instance();

    using OrgRequestFactory = std::function<OrgRequest *(QObject *parent)>;
    // Set by the organisation feature; without one the requests below fail.
    void setOrgRequestFactory(const OrgRequestFactory &factory);

    // The organisation services; see OrgRequest for the answers.
    void searchOrg(const QString &orgId, const QString &companyCode);
    void locateOrg(const QString &id, bool bIsOrg);
    void fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo, int pageSize);

    // The address behind the web page of a service key, which the ticket service
    // hands out to a user who is logged in.
    void getThirdPartyRealLink(const char *key);

    // Whether messages of a room are received without notification; stored locally too
    // when the service agrees.
    void setSessionMsgConfig(const QString &roomJid, bool notHint);
    // What the service knows of all conversations takes the place of what is stored.
    // The last of several calls answers for all of them.
    void loadClientSettings();

signals:
    void signal_searchOrgElements(const OrgElementList &elements, const QString &strCompanyCode);
    void searchOrgFail(QString strSearchOrgElementId, int nStatusCode);
    void signal_searchOrgDone(const QString &strOrgId);
    void signal_locateOrgElements(const OrgElementList &elements, QString strFrdJid);
    void signal_locateOrgFail(QString strFrdJid);
    void signal_noLocate();
    void signal_searchFinished(const SearchResponseData &response, int iOrgCount,
                               const OrgElementList &departments, QString strSearchText);
    void signal_fuzzySearchFail(QString strSearchText);
    // http or https only; an empty address when it failed.
    void signal_getThirdPartyRealLinkFinish(bool bSuccess, QString strUrl);
    // key: "isNotHint".
    void signal_setSessionMsgConfigDone(bool ok, const QString &roomJid, const QString &key,
                                        const bool &notHint);
    void signal_clientSettingsLoaded(bool ok);

private:
    HttpMgr();
    OrgRequest *makeOrgRequest();

    OrgRequestFactory m_makeOrgRequest;
    int m_settingChanges = 0; // of conversations, that the service has agreed to
    QPointer<ServiceCall> m_settingsLoading;
};
