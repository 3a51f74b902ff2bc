#include "detail/cardframe.h"

#include "common/context.h"

CardBody::Buttons CardFrame::userRights()
{
    const ApplicationContext &host = ctx();
    CardBody::Buttons allowed;
    allowed.topic = host.hasRight(ApplicationContext::Topic);
    allowed.position = host.hasRight(ApplicationContext::Org);
    allowed.mail = host.hasRight(ApplicationContext::Mail);
    allowed.chat = host.hasRight(ApplicationContext::Chat);
    return allowed;
}
