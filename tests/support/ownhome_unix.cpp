#include "tests/support/ownhome.h"

#include <QDir>
#include <QFile>

OwnHome::OwnHome(const QString &folder) : m_folder(folder)
{
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, QFile::encodeName(folder));
}

OwnHome::~OwnHome() = default;

bool OwnHome::isInForce() const
{
    return QDir::homePath() == m_folder;
}
