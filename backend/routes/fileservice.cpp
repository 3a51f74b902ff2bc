// Files in one form, and everybody's pictures.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/filestore.h"
#include "backend/picturecheck.h"
#include "backend/routes/routes.h"

#include <QCryptographicHash>

#include <json/value.h>

namespace {
constexpr int LargestFile = 5 * 1024 * 1024; // bytes

Reply refuse(const char *reason)
{
    return Reply::fileError("E01", reason);
}

Reply upload(const Call &call, FileStore &store)
{
    const QString type = call.form.required("type");
    const QString md5 = call.form.required("md5");
    const UploadedPart *file = call.part("file");
    if (!file || file->content.isEmpty())
        return refuse("no file");
    if (file->isCutOff || file->content.size() > LargestFile)
        return refuse("too large");
    const QByteArray digest =
        QCryptographicHash::hash(file->content, QCryptographicHash::Md5).toHex();
    if (md5.toLower() != QLatin1String(digest))
        return refuse("md5 differs");
    if (type != QLatin1String("head"))
        return refuse("unknown type");
    const QString ending = pictureEnding(file->content);
    if (ending.isEmpty())
        return refuse("not a picture");
    const QString name = store.store(call.caller.uid, type, ending, file->content);
    if (name.isEmpty())
        return Reply::fileError("E03", "cannot be stored");
    store.usePhoto(call.caller.uid, name);
    Json::Value result(Json::objectValue);
    result["fileName"] = name.toStdString();
    return Reply::fileResult(result);
}

const char *contentType(const QString &name)
{
    static constexpr const char *types[][2] = {{".png", "image/png"},
                                               {".jpg", "image/jpeg"},
                                               {".gif", "image/gif"},
                                               {".bmp", "image/bmp"}};
    for (const auto &[ending, type] : types) {
        if (name.endsWith(QLatin1String(ending)))
            return type;
    }
    return "application/octet-stream";
}

Reply download(const Call &call, FileStore &store)
{
    QString name;
    try {
        name = call.form.text("name");
    } catch (const IllegalField &) {
        return Reply::ofStatus(404);
    }
    const QString file = store.find(name);
    if (file.isEmpty())
        return Reply::ofStatus(404);
    return Reply::ofFile(file, contentType(name)).with("X-Content-Type-Options", "nosniff");
}

} // namespace

void addFileServices(Services *services, const std::shared_ptr<FileStore> &store)
{
    services->post("/center/im/uploadFile.do", Services::Files,
                   [store](const Call &call) { return upload(call, *store); });
    services->get("/center/im/downloadFile.do", Services::Content,
                  [store](const Call &call) { return download(call, *store); });
}
