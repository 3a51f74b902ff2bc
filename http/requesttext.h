// Web addresses as a log or a monitor may hold them: a query can carry a ticket.
#pragma once

#include <QString>
#include <QUrl>

namespace RequestText {

// Scheme, host, port and path.
QString address(const QUrl &url);

// A message that may name addresses, such as QNetworkReply::errorString(), with
// their queries and user information taken out.
QString message(const QString &text);

} // namespace RequestText
