// How much of the heap is in use, in bytes.
#pragma once

#include <malloc.h>

inline double heapInUse()
{
    const auto info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}
