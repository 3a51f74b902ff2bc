// Payloads made from the event catalogue, with a value of its own in every field.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QByteArray>
#include <QDataStream>

// A well-formed payload for a catalogue row. Fails the test for a type that it
// does not know.
QByteArray samplePayload(const EventInfo &info);

// Streams the value of a hub signal's parameter, given the parameter's type as
// the meta-object spells it. Fails the test for a type that it does not know.
void writeArgument(QDataStream &out, const QByteArray &type, const void *value);
