#include "common/platform.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <windows.h>

#include <sddl.h>

namespace {
// Values such as the user's folders are stored as "%USERPROFILE%\\Documents".
QString expanded(const QString &text)
{
    const auto *source = reinterpret_cast<const wchar_t *>(text.utf16());
    const DWORD size = ExpandEnvironmentStringsW(source, nullptr, 0);
    if (size == 0)
        return text;
    QString result(int(size), QLatin1Char('\0'));
    const DWORD written =
        ExpandEnvironmentStringsW(source, reinterpret_cast<wchar_t *>(result.data()), size);
    return written == 0 || written > size ? text : result.left(int(written) - 1);
}
} // namespace

QString Platform::registryText(const QString &key, const QString &name)
{
    const QSettings registry(key, QSettings::NativeFormat);
    return expanded(registry.value(name).toString());
}

bool Platform::restrictToOwner(const QString &file)
{
    if (!QFileInfo(file).isFile())
        return false;
    // Full access for the owner, the system and the administrators, nothing
    // inherited from the folder.
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:P(A;;FA;;;OW)(A;;FA;;;SY)(A;;FA;;;BA)", SDDL_REVISION_1, &descriptor, nullptr))
        return false;
    const QString native = QDir::toNativeSeparators(file);
    const bool done =
        SetFileSecurityW(reinterpret_cast<const wchar_t *>(native.utf16()),
                         DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                         descriptor) != 0;
    LocalFree(descriptor);
    return done;
}

QString Platform::moduleFolder()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&Platform::moduleFolder), &module);
    constexpr DWORD longest = 32768; // characters, of any path
    QString path(int(longest), QLatin1Char('\0'));
    const DWORD size =
        GetModuleFileNameW(module, reinterpret_cast<wchar_t *>(path.data()), longest);
    path.truncate(size < longest ? int(size) : 0);
    return path.isEmpty() ? path : QFileInfo(QDir::fromNativeSeparators(path)).path();
}
