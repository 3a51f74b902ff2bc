// The browser is a module of its own beside the client's, so that nobody pays for it who
// opens no page, and the client works where it is missing.
#pragma once

#include "webview/embeddedbrowser.h"

#include <QString>

namespace BrowserModule {

// Loads the module at the first call; null when there is none that works.
MakeBrowser load();
// The module in a folder, and in no other place.
MakeBrowser loadFrom(const QString &folder);

// For tests: what load() answers from now on, until reset().
void replace(MakeBrowser maker);
void reset();

} // namespace BrowserModule
