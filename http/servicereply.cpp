#include "http/servicereply.h"

#include "common/logging.h"
#include "http/jsonreader.h"
#include "http/requesttext.h"

#include <QNetworkReply>

#include <limits>

namespace {
constexpr int LastGoodStatus = 300;

int codeOf(const Json::Value &root)
{
    if (!JsonReader::has(root, "code"))
        return 0;
    const qint64 code = JsonReader::integer(root, "code", ServiceReply::NoCode);
    const bool fits =
        code >= std::numeric_limits<int>::min() && code <= std::numeric_limits<int>::max();
    return fits ? int(code) : ServiceReply::NoCode;
}
} // namespace

const Json::Value &ServiceReply::data() const
{
    static const Json::Value nothing(Json::objectValue);
    static const char key[] = "data";
    const Json::Value *value = root.isObject() ? root.find(key, key + sizeof key - 1) : nullptr;
    return value && !value->isNull() ? *value : nothing;
}

ServiceReply ServiceReply::decode(const QByteArray &body, int status)
{
    ServiceReply result;
    result.status = status;
    result.body = body;
    if (status <= 0 || status > LastGoodStatus) {
        result.error = QLatin1String("status ") + QString::number(status);
        return result;
    }
    result.arrived = true;
    if (!JsonReader::parse(body, &result.root, &result.error))
        return result;
    result.code = codeOf(result.root);
    result.ok = result.code == 0;
    return result;
}

ServiceReply ServiceReply::of(QNetworkReply *reply, SourceLocation caller)
{
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QByteArray body = reply->isReadable() ? reply->readAll() : QByteArray();
    const bool arrived = reply->error() == QNetworkReply::NoError && status > 0;
    if (arrived && status <= LastGoodStatus)
        return decode(body, status);

    ServiceReply result;
    result.status = status;
    result.body = body;
    result.error = RequestText::message(reply->errorString());
    LogLine(LogError, caller.file, caller.line) << "networkerror=" << logText(result.error);
    return result;
}
