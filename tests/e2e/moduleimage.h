// What a built module says of itself to the system's loader, read from the file itself.
#pragma once

#include <QStringList>

struct ModuleImage
{
    explicit ModuleImage(const QString &file);

    bool isValid = false; // false: no module of this system
    QStringList exported; // in order
    QStringList needed;   // libraries
};

// Whether this process has loaded a library with these words in its name.
bool isLoaded(const char *library);
