// The groups of services. Each adds its handlers to the list; the context outlives
// the list. What a group keeps besides the context belongs to its handlers.
#pragma once

#include <memory>

struct BackEndContext;
class FileStore;
class PeopleIndex;
class Services;
class Transfers;

void addPassportServices(Services *services, BackEndContext &context);
void addOrganisationServices(Services *services, BackEndContext &context);
void addPeopleSearch(Services *services, BackEndContext &context,
                     const std::shared_ptr<const PeopleIndex> &index);
void addSettingsServices(Services *services, BackEndContext &context);
void addFileServices(Services *services, const std::shared_ptr<FileStore> &store);
void addMultipartServices(Services *services, const std::shared_ptr<Transfers> &transfers);
void addMonitoringServices(Services *services);
void addTeamServices(Services *services, BackEndContext &context);
void addTeamFoundingServices(Services *services, BackEndContext &context);
void addTeamPeopleServices(Services *services, BackEndContext &context,
                           const std::shared_ptr<const PeopleIndex> &index);
void addEventServices(Services *services, BackEndContext &context);
void addCompanyServices(Services *services, BackEndContext &context);
void addFriendServices(Services *services, BackEndContext &context);
void addFriendSearch(Services *services, BackEndContext &context,
                     const std::shared_ptr<const PeopleIndex> &index);
void addPictureServices(Services *services, const std::shared_ptr<FileStore> &store);
void addServiceNumbers(Services *services, BackEndContext &context);
void addNumberHistory(Services *services, BackEndContext &context);
