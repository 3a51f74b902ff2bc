// Locks of folders and files between processes.
#pragma once

#include <QLockFile>

// As QLockFile::tryLock(), but the lock of a process that is gone is never in the way.
// The toolkit goes by the number of the process alone when the program has the same
// name: the number may be another's by now.
bool tryLockFile(QLockFile *lock, int timeout = 0); // ms
