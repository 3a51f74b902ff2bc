#include "ExternalFriend/externalrequestrules.h"

#include <QtGlobal>

namespace ExternalRequest {

bool isExpired(int action, int code)
{
    return action == Confirmation && code == Expired;
}

const char *failureKey(int action, int code)
{
    if (action == Blacklist)
        return QT_TRANSLATE_NOOP("QObject", "blacklistFailed");
    if (code == OwnLimit)
        return QT_TRANSLATE_NOOP("QObject", "addOutsideFriendslimited");
    if (code == OtherLimit)
        return QT_TRANSLATE_NOOP("QObject", "addOutsideFriendslimited2");
    return action == Request ? QT_TRANSLATE_NOOP("QObject", "failaddfrd")
                             : QT_TRANSLATE_NOOP("QObject", "addfailreadd");
}

} // namespace ExternalRequest
