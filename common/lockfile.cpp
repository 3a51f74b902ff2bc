#include "common/lockfile.h"

#include <QSysInfo>

namespace {
// On Windows the toolkit writes the name that the environment tells.
bool isThisMachine(const QString &name)
{
    return name == QSysInfo::machineHostName() || name == qEnvironmentVariable("COMPUTERNAME");
}
} // namespace

bool tryLockFile(QLockFile *lock, int timeout)
{
    if (lock->tryLock(timeout))
        return true;
    qint64 process = 0;
    QString machine, program;
    // A file that tells no owner is only just being made. One that does is held open or
    // locked as long as its owner lives, which this machine's system keeps from removal.
    return lock->error() == QLockFile::LockFailedError &&
           lock->getLockInfo(&process, &machine, &program) && isThisMachine(machine) &&
           lock->removeStaleLockFile() && lock->tryLock(0);
}
