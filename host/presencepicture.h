// A small picture for each presence. They differ in shape, not in colour alone.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QIcon>

namespace PresencePicture {

QIcon icon(PresenceData::ePcShowType show);

} // namespace PresencePicture
