// What the module does with local data when a user logs in, and what the user is told
// of it.
#pragma once

// Keeps the user who logs in in the machine's list of users, and tells of damaged
// files that were set aside. A second call changes nothing.
void startLocalData();
