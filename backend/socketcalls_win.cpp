#include "backend/socketcalls.h"

#include <winsock2.h>

namespace {
// As in mstcpip.h, which not every compiler has in full.
constexpr DWORD SetAckFrequency = DWORD(_WSAIOW(IOC_VENDOR, 23));
} // namespace

void SocketCalls::shutDown(int socket)
{
    ::shutdown(SOCKET(socket), SD_BOTH);
}

// Every packet, from now on; unknown to old systems.
void SocketCalls::acknowledge(int socket)
{
    int packets = 1;
    DWORD unused = 0;
    WSAIoctl(SOCKET(socket), SetAckFrequency, &packets, sizeof packets, nullptr, 0, &unused,
             nullptr, nullptr);
}
