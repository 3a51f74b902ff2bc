// Where the client's files lie. All paths use "/" as separator.
//
// Paths that belong to a user are empty when the host has named no data root, or
// when the user id could lead out of it: then nothing is read or written.
#pragma once

#include "common/context.h"

#include <QString>

namespace ClientPaths {

// Every "\\" as "/", and no doubled "/" but that at the beginning of a network path.
QString normalized(const QString &path);

QString documentsFolder();
QString clientDataFolder();      // ends with "/"
QString allUsersDatabaseFile();  // absolute
QString versionFile();           // of the installed client
QString clientInformationFile(); // shared by all users of the client
QString applicationDataFolder();
QString applicationFolder();
QString serviceAddressFile();

// The installed version: from the registry where there is one, else from the
// version file; empty when neither tells it.
QString installedVersion();

// Whether the id is a single plain folder name on every system.
bool isSafeUserId(const QString &userId);

QString allUsersFile();
QString userFolder(const QString &userId = ctx().userId());
QString userSettingsFile(const QString &userId = ctx().userId());
QString localDatabaseFile(const QString &userId = ctx().userId());        // absolute
QString designedHeadImagesFolder(const QString &userId = ctx().userId()); // ends with "/"

} // namespace ClientPaths
