// Somebody at the web services besides the host's own user: what others do to teams, in a
// tour or a test, is done by one of these.
#pragma once

#include "host/backendprocess.h"

#include <QNetworkAccessManager>
#include <QPair>
#include <QString>
#include <QVector>

#include <json/value.h>

class ServiceUser
{
public:
    using Fields = QVector<QPair<const char *, QString>>;

    static constexpr int AnswerMs = 10000;

    // Logs in. The calls return when the answer is there; events are handled meanwhile.
    ServiceUser(const BackendAddress &services, const QString &uid);

    // "data" of the answer; null when the service refused or did not answer.
    Json::Value call(const QString &path, const Fields &fields = {});
    // One of the services of virtual teams, by its name.
    Json::Value team(const char *service, const Fields &fields = {});
    int code() const { return m_code; } // of the last answer; -1: there was none

private:
    const BackendAddress m_services;
    QNetworkAccessManager m_manager; // with the cookies of the log-in
    int m_code = -1;
};
