#include "common/lockfile.h"

#include <QSysInfo>

bool tryLockFile(QLockFile *lock, int timeout)
{
    if (lock->tryLock(timeout))
        return true;
    qint64 process = 0;
    QString machine, program;
    // A file that tells no owner is only just being made. One that does is held open or
    // locked as long as its owner lives, which this machine's system keeps from removal.
    return lock->error() == QLockFile::LockFailedError &&
           lock->getLockInfo(&process, &machine, &program) &&
           machine == QSysInfo::machineHostName() && lock->removeStaleLockFile() &&
           lock->tryLock(0);
}
