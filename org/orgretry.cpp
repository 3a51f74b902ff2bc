#include "org/orgretry.h"

namespace {

OrgReplyAction forChildren(int status)
{
    switch (status) {
    case 401:
    case 403:
        return OrgReplyAction::Refused;
    default:
        return OrgReplyAction::Again;
    }
}

OrgReplyAction forLocation(int status)
{
    switch (status) {
    case 204:
    case 401:
    case 403:
        return OrgReplyAction::NotThere;
    default:
        return OrgReplyAction::Again;
    }
}

} // namespace

OrgReplyAction orgReplyAction(OrgRequestKind kind, int status)
{
    switch (status) {
    case 200:
        return OrgReplyAction::Parse;
    case 302:
        return OrgReplyAction::RefreshLogin;
    case 480:
        return OrgReplyAction::SessionOver;
    default:
        break;
    }
    switch (kind) {
    case OrgRequestKind::Children:
        return forChildren(status);
    case OrgRequestKind::Locate:
        return forLocation(status);
    case OrgRequestKind::Search:
        break;
    }
    return OrgReplyAction::Again;
}
