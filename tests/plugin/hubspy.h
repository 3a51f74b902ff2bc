// Records every emission of the signal hub, those with reference parameters
// included, which QSignalSpy cannot read.
#pragma once

#include <QByteArray>
#include <QMetaMethod>
#include <QObject>
#include <QVector>

// Has no meta-object of its own: the hub's signals are connected to slot numbers
// that qt_metacall() resolves.
class HubSpy : public QObject
{
public:
    struct Emission
    {
        QByteArray name;
        QByteArray arguments; // streamed in order
    };

    HubSpy();

    QVector<Emission> emissions;

    // The names of the signals emitted, in order.
    QList<QByteArray> names() const;
    // Returns and forgets what was recorded.
    QVector<Emission> take();

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QVector<QMetaMethod> m_signals;
};
