// The host's context, null-safe: before it is set, every accessor answers as a
// host that knows nothing.
#pragma once

#include "hostapi/applicationcontext.h"

// Never null. One per module: host and plug-in each compile this file, and each
// has its own pointer.
const ApplicationContext &ctx();

// The context as it was handed over, for calls that change the host; may be null.
ApplicationContext *hostContext();

// Null takes it away again.
void setHostContext(ApplicationContext *context);

// Whether requests can be sent at all: the connection flag of the server
// settings, true when there are none.
bool isOnline();
