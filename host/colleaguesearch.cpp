#include "host/colleaguesearch.h"

#include "http/jsonreader.h"
#include "http/servicecall.h"

namespace {
constexpr int TypingMs = 250;
const char SearchKey[] = "/searchOrg/fuzzysearchorgurl";
} // namespace

ColleagueSearch::ColleagueSearch(const QString &companyCode, const QString &domain, QObject *parent)
    : QObject(parent), m_companyCode(companyCode), m_domain(domain)
{
    m_typing.setSingleShot(true);
    m_typing.setInterval(TypingMs);
    connect(&m_typing, &QTimer::timeout, this, &ColleagueSearch::send);
}

void ColleagueSearch::search(const QString &text)
{
    delete m_call;
    m_text = text.trimmed();
    // Who belongs to no company has no colleagues.
    if (m_text.isEmpty() || m_companyCode.isEmpty())
        m_typing.stop();
    else
        m_typing.start();
}

void ColleagueSearch::send()
{
    ServiceRequest request;
    request.key = SearchKey;
    request.fields = {{"searchText", m_text},
                      {"containOrg", QStringLiteral("0")},
                      {"pageNo", QStringLiteral("1")},
                      {"pageSize", QString::number(MaximumHits)}};
    m_call = ServiceCall::start(request, this, HERE, [this](const ServiceReply &reply) {
        m_call.clear(); // it ends by itself
        if (!reply.ok)
            return;
        const Json::Value &users = JsonReader::array(reply.data(), "userList");
        QVector<PeopleModel::Person> people;
        for (const Json::Value &user : users) {
            const QString uid = JsonReader::text(user, "userId");
            if (!uid.isEmpty() && JsonReader::text(user, "companyCode") == m_companyCode)
                people.append({uid + QLatin1Char('@') + m_domain,
                               JsonReader::text(user, "nickName", uid).simplified()});
        }
        emit found(m_text, people);
    });
}
