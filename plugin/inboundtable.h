// What every event code from the host does, as one constant table.
#pragma once

class BaseEvent;

// Handles an event that is addressed to this plug-in. A code without a row does
// nothing. Where a page of the pane is meant and there is no pane, the event is
// dropped with one line in the log: an event never makes the pane.
void handleInbound(BaseEvent &event, bool hasPane);
