#include "tests/org/orgrequestfixture.h"
#include "tests/support/files.h"

void OrgRequestFixture::setUp()
{
    qRegisterMetaType<OrgElementList>("OrgElementList");
    qRegisterMetaType<SearchResponseData>("SearchResponseData");
    host = std::make_unique<FakeHost>();
    server = std::make_unique<FakeServer>();
    folder = std::make_unique<QTemporaryDir>();
    passport = std::make_unique<Passport>();
    passport->setAuthId(QStringLiteral("old"));
    host->context.programFolder = folder->path();
    host->context.passportServer = passport.get();
    writeAddresses(server->url(QStringLiteral("/org.do")).toString());
}

void OrgRequestFixture::tearDown()
{
    m_spies.clear();
    passport.reset();
    server.reset();
    host.reset();
    folder.reset();
}

void OrgRequestFixture::writeAddresses(const QString &address)
{
    QByteArray lines = "[searchOrg]\n";
    for (const char *key : {"searchorgurl", "locateorgurl", "fuzzysearchorgurl"})
        lines += key + QByteArray("=") + address.toUtf8() + "\n";
    writeFile(folder->filePath(QStringLiteral("allurl.ini")), lines);
}

HttpOrgFun *OrgRequestFixture::start(Kind kind)
{
    auto *request = new HttpOrgFun(this);
    m_spies.clear();
    const auto spy = [&](auto signal) {
        m_spies.append(std::make_shared<QSignalSpy>(request, signal));
    };
    switch (kind) {
    case Children:
        spy(&HttpOrgFun::signal_searchOrgElements);
        spy(&HttpOrgFun::searchOrgFail);
        break;
    case Locate:
        spy(&HttpOrgFun::signal_locateOrgElements);
        spy(&HttpOrgFun::signal_locateOrgFail);
        break;
    case Search:
        spy(&HttpOrgFun::signal_searchFinished);
        spy(&HttpOrgFun::signal_fuzzySearchFail);
        break;
    }
    spy(&HttpOrgFun::signal_noLocate);
    spy(&HttpOrgFun::signal_searchOrgDone);
    switch (kind) {
    case Children:
        request->searchOrg(QStringLiteral("d&1 +/"), QStringLiteral("C1"));
        break;
    case Locate:
        request->locateOrg(QStringLiteral("u1"), false);
        break;
    case Search:
        request->fuzzySearchOrg(QStringLiteral("li,a"), true, 1, 20);
        break;
    }
    return request;
}

QVector<int> OrgRequestFixture::signalCounts() const
{
    QVector<int> counts;
    for (const auto &spy : m_spies)
        counts.append(spy->count());
    return counts;
}

QByteArray OrgRequestFixture::employees(int count)
{
    QByteArray reply = "{\"org\":[],\"emp\":[";
    for (int i = 0; i < count; ++i) {
        reply += i ? ",{" : "{";
        reply += "\"userId\":\"u" + QByteArray::number(i) +
                 "\",\"nickName\":\"Person\",\"empChSpell\":\"person\",\"orgId\":\"d1\","
                 "\"duty\":\"Engineer\"}";
    }
    return reply + "]}";
}
