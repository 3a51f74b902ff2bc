#include "common/platform.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr QFile::Permissions OwnersFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions Others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
} // namespace

bool Platform::restrictToOwner(const QString &file)
{
    // A device keeps its mode: it may be everybody's.
    return QFileInfo(file).isFile() && QFile::setPermissions(file, OwnersFile);
}

bool Platform::restrictToOwner(QFileDevice &file)
{
    return file.setPermissions(OwnersFile);
}

bool Platform::restrictFolderToOwner(const QString &folder)
{
    return QFileInfo(folder).isDir() && QFile::setPermissions(folder, OwnersFile | QFile::ExeOwner);
}

bool Platform::makeFileForOwner(const QString &file)
{
    const int made = ::open(QFile::encodeName(file).constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (made >= 0)
        return ::close(made) == 0;
    return errno == EEXIST && restrictToOwner(file);
}

bool Platform::isOwnerOnly(const QString &path)
{
    return QFileInfo::exists(path) && !(QFile::permissions(path) & Others);
}
