// Well-formed payloads made from the event catalogue.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QByteArray>
#include <QDataStream>
#include <QString>

// What the fields are filled with. Here values differ from field to field, so that
// two swapped fields show.
class SampleValues
{
public:
    virtual ~SampleValues() = default;
    virtual QString text();
    virtual qint32 number() { return ++m_last; } // odd: true
    virtual int size() { return 2; }             // of lists and maps

private:
    qint32 m_last = 0;
};

// A well-formed payload for a catalogue row. Fails the test for a type that it
// does not know.
QByteArray samplePayload(const EventInfo &info);
QByteArray samplePayload(const EventInfo &info, SampleValues &values);

// Streams the value of a hub signal's parameter, given the parameter's type as
// the meta-object spells it. Fails the test for a type that it does not know.
void writeArgument(QDataStream &out, const QByteArray &type, const void *value);
