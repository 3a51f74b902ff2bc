// What is done to a connection's socket beside the TLS library.
#pragma once

namespace SocketCalls {

// The other side sees it closed; who reads or writes it here fails.
void shutDown(int socket);
// Acknowledges what has arrived at once, where the system can.
void acknowledge(int socket);

} // namespace SocketCalls
