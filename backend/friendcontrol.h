// What tests do to external contacts over the control port, and what the command line
// asks for.
#pragma once

#include <json/forwards.h>

struct BackEndContext;

// Both throw BadCommand.
void actAsFriend(const Json::Value &command, BackEndContext *context, Json::Value *answer);
void limitFriends(const Json::Value &command, BackEndContext *context);
