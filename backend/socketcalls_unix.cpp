#include "backend/socketcalls.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

void SocketCalls::shutDown(int socket)
{
    ::shutdown(socket, SHUT_RDWR);
}

void SocketCalls::acknowledge(int socket)
{
#ifdef TCP_QUICKACK
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_QUICKACK, &yes, sizeof yes);
#else
    (void)socket;
#endif
}
