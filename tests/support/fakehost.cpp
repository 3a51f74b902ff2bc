#include "tests/support/fakehost.h"

#include "plugin/frienduimessageprocess.h"

#include <QCoreApplication>

#include <algorithm>

FakeHost::FakeHost() : m_scope(&context)
{
    FriendUIMessageProcess::instance()->setHostReceiver(this);
}

FakeHost::~FakeHost()
{
    FriendUIMessageProcess::instance()->setHostReceiver(nullptr);
}

int FakeHost::count(qint32 code) const
{
    return int(std::count_if(requests.begin(), requests.end(),
                             [code](const Request &request) { return request.code == code; }));
}

FakeHost::Request FakeHost::last(qint32 code) const
{
    const auto at = std::find_if(requests.rbegin(), requests.rend(),
                                 [code](const Request &request) { return request.code == code; });
    if (at != requests.rend())
        return *at;
    QTest::qFail(qPrintable(QStringLiteral("no request %1 arrived").arg(code)), __FILE__, __LINE__);
    return Request();
}

BaseEvent FakeHost::sendRaw(qint32 code, const QByteArray &payload, const QString &receiver)
{
    BaseEvent event(code, payload, QStringLiteral("{host}"), receiver);
    QCoreApplication::sendEvent(FriendUIMessageProcess::instance(), &event);
    return event;
}

void FakeHost::customEvent(QEvent *event)
{
    const BaseEvent *sent = asBaseEvent(event);
    if (!sent)
        return;
    requests.append({sent->code, sent->senderId, sent->receiverId, sent->payload, sent->payloadFlag,
                     sent->postAsync});
    if (onRequest)
        onRequest(requests.last());
}
