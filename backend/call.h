// One request as a service sees it, and the list of services.
#pragma once

#include "backend/formbody.h"
#include "backend/reply.h"
#include "backend/session.h"

#include <QByteArray>

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

struct UploadedPart
{
    std::string name, fileName;
    QByteArray content;
    bool isCutOff = false; // larger than a service may want
};

struct Call
{
    static constexpr int MaximumPart = 8 * 1024 * 1024; // bytes of one part that are kept

    FormBody form;                   // fields of the body, or of a GET's query
    std::vector<UploadedPart> parts; // files of a multipart body
    Caller caller;
    std::string cookies; // the header

    const UploadedPart *part(const char *name) const; // null: none
    std::string cookie(const char *name) const;       // empty: none
};

class Services
{
public:
    enum Access
    {
        Open,         // for everybody
        LoggedIn,     // an unknown ticket is an illegal value, an expired one goes through
        Organisation, // a ticket that is not good leads to the log-in page
        Files,        // as LoggedIn, in the envelope of the file services
        Content       // as LoggedIn, but an unknown ticket is refused by the status
    };
    using Handler = std::function<Reply(const Call &)>;
    struct Service
    {
        Access access;
        Handler handler;
    };

    void post(const std::string &path, Access access, Handler handler);
    void get(const std::string &path, Access access, Handler handler);
    // Null: there is no such service.
    const Service *find(const std::string &method, const std::string &path) const;

private:
    std::unordered_map<std::string, Service> m_services; // by method, blank, path
};
