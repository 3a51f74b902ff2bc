// What this host does with each request of the plug-in.
#pragma once

class ExternalContacts;
class HostActions;
class HostBus;
class MessagingCore;
class PersonPictures;

struct RequestTargets
{
    MessagingCore *core;
    HostActions *actions;
    // May be null: then what it is for is not answered, or by the core alone.
    ExternalContacts *external = nullptr;
    PersonPictures *pictures = nullptr;
};

// Gives the bus a handler for every request that one of the targets can answer. None is
// owned; all outlive the bus.
void installRequestHandlers(HostBus &bus, const RequestTargets &targets);
