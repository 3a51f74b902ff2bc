#include "tests/support/ownhome.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <windows.h>

namespace {
const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

// The part of the registry that stands for the user's own.
QString registryPart()
{
    return QStringLiteral("Software\\FriendUI tests %1").arg(QCoreApplication::applicationPid());
}

void setFolder(const wchar_t *name, const QString &folder)
{
    const QString native = QDir::toNativeSeparators(folder);
    QDir().mkpath(folder);
    RegSetKeyValueW(HKEY_CURRENT_USER,
                    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                    name, REG_SZ, wide(native), DWORD((native.size() + 1) * int(sizeof(wchar_t))));
}
} // namespace

OwnHome::OwnHome(const QString &folder) : m_folder(QDir(folder).canonicalPath())
{
    // What the programs that the tests start go by.
    qputenv("HOME", m_folder.toUtf8());
    qputenv("USERPROFILE", QDir::toNativeSeparators(m_folder).toUtf8());
    HKEY part = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, wide(registryPart()), 0, nullptr, 0, KEY_ALL_ACCESS,
                        nullptr, &part, nullptr) != ERROR_SUCCESS)
        return;
    if (RegOverridePredefKey(HKEY_CURRENT_USER, part) == ERROR_SUCCESS) {
        setFolder(L"Desktop", m_folder + QLatin1String("/Desktop"));
        setFolder(L"Personal", m_folder + QLatin1String("/Documents"));
        setFolder(L"AppData", m_folder + QLatin1String("/AppData/Roaming"));
        setFolder(L"Local AppData", m_folder + QLatin1String("/AppData/Local"));
        // Downloads
        setFolder(L"{374DE290-123F-4565-9164-39C4925E467B}",
                  m_folder + QLatin1String("/Downloads"));
    }
    RegCloseKey(part);
}

OwnHome::~OwnHome()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(registryPart()));
}

bool OwnHome::isInForce() const
{
    for (const auto where :
         {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
          QStandardPaths::AppDataLocation, QStandardPaths::AppLocalDataLocation}) {
        const QString folder = QDir(QStandardPaths::writableLocation(where)).absolutePath();
        if (!folder.startsWith(m_folder + QLatin1Char('/'), Qt::CaseInsensitive))
            return false;
    }
    return true;
}
