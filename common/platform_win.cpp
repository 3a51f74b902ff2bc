#include "common/platform.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <windows.h>

namespace {
// What libraries take without a prefix, less the endings that they add to it.
constexpr int PlainPath = MAX_PATH - 20;

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

// Values such as the user's folders are stored as "%USERPROFILE%\\Documents".
QString expanded(const QString &text)
{
    const DWORD size = ExpandEnvironmentStringsW(wide(text), nullptr, 0);
    if (size == 0)
        return text;
    QString result(int(size), QLatin1Char('\0'));
    const DWORD written =
        ExpandEnvironmentStringsW(wide(text), reinterpret_cast<wchar_t *>(result.data()), size);
    return written == 0 || written > size ? text : result.left(int(written) - 1);
}

bool isSlash(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('\\');
}
} // namespace

bool Platform::hasRegistry()
{
    return true;
}

QString Platform::registryText(const QString &key, const QString &name)
{
    // An installer of the other word size has its part of the registry for itself.
    for (const QSettings::Format format :
         {QSettings::NativeFormat, QSettings::Registry32Format, QSettings::Registry64Format}) {
        const QString text = QSettings(key, format).value(name).toString();
        if (!text.isEmpty())
            return expanded(text);
    }
    return QString();
}

bool Platform::isNetworkPath(const QString &path)
{
    return path.size() > 2 && isSlash(path.at(0)) && isSlash(path.at(1)) && !isSlash(path.at(2));
}

QString Platform::nativePath(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    if (native.startsWith(QLatin1String("\\\\?\\")) || native.startsWith(QLatin1String("\\\\.\\")))
        return native;
    // Only the system's own form may be longer, and it is taken literally.
    const QFileInfo file(path);
    const QString whole = QDir::toNativeSeparators(QDir::cleanPath(file.absoluteFilePath()));
    if (whole.size() < PlainPath)
        return native;
    return isNetworkPath(whole) ? QLatin1String("\\\\?\\UNC") + whole.midRef(1)
                                : QLatin1String("\\\\?\\") + whole;
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

QString Platform::libraryFileName(const QString &name)
{
    return name + QLatin1String(".dll");
}

QString Platform::programFileName(const QString &name)
{
    return name + QLatin1String(".exe");
}

bool Platform::waitUntilClosed(const QString &file, int patience)
{
    constexpr DWORD Pause = 10; // ms
    const QString native = nativePath(file);
    for (int waited = 0;; waited += int(Pause)) {
        // Refused as long as anybody else has it open.
        const HANDLE opened =
            CreateFileW(wide(native), DELETE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        if (opened != INVALID_HANDLE_VALUE) {
            CloseHandle(opened);
            return true;
        }
        // A file that was deleted while it was open refuses all access.
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)
            return true;
        if (waited >= patience)
            return false;
        Sleep(Pause);
    }
}
