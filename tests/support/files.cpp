#include "tests/support/files.h"

QString sourceFile(const char *path)
{
    return QStringLiteral(FRIENDUI_SOURCES "/") + QLatin1String(path);
}
