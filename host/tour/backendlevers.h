// The levers that the back end serves on its control port when it is asked to.
#pragma once

#include "host/backendprocess.h"

#include <QByteArray>

namespace BackendLevers {

// Sends a command, such as "rule", with its JSON. Returns when the answer is there, whether
// it was good; events are handled meanwhile.
bool pull(const BackendAddress &services, const char *command, const QByteArray &json);

} // namespace BackendLevers
