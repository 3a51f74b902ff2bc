#include "tests/support/peakmemory.h"

#include <windows.h>

#include <psapi.h>

qint64 peakMemory()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    if (!K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters))
        return 0;
    return qint64(counters.PeakWorkingSetSize / (1024 * 1024));
}
