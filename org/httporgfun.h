// One request to an organisation service: sends it, again where the status calls for
// that, parses the reply, and deletes itself. A large department is read by another
// thread and handed over in slices, so that the GUI thread is never held up.
#pragma once

#include "http/orgrequest.h"

#include <memory>

class QNetworkReply;
namespace Json {
class Value;
}
namespace OrgParser {
struct SearchHits;
}

class HttpOrgFun : public OrgRequest
{
    Q_OBJECT

public:
    static constexpr int Timeout = 10000;                    // ms, of each attempt
    static constexpr int MaximumRetries = 3;                 // so four attempts in all
    static constexpr qint64 MaximumReply = 32 * 1024 * 1024; // bytes
    static constexpr qint64 ParseAsideAbove = 256 * 1024;    // bytes; parsed by a worker
    static constexpr int SliceSize = 250;                    // elements
    static constexpr int SliceTime = 5; // ms, after which other events have their turn

    explicit HttpOrgFun(QObject *parent = nullptr);
    ~HttpOrgFun() override;

    void searchOrg(const QString &orgId, const QString &companyCode) override;
    void locateOrg(const QString &id, bool bIsOrg) override;
    void fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo,
                        int pageSize) override;

    // See OrgParser.
    static bool resolveJsonGetOrg(const QByteArray &utf8, OrgElementList *elements, QString *error);
    static bool resolveJsonGetLocateOrg(const QByteArray &utf8, OrgElementList *elements,
                                        QString *error);
    static bool resolveJsonGetFuzzyRult(const QByteArray &utf8, OrgParser::SearchHits *hits,
                                        QString *error);
    static void recursiveResolveJson(Json::Value &jsonResponse, OrgElementList &orgItemList);

public slots:
    void slot_searchOrg(QNetworkReply *reply);
    void slot_locateOrg(QNetworkReply *reply);
    void slot_fuzzySearchOrg(QNetworkReply *reply);
    void slot_timeout();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
