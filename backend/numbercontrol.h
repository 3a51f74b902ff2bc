// What tests do to service numbers over the control port.
#pragma once

#include <json/forwards.h>

struct BackEndContext;

// Both throw BadCommand.
void changeNumber(const Json::Value &command, BackEndContext *context);
void addNumbers(const Json::Value &command, BackEndContext *context);
