// What the status of an organisation service's reply means. The three services
// differ: a refusal ends a request for children, means "not there" to a location,
// and is tried again by the people search.
#pragma once

enum class OrgRequestKind
{
    Children = 0,
    Locate = 1,
    Search = 2
};

enum class OrgReplyAction
{
    Parse,
    Again,        // send once more, or fail when that was done often enough
    RefreshLogin, // the log-in has expired: refresh it, then as Again
    Refused,      // fail at once
    NotThere,     // the person is not in the organisation
    SessionOver   // tell the log-in; the request ends without a word
};

// `status` is the HTTP status; 0: there was none.
OrgReplyAction orgReplyAction(OrgRequestKind kind, int status);
