// All records that travel between the host and the plug-in.
#pragma once

#include "hostapi/roomrecords.h"
#include "hostapi/rosterrecords.h"
#include "hostapi/servicerecords.h"
#include "hostapi/skinrecord.h"
