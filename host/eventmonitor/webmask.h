// Takes secrets out of what the monitor shows of web requests. The module promises
// addresses without them; the monitor does not rely on it, and error texts of the
// network quote whole addresses.
#pragma once

#include <QString>

namespace WebMask {

// Without user name, password and fragment, the query as "?…"; at most 1,000
// characters.
QString address(const QString &address);

// A free text: the addresses in it masked as above, and the values of what is
// named like a secret ("password=...", "Cookie: ..."). One line, at most 500
// characters.
QString text(const QString &text);

} // namespace WebMask
