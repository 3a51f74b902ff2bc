// Loads the contacts plug-in and connects it to the host.
#pragma once

#include <QString>

class ApplicationContext;
class HostBus;
class PluginInterface;

struct LoadedPlugin
{
    PluginInterface *plugin = nullptr; // null when it could not be loaded
    QString file;                      // what was or would have been loaded
    QString problem;                   // why not; empty on success
};

// Loads `file`, hands over context and bus, and gives the bus the plug-in's event
// receiver. The module is never unloaded: texts and singletons of its may live as
// long as the process.
LoadedPlugin loadPlugin(const QString &file, ApplicationContext *context, HostBus *bus);

// Where the module lies beside the running program; the first of the usual places
// when it lies in none.
QString defaultPluginFile();
