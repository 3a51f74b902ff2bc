// Files in parts.
#include "backend/call.h"
#include "backend/datafolder.h"
#include "backend/routes/routes.h"
#include "backend/transfers.h"

#include <QCryptographicHash>

#include <json/value.h>

namespace {
using TransfersPtr = std::shared_ptr<Transfers>;
using Member = std::pair<const char *, Json::Value>;

Reply refuse(const char *reason)
{
    return Reply::fileError("E01", reason);
}

Reply result(const Member &member)
{
    Json::Value value(Json::objectValue);
    value[member.first] = member.second;
    return Reply::fileResult(value);
}

Reply begin(const Call &call, Transfers &transfers)
{
    const QString fileName = call.form.required("fileName");
    const qint64 size = call.form.number("fileSize", 1, Transfers::LargestFile);
    const QString md5 = call.form.required("md5");
    const QString id = transfers.begin(call.caller.uid, fileName, size, md5);
    if (id.isEmpty())
        return Reply::fileError("E04", "too many unfinished uploads");
    return result({"objectId", id.toStdString()});
}

Reply addPart(const Call &call, Transfers &transfers)
{
    const QString id = call.form.required("objectId");
    const int number = int(call.form.number("partNumber", 1, Transfers::MostParts));
    const QString md5 = call.form.required("md5");
    const UploadedPart *file = call.part("file");
    if (!file || file->content.isEmpty() || file->isCutOff)
        return refuse("no file, or a part that is too large");
    const QByteArray digest =
        QCryptographicHash::hash(file->content, QCryptographicHash::Md5).toHex();
    if (md5.toLower() != QLatin1String(digest))
        return refuse("md5 differs");
    if (!transfers.addPart(call.caller.uid, id, number, file->content))
        return refuse("unknown upload, or too large for it");
    return result({"partNumber", number});
}

Reply complete(const Call &call, Transfers &transfers)
{
    const QString id = call.form.required("objectId");
    const int parts = int(call.form.number("parts", 1, Transfers::MostParts));
    const QString name = transfers.complete(call.caller.uid, id, parts);
    if (name.isEmpty())
        return refuse("not complete, or not as announced");
    return result({"fileName", name.toStdString()});
}

Reply abort(const Call &call, Transfers &transfers)
{
    if (!transfers.abort(call.caller.uid, call.form.required("objectId")))
        return refuse("unknown upload");
    return Reply::fileResult(Json::Value(Json::objectValue));
}

Reply renewToken(const Call &call, Transfers &transfers)
{
    if (!transfers.isOpen(call.caller.uid, call.form.required("objectId")))
        return refuse("unknown upload");
    return result({"token", randomBytes(16).toHex().toStdString()});
}

} // namespace

void addMultipartServices(Services *services, const TransfersPtr &transfers)
{
    using Operation = Reply (*)(const Call &, Transfers &);
    const std::pair<const char *, Operation> operations[] = {
        {"/center/im/getObjectId.do", begin},
        {"/center/im/uploadMultipart.do", addPart},
        {"/center/im/uploadMultipartComplete.do", complete},
        {"/center/im/uploadMultipartAbort.do", abort},
        {"/center/im/updateUploadMultipartAuth.do", renewToken},
    };
    for (const auto &[path, operation] : operations) {
        services->post(path, Services::Files, [transfers, operation = operation](const Call &call) {
            return operation(call, *transfers);
        });
    }
}
