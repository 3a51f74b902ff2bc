// The levers for tests on a port of their own: plain HTTP, loopback only, no log-in.
// It exists only in a back end that was asked for it.
//
//     POST /_ctl/rule     how the next requests to a path are answered
//     GET  /_ctl/log      the requests seen
//     POST /_ctl/user     change, expire or log out a user
//     POST /_ctl/company  whether its virtual teams need approval, and whose
//     POST /_ctl/team     make a team of any size
//     POST /_ctl/reset    no rules, no log, no changed users
//
// Each takes and answers JSON; docs/backend.md has the members.
#pragma once

#include <QString>

#include <memory>

struct BackEndContext;
class Levers;

class ControlServer
{
public:
    ControlServer(BackEndContext &context, Levers &levers);
    ~ControlServer();

    // False with *problem set when the port is not free. `port` 0: any free one.
    bool start(int port, QString *problem);
    void stop();
    int port() const; // -1: off

private:
    struct Private;
    std::unique_ptr<Private> d;
};
