// How much memory this process has had at once.
#pragma once

#include <QtGlobal>

// The most physical memory so far, in MB; 0 when the system does not tell.
qint64 peakMemory();
