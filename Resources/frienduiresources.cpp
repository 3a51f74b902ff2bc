#include "Resources/frienduiresources.h"

#include <QtGlobal>

void initFriendUiResources()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(friendui);
        return true;
    }();
    Q_UNUSED(registered)
}
