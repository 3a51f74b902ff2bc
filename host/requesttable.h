// What this host does with each request of the plug-in.
#pragma once

class HostActions;
class HostBus;
class MessagingCore;

// Gives the bus a handler for every request that the core or the user interface
// can answer. Neither is owned; both outlive the bus.
void installRequestHandlers(HostBus &bus, MessagingCore &core, HostActions &actions);
