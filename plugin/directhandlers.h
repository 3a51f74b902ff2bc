// The events that are more than one signal: those that act on a view, answer a
// question, or choose between signals. Rows of the inbound table.
//
// Those that act on a view go through paneActions(); without actions such an event
// is dropped with one line in the log.
#pragma once

class BaseEvent;

namespace DirectHandlers {

void nothing(BaseEvent &event);

// Writes the one line about an event that nobody can act on.
void drop(const BaseEvent &event);

void contactRemoved(BaseEvent &event);
void connectionChanged(BaseEvent &event);
void loginChanged(BaseEvent &event);
void allOffline(BaseEvent &event);

// Replaces the payload by one bool; always answers.
void mayAddContact(BaseEvent &event);

void openContactDetail(BaseEvent &event);
void openOwnDetail(BaseEvent &event);
void showContactCard(BaseEvent &event);
void hideContactCard(BaseEvent &event);

void hideOfflineInitialised(BaseEvent &event);
void locateContact(BaseEvent &event);
void externalContactAnswer(BaseEvent &event);
void openServiceNumber(BaseEvent &event);
void openServiceNumberSearch(BaseEvent &event);
void reloadChannels(BaseEvent &event);

// Payload: comma-separated team ids and, optionally, a JSON object with "type",
// "vtId" and "member". The types "audit" and "join" open a window, any other (and
// text that is no JSON) has the listed teams loaded again.
void virtualTeamsChanged(BaseEvent &event);

} // namespace DirectHandlers
