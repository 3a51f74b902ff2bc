// What differs between the systems. One implementation file per system, and one more
// for the rights to files. For any thread.
#pragma once

#include <QString>

class QFileDevice;

namespace Platform {

// Whether there is a registry; without one, it has no texts.
bool hasRegistry();

// The text value `name` under a registry key such as "HKEY_CURRENT_USER\\...", with its
// %VARIABLES% replaced; that of 32-bit programs where 64-bit ones have none. Empty when
// there is none at all.
QString registryText(const QString &key, const QString &name);

// Whether the path begins with the name of a server, as "\\\\server\\share" does; false
// on systems where other computers' folders have ordinary paths.
bool isNetworkPath(const QString &path);

// A path for libraries that open files by themselves: also a very long one can be
// opened. To be given as UTF-8. Toolkit functions need it for no path.
QString nativePath(const QString &path);

// The folder that the module with this code was loaded from; the executable's where the
// code is a part of that. No slash at its end.
QString moduleFolder();

// The file name of a module or a program, as "libFriendUI.so" or "friendui-host.exe".
QString libraryFileName(const QString &name);
QString programFileName(const QString &name);

// Takes everybody's access but the owner's from a regular file. True for a file on a
// volume that knows no rights, or that is the owner's alone although its rights cannot be
// changed. False when the path is no regular file or others keep their rights.
bool restrictToOwner(const QString &file);
// The same for an open file, also for a QSaveFile before its commit().
bool restrictToOwner(QFileDevice &file);
// The same for a folder, and for what is made in it from then on.
bool restrictFolderToOwner(const QString &folder);

// Makes an empty file that was never anybody's but the owner's; restricts one that is
// there. False when there is no such file in the end. The folder must exist.
bool makeFileForOwner(const QString &file);

// Whether nobody but its owner, and who administers the system, has access to a file or
// a folder.
bool isOwnerOnly(const QString &path);

// Where a file that is open anywhere can be neither renamed nor replaced nor deleted,
// waits for it to be closed; a virus scanner holds files for a moment. False: it is still
// open. A missing file is not. Elsewhere true at once. The caller must have closed it.
constexpr int FilePatience = 200; // ms
bool waitUntilClosed(const QString &file, int patience = FilePatience);

} // namespace Platform
