#include "contacts/localdata.h"

#include "common/callusersinfodb.h"
#include "common/context.h"
#include "common/localdatabase.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"

#include <QApplication>

namespace {

void tellOfDamage(const QString &keptAs)
{
    TipBox::tell(QApplication::activeWindow(), QObject::tr("localDataDamaged").arg(keptAs));
}

void keepUser()
{
    static auto *users = new CAllUserInfoDB;
    const QString uid = ctx().userId();
    if (uid.isEmpty())
        return;
    const QString damaged = users->setAsideAs();
    const bool isOpen = users->open();
    if (!users->setAsideAs().isEmpty() && users->setAsideAs() != damaged)
        tellOfDamage(users->setAsideAs());
    if (!isOpen)
        return;
    VcardInfo profile;
    ctx().vcard(ctx().ownJid(), &profile);
    const QString phone = profile.mobile.isEmpty() ? profile.personalMobile : profile.mobile;
    // A number that moved to another account must not lead to the former one.
    if (!phone.isEmpty())
        users->removeOthersWithPhone(phone, uid);
    users->save(uid, ctx().companyCode(), profile.userName, phone);
}

bool connectAll()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    QObject::connect(hub, &FriendUISignalSender::signal_login, &keepUser);
    QObject::connect(&LocalDatabase::instance(), &LocalDatabase::fileSetAside, &tellOfDamage);
    return true;
}

} // namespace

void startLocalData()
{
    [[maybe_unused]] static const bool connected = connectAll();
}
