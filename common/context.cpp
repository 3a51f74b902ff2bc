#include "common/context.h"

#include "common/cserversettings.h"

namespace {
ApplicationContext *s_context = nullptr;
}

const ApplicationContext &ctx()
{
    static const ApplicationContext unknownHost;
    return s_context ? *s_context : unknownHost;
}

ApplicationContext *hostContext()
{
    return s_context;
}

void setHostContext(ApplicationContext *context)
{
    s_context = context;
}

bool isOnline()
{
    const CServerSettings *settings = ctx().serverSettings();
    return !settings || settings->connected();
}
