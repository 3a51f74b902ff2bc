// Preloaded when the window is served over VNC: Qt's platform plug-in for it
// listens on every interface and has no option to change that, and the protocol
// as it speaks it asks for no password. A socket that a preloading program binds
// to "any address" is bound to the loopback address instead.
#ifndef _GNU_SOURCE
#define _GNU_SOURCE
#endif
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>

namespace {
using BindFunction = int (*)(int, const sockaddr *, socklen_t);

BindFunction nextBind()
{
    static const auto next = reinterpret_cast<BindFunction>(dlsym(RTLD_NEXT, "bind"));
    return next;
}

// "::" accepts IPv4 clients too, and so does the IPv4 loopback address written
// as an IPv6 one; "::1" would not.
constexpr unsigned char MappedLoopback[16] = {0, 0, 0,    0,    0,   0, 0, 0,
                                              0, 0, 0xff, 0xff, 127, 0, 0, 1};
} // namespace

extern "C" __attribute__((visibility("default"))) int bind(int socket, const sockaddr *address,
                                                           socklen_t length)
{
    const BindFunction next = nextBind();
    if (!next) {
        errno = ENOSYS;
        return -1;
    }
    if (address && address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in changed;
        std::memcpy(&changed, address, sizeof changed);
        if (changed.sin_addr.s_addr == htonl(INADDR_ANY))
            changed.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return next(socket, reinterpret_cast<const sockaddr *>(&changed), sizeof changed);
    }
    if (address && address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        sockaddr_in6 changed;
        std::memcpy(&changed, address, sizeof changed);
        if (IN6_IS_ADDR_UNSPECIFIED(&changed.sin6_addr))
            std::memcpy(&changed.sin6_addr, MappedLoopback, sizeof MappedLoopback);
        return next(socket, reinterpret_cast<const sockaddr *>(&changed), sizeof changed);
    }
    return next(socket, address, length);
}
