// What other people of the sample do to virtual teams in a tour, at the web services. The
// own user is the sample company's first.
#pragma once

#include "host/backendprocess.h"

#include <QStringList>

namespace TeamScenes {

// The own user's team, with groups in groups, sub-administrators, a post, and somebody of
// another company.
QString ownTeam();
QStringList groups(); // of it; each but the first is below the one before

// That one and a colleague's with the own user in it; nothing when there are teams already.
void makeTeams(const BackendAddress &services);
// A colleague's new team waits for the own user's approval.
void askApproval(const BackendAddress &services);
// People of another company invite the own user's.
void askToJoin(const BackendAddress &services);

} // namespace TeamScenes
