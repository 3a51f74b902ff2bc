// The system's browser, for pages that the client does not show itself.
#pragma once

class QUrl;

namespace SystemBrowser {

// http and https alone. False when the address is refused or no browser was started.
bool open(const QUrl &url);

} // namespace SystemBrowser
