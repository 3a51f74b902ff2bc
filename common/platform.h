// What differs between the systems. One implementation file per system.
#pragma once

#include <QString>

namespace Platform {

// The text value `name` under a registry key such as "HKEY_CURRENT_USER\\...",
// with its %VARIABLES% replaced. Empty when there is none, and on systems
// without a registry.
QString registryText(const QString &key, const QString &name);

// Takes everybody's access but the owner's from a regular file. False when the
// path is no regular file or its permissions cannot be changed.
bool restrictToOwner(const QString &file);

// The folder that the module with this code was loaded from; the executable's where the
// code is a part of that. No slash at its end.
QString moduleFolder();

} // namespace Platform
