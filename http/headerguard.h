// Cuts the headers of a reply before the toolkit takes them in: it looks each one up
// among all that came before, on the GUI thread, which a server with 200,000 of them
// would stop for minutes. Our own limits come too late for that.
//
// Rests on private headers of the toolkit. Without them, or where the toolkit at run
// time is another than the one of the build, nothing is cut.
#pragma once

class QNetworkReply;

namespace HeaderGuard {

// Whether replies can be guarded here.
bool isAvailable();

// Call before control returns to the event loop. At most `maximum` headers and one
// more are let through.
void watch(QNetworkReply *reply, int maximum);

// Whether the reply had more than that.
bool hasCut(const QNetworkReply *reply);

} // namespace HeaderGuard
