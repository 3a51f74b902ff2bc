// The members of the host records by name and type, in wire order. C++ keeps no
// names at run time, and a monitor without them would show bare values.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QStringList>
#include <QVector>

namespace RecordFields {

// The members of a record type; empty when the name is no record.
const QVector<EventCatalogue::PayloadField> &of(const QString &recordType);

QStringList recordTypes();

} // namespace RecordFields
