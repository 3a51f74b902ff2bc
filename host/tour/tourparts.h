// Parts of the tour that stand in files of their own.
#pragma once

#include "host/tour/tourstep.h"

// The organisation, a card from there, and adding a colleague as a contact. They
// leave a new contact behind, and the friend tree in front.
std::vector<TourStep> organisationSteps();
