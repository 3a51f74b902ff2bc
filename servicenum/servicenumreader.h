// Service numbers as the web services tell them. Values of other kinds than expected
// read as nothing; nothing throws.
#pragma once

#include "hostapi/servicerecords.h"

#include <QList>

#include <json/value.h>

namespace ServiceNumReader {

// A record without a code is none: its code is empty.
CServiceNumData number(const Json::Value &object);

// In the order of the array; without those that have no code, and each code once.
QList<CServiceNumData> numbers(const Json::Value &array);

} // namespace ServiceNumReader
