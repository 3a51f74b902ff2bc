// The groups of services. Each adds its handlers to the list; the context outlives
// the list. What a group keeps besides the context belongs to its handlers.
#pragma once

#include <memory>

struct BackEndContext;
class FileStore;
class Services;
class Transfers;

void addPassportServices(Services *services, BackEndContext &context);
void addOrganisationServices(Services *services, BackEndContext &context);
void addPeopleSearch(Services *services, BackEndContext &context);
void addSettingsServices(Services *services, BackEndContext &context);
void addFileServices(Services *services, const std::shared_ptr<FileStore> &store);
void addMultipartServices(Services *services, const std::shared_ptr<Transfers> &transfers);
void addMonitoringServices(Services *services);
