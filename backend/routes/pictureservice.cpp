// Everybody's own picture.
#include "backend/call.h"
#include "backend/filestore.h"
#include "backend/routes/routes.h"
#include "backend/routes/rulecall.h"

namespace {
constexpr int SystemPictures = 24; // "1.png" to "24.png", which every client has

bool isSystemPicture(const QString &name)
{
    const int number = name.section(QLatin1Char('.'), 0, 0).toInt();
    return number >= 1 && number <= SystemPictures &&
           name == QString::number(number) + QLatin1String(".png");
}

Reply setPhoto(const Call &call, FileStore &store)
{
    if (!call.form.has("photoName"))
        throw IllegalField("photoName");
    const QString name = call.form.text("photoName");
    const QString uid = call.caller.uid;
    if (!name.isEmpty() && !isSystemPicture(name) && !store.isHeadOf(uid, name))
        throw IllegalField("photoName");
    store.usePhoto(uid, name);
    return done();
}
} // namespace

void addPictureServices(Services *services, const std::shared_ptr<FileStore> &store)
{
    services->post("/center/user/setPhoto.do", Services::LoggedIn,
                   [store](const Call &call) { return setPhoto(call, *store); });
}
