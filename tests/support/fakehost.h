// The host's side of the event bus: receives what the plug-in sends and sends it
// events.
//
//     FakeHost host;
//     host.context.user = QStringLiteral("u1");
//     host.send(Inbound::ContactAdded, QStringLiteral("u2@corp.example"));
//     const auto [jid, full] = host.arguments<QString, bool>(Outbound::RequestProfile);
#pragma once

#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "hostapi/recordstream.h"
#include "tests/support/fakecontext.h"

#include <QDataStream>
#include <QObject>
#include <QTest>
#include <QVector>

#include <functional>
#include <tuple>

// While it lives, its context is the module's and itself the plug-in's receiver.
class FakeHost : public QObject
{
    Q_OBJECT

public:
    // One event from the plug-in.
    struct Request
    {
        qint32 code = 0;
        QString sender;
        QString receiver;
        QByteArray payload;
        qint32 payloadFlag = 0;
        qint32 postAsync = 0;
    };

    FakeHost();
    ~FakeHost() override;

    FakeContext context;
    QVector<Request> requests; // in the order of arrival

    // Called for each request after it was recorded, inside the plug-in's call.
    std::function<void(const Request &)> onRequest;

    int count(qint32 code) const;
    // The newest request of a code; fails the test when there is none.
    Request last(qint32 code) const;

    // The arguments of the newest request of a code. Fails the test when there is
    // none, or when the payload is shorter or longer than these arguments.
    template <class... Args> std::tuple<Args...> arguments(qint32 code) const
    {
        return decode<Args...>(last(code).payload);
    }

    template <class... Args> static std::tuple<Args...> decode(const QByteArray &payload)
    {
        std::tuple<Args...> values{};
        QDataStream in(payload);
        std::apply([&in](auto &...value) { (in >> ... >> value); }, values);
        if (in.status() != QDataStream::Ok || !in.atEnd())
            QTest::qFail("the payload does not hold exactly these arguments", __FILE__, __LINE__);
        return values;
    }

    template <class... Args> static QByteArray encode(const Args &...args)
    {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        (void)(out << ... << args);
        return payload;
    }

    // Sends an event to the plug-in and waits for its return. The result is the
    // event as the plug-in left it.
    template <class... Args> static BaseEvent send(qint32 code, const Args &...args)
    {
        return sendRaw(code, encode(args...));
    }
    static BaseEvent sendRaw(qint32 code, const QByteArray &payload,
                             const QString &receiver = QString::fromLatin1(PluginId::FriendUi));

protected:
    void customEvent(QEvent *event) override;

private:
    HostContextScope m_scope;
};
