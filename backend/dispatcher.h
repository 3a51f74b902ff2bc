// From a request off the wire to the service that answers it: reads the body, finds
// out who calls, checks that the caller may, and turns what goes wrong into answers.
#pragma once

#include "backend/call.h"

#include <functional>
#include <string>

struct BackEndContext;
class Levers;
struct Rule;

namespace httplib {
class ContentReader;
struct Request;
struct Response;
} // namespace httplib

class Dispatcher
{
public:
    using Log = std::function<void(const std::string &line)>;

    Dispatcher(const Services &services, BackEndContext &context, Levers &levers, const Log &log);

    // `reader` is null for a request without body. False: the connection is to be
    // closed without an answer.
    bool answer(const httplib::Request &request, const httplib::ContentReader *reader,
                httplib::Response *response) const;

private:
    struct Body;
    static void readMultipart(const httplib::ContentReader &reader, Body *body);
    static void readPlain(const httplib::ContentReader &reader, Body *body);
    Caller callerOf(const httplib::Request &request, const Call &call) const;
    Caller basicCaller(const std::string &authorization) const;
    Reply replyFor(const httplib::Request &request, Body *body) const;
    Reply scripted(const Rule &rule, const httplib::Request &request, Body *body) const;
    Reply checked(const Services::Service &service, const Call &call) const;
    void record(const httplib::Request &request, const Body &body) const;

    const Services &m_services;
    BackEndContext &m_context;
    Levers &m_levers;
    Log m_log;
};
