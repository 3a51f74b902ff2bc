// What the service's answer to a request about an external contact means: a table
// without widgets.
#pragma once

namespace ExternalRequest {

// What an answer is about, as the host numbers it.
enum Action
{
    Request = 0,      // the user has asked
    Confirmation = 1, // the user has accepted
    Blacklist = 2     // the user wants to hear no more of the person
};

enum Code
{
    Done = 0,
    OwnLimit = 10001,
    OtherLimit = 10002,
    Expired = 10003 // only of a confirmation: the request is too old
};

// Whether the failure is that the request, which the user has accepted, is too old.
bool isExpired(int action, int code);

// The translation key of any other failure's reason.
const char *failureKey(int action, int code);

} // namespace ExternalRequest
