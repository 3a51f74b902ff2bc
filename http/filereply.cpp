#include "http/filereply.h"

#include "http/jsonreader.h"

namespace {
QString failureText(const Json::Value &root)
{
    const QString message = JsonReader::text(root, "SNRetMsg");
    return message.isEmpty() ? JsonReader::text(root, "errorCode") : message;
}
} // namespace

FileReply FileReply::of(const ServiceReply &reply)
{
    FileReply result;
    result.status = reply.status;
    result.message = reply.error;
    result.result = Json::Value(Json::objectValue);
    if (!JsonReader::has(reply.root, "SNRetCode")) {
        // The centre itself refuses in the envelope of the other services.
        if (reply.code != 0)
            result.code = reply.code;
        return result;
    }
    result.code = int(JsonReader::integer(reply.root, "SNRetCode", ServiceReply::NoCode));
    result.ok = result.code == 0;
    if (!result.ok)
        result.message = failureText(reply.root);
    result.result = JsonReader::object(reply.root, "result");
    if (result.result.empty())
        result.result = JsonReader::object(reply.root, "data");
    return result;
}

HttpResponseData FileReply::response() const
{
    HttpResponseData response;
    response.ok = ok;
    response.code = code;
    response.message = message;
    return response;
}
