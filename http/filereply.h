// The envelope of the file services, which have one of their own: "SNRetCode", "0"
// for success, "SNRetMsg", "errorCode", and the payload in "result" or "data".
#pragma once

#include "common/httpresponsedata.h"
#include "http/servicereply.h"

struct FileReply
{
    bool ok = false;
    int status = 0;                  // HTTP; 0: there was no answer
    int code = ServiceReply::NoCode; // 0 = success, NoCode: there was no envelope
    QString message;                 // the service's text for a failure, or what went wrong
    Json::Value result;              // an object, empty when there is none

    static FileReply of(const ServiceReply &reply);
    // As a transfer ends with it; names no file yet.
    HttpResponseData response() const;
};
