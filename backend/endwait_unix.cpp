#include "backend/endwait.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {
int wakeUp[2] = {-1, -1}; // a pipe: a signal handler may do little more than write

void wake(int)
{
    const int kept = errno;
    const char byte = 0;
    if (write(wakeUp[1], &byte, 1) != 1)
        _exit(1);
    errno = kept;
}
} // namespace

void prepareForEnd()
{
    if (pipe(wakeUp) != 0)
        return;
    for (const int end : wakeUp)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    struct sigaction action = {};
    action.sa_handler = wake;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

void waitForEnd(bool withStdin)
{
    pollfd waiting[] = {{wakeUp[0], POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    for (;;) {
        if (poll(waiting, withStdin ? 2 : 1, -1) < 0) {
            if (errno != EINTR)
                return;
            continue;
        }
        if (waiting[0].revents != 0)
            return;
        char skipped[256];
        if (withStdin && waiting[1].revents != 0 &&
            read(STDIN_FILENO, skipped, sizeof skipped) <= 0)
            return;
    }
}
