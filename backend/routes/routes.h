// The groups of services. Each adds its handlers to the list; the context outlives
// the list. What a group keeps besides the context belongs to its handlers.
#pragma once

struct BackEndContext;
class Services;

void addPassportServices(Services *services, BackEndContext &context);
void addOrganisationServices(Services *services, BackEndContext &context);
