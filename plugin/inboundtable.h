// What every event code from the host does, as one constant table.
#pragma once

#include <QtGlobal>

class BaseEvent;

using InboundHandler = void (*)(BaseEvent &);

// Null for a code that the plug-in does not know.
InboundHandler inboundHandler(qint32 code);
