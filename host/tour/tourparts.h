// Parts of the tour that stand in files of their own.
#pragma once

#include "host/tour/tourstep.h"
#include "sample/samplecompany.h"

TourMove servicesReady();

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
