// Parts of the tour that stand in files of their own.
#pragma once

#include "host/tour/tourstep.h"
#include "sample/samplecompany.h"

#include <QByteArray>

TourMove servicesReady();

// A lever of the back end for tests: see docs/backend.md.
TourMove leverPulled(const char *command, const QByteArray &json);

// What stands in a window: a part that is shown, by its object name.
TourMove partShown(const char *window, const char *part);
TourMove buttonPressed(const char *window, const char *button);
// A window that is shown, by its class.
TourMove windowShown(const char *window);

// The floating card of the remembered person beside the current row of a list.
TourMove cardBeside(const char *list);

// A page of the pane.
TourMove paneShows(const char *entry, const char *widget);

// The stage remembers who. In a large company everybody is a contact; then somebody
// stops being one.
TourMove strangerFound(SampleCompany::Policy policy);

// The organisation, a card from there, and adding a colleague as a contact. They
// leave a new contact behind, and the friend tree in front.
std::vector<TourStep> organisationSteps();

// Its other states; the web services run again at the end.
std::vector<TourStep> organisationStateSteps();

// Latest contacts, group chats, channels, the search; and what of them only a start
// with other data shows.
std::vector<TourStep> localSteps();
std::vector<TourStep> searchSteps(); // a part of those
std::vector<TourStep> localStateSteps();

// Virtual teams, and the friend tree in front again; what only a start without web
// services shows of them.
std::vector<TourStep> teamSteps();
std::vector<TourStep> teamStateSteps();

// Service numbers, with what only a start shows of them.
std::vector<TourStep> numberSteps();
std::vector<TourStep> numberStateSteps();

// The floating card beside rows of several lists.
std::vector<TourStep> cardSteps();

// The dialog for the own picture.
std::vector<TourStep> pictureSteps();

// External contacts: their page, the search for them, asking and answering.
std::vector<TourStep> externalSteps();
std::vector<TourStep> externalStateSteps();

// Windows of the host's own.
std::vector<TourStep> windowSteps();
