// What a server may send before the client stops listening.
#pragma once

#include <QNetworkReply>
#include <QString>

namespace ReplyLimits {

constexpr int MaximumHeaders = 1000;
constexpr qint64 MaximumHeaderBytes = 256 * 1024;

// Call when the request has been sent, before control returns to the event loop:
// more headers than that do not even reach the reply (see http/headerguard.h).
void guard(QNetworkReply *reply);
// Why the reply is refused as far as it has arrived; empty: it may go on. `taken`
// are the bytes of its body that were read already.
QString refusal(const QNetworkReply *reply, qint64 taken, qint64 maximumBody);
// The part of it that the headers decide.
QString headerRefusal(const QNetworkReply *reply, qint64 maximumBody);

} // namespace ReplyLimits
