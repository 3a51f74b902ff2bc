// Addresses and secrets as a log may hold them.
#pragma once

#include <QString>
#include <QUrl>

// The address as it is, except for user information, which is left out, and the
// values of query parameters that hold a ticket, token, password or the like.
QString logUrl(const QUrl &url);

// The first four characters and "***".
QString logSecret(const QString &secret);
