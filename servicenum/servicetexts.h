// What is said of a service number in lists and windows.
#pragma once

#include "hostapi/servicerecords.h"

#include <QString>

namespace ServiceTexts {

// Both are display texts. Without a name the code stands for it.
QString name(const CServiceNumData &number);
QString line(const CServiceNumData &number); // the beginning of the description

QString toolTip(const CServiceNumData &number);
// What a screen reader says of a row.
QString spoken(const CServiceNumData &number, bool isSubscribed, bool isBusy);

// Why a subscription was refused, by the result text; a translation key.
const char *refusalKey(const QString &errorText);

} // namespace ServiceTexts
