#include "tests/support/peakmemory.h"

#include <sys/resource.h>

qint64 peakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}
