// The folder in which the host keeps everything that lasts.
#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

// The folder to use: `wanted`, or the platform's place for application data.
QString dataFolder(const QString &wanted);

// The uid of the user whom a data folder belongs to; empty: it is nobody's yet.
QString dataFolderUser(const QString &folder);

// Makes the folder and marks it as this host's own and the user's. False with *problem
// set when that is impossible.
bool prepareDataFolder(const QString &folder, const QString &user, QString *problem);

// One host at a time uses a folder: what it holds in memory would not be what another
// one has stored. Null with *problem set while another one does; the folder must
// exist. The lock of a process that is no more is not in the way.
std::unique_ptr<QLockFile> lockDataFolder(const QString &folder, QString *problem);

// Removes what the host and the plug-in keep in a folder that bears the mark;
// any other folder is left alone, and false comes back with *problem set. A
// folder that does not exist is already empty.
bool resetDataFolder(const QString &folder, QString *problem);
