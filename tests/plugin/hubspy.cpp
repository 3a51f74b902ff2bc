#include "tests/plugin/hubspy.h"

#include "plugin/frienduisignalsender.h"
#include "tests/plugin/samplepayload.h"

#include <utility>

HubSpy::HubSpy()
{
    const QMetaObject &hub = FriendUISignalSender::staticMetaObject;
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int i = hub.methodOffset(); i < hub.methodCount(); ++i) {
        const QMetaMethod method = hub.method(i);
        // The shorter forms of a signal are clones; they fire with the full one.
        if (method.methodType() != QMetaMethod::Signal ||
            (method.attributes() & QMetaMethod::Cloned))
            continue;
        QMetaObject::connect(FriendUISignalSender::instance(), i, this,
                             firstSlot + m_signals.size(), Qt::DirectConnection, nullptr);
        m_signals.append(method);
    }
}

QList<QByteArray> HubSpy::names() const
{
    QList<QByteArray> list;
    for (const Emission &emission : emissions)
        list.append(emission.name);
    return list;
}

QVector<HubSpy::Emission> HubSpy::take()
{
    return std::exchange(emissions, {});
}

int HubSpy::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const QMetaMethod &method = m_signals.at(id);
    Emission emission{method.name(), {}};
    QDataStream out(&emission.arguments, QIODevice::WriteOnly);
    const QList<QByteArray> types = method.parameterTypes();
    for (int i = 0; i < types.size(); ++i)
        writeArgument(out, types.at(i), arguments[i + 1]);
    emissions.append(emission);
    return -1;
}
