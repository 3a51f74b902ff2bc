// A user whose service numbers a scripted server knows, and a ServiceNumbers that
// has forgotten what other tests have left.
#pragma once

#include "plugin/frienduisignalsender.h"
#include "servicenum/servicenumbers.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"

constexpr char Mine[] = "/center/isrv/myIsrv.do";
constexpr char Search[] = "/center/isrv/listIsrv.do";
constexpr char Info[] = "/center/isrv/getIsrvInfo.do";
constexpr char InfoList[] = "/center/isrv/getIsrvByCodes.do";
constexpr char Subscribe[] = "/center/isrv/subIsrv.do";
constexpr char Cancel[] = "/center/isrv/unsubIsrv.do";

// {"code":0, ...}
inline FakeReply answer(const QByteArray &members = {})
{
    return FakeReply::json("{\"code\":0" + (members.isEmpty() ? members : "," + members) + "}");
}

inline QByteArray record(const QByteArray &code, const QByteArray &more = {})
{
    return "{\"iServiceCode\":\"" + code + "\",\"name\":\"Number " + code + "\",\"icon\":\"" +
           code + ".png\",\"version\":\"1\"" + (more.isEmpty() ? more : "," + more) + "}";
}

inline QByteArray list(const QByteArrayList &records, const QByteArray &version = "1")
{
    return "\"version\":\"" + version + "\",\"data\":[" + records.join(',') + "]";
}

inline QString codesOf(const QList<CServiceNumData> &numbers)
{
    QStringList codes;
    for (const CServiceNumData &number : numbers)
        codes += number.code;
    return codes.join(QLatin1Char(' '));
}

struct NumberFixture
{
    ServiceFixture services;
    FakeServer &server = services.server;
    FriendUISignalSender *hub = FriendUISignalSender::instance();
    ServiceNumbers &numbers = ServiceNumbers::instance();

    NumberFixture()
    {
        const QByteArray center = server.url(QStringLiteral("/center/isrv/")).toEncoded();
        services.append("[servicenum]\nsubServiceNumUrl=" + center +
                        "subIsrv.do\ncancelServiceNumUrl=" + center + "unsubIsrv.do\n");
        emit hub->signal_logout();
    }
    ~NumberFixture() { emit hub->signal_logout(); }

    bool loaded(const QByteArrayList &records, const QByteArray &version = "1")
    {
        server.reply(Mine, answer(list(records, version)));
        numbers.load();
        QSignalSpy came(&numbers, &ServiceNumbers::stateChanged);
        return came.wait(TestPatience) && numbers.state() == ServiceNumbers::Ready;
    }
    QString listed() const { return codesOf(numbers.subscriptions()); }
};
