// The pictures compiled into the module, below ":/FriendUI/".
#pragma once

// Makes the pictures available. Nothing is registered before the first call,
// so that loading the module costs nothing; further calls do nothing.
void initFriendUiResources();
