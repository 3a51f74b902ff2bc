// How every team service is called: in one transaction, as the logged-in user, with a
// refusal as its code.
#pragma once

#include "backend/call.h"
#include "backend/routes/rulecall.h"
#include "backend/teams/teams.h"

#include <functional>

struct BackEndContext;

using TeamHandler = std::function<Reply(const Call &call, Teams &teams)>;

// The last part of the service's path.
void addTeamReading(Services *services, BackEndContext &context, const std::string &name,
                    const TeamHandler &handler);
// What the handler does is kept, and those who wait for events are woken.
void addTeamChange(Services *services, BackEndContext &context, const std::string &name,
                   const TeamHandler &handler);
// The same for a service that is not one of the teams'. The path is complete.
void addTeamChangeAt(Services *services, BackEndContext &context, const std::string &path,
                     const TeamHandler &handler);

// Fields. Each throws IllegalField.
namespace TeamField {
qint64 team(const Call &call);
qint64 group(const Call &call, const char *name); // 0: the root, "" or "0"
// Ids with commas between; nobody twice. The field must be there.
QStringList people(const Call &call, bool mayBeEmpty = false);
} // namespace TeamField
