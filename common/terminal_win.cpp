#include "common/terminal.h"

#include <QCoreApplication>

#include <windows.h>

#include <mutex>

namespace {
struct Target
{
    HANDLE handle = nullptr; // null: there is nobody to write to
    bool isConsole = false;  // takes UTF-16, whatever its code page
};

bool isConsole(HANDLE handle)
{
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

// What was redirected stays so; a console is that of the program which started this one.
Target targetOf(DWORD number)
{
    const HANDLE given = GetStdHandle(number);
    if (given && given != INVALID_HANDLE_VALUE && GetFileType(given) != FILE_TYPE_UNKNOWN)
        return {given, isConsole(given)};
    static const bool hasConsole =
        GetConsoleWindow() != nullptr || AttachConsole(ATTACH_PARENT_PROCESS) != 0;
    if (!hasConsole)
        return {};
    const HANDLE console =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    return {console == INVALID_HANDLE_VALUE ? nullptr : console, true};
}

const Target &target(DWORD number)
{
    static const Target output = targetOf(STD_OUTPUT_HANDLE);
    static const Target error = targetOf(STD_ERROR_HANDLE);
    return number == STD_OUTPUT_HANDLE ? output : error;
}

bool write(DWORD number, const QString &text)
{
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    const Target &to = target(number);
    if (!to.handle)
        return false;
    constexpr int AtATime = 8192; // a console takes no more than some 30,000 characters
    DWORD written = 0;
    if (to.isConsole) {
        for (int at = 0; at < text.size(); at += AtATime) {
            const QString part = text.mid(at, AtATime);
            WriteConsoleW(to.handle, part.utf16(), DWORD(part.size()), &written, nullptr);
        }
        return true;
    }
    const QByteArray bytes = text.toUtf8();
    for (int at = 0; at < bytes.size(); at += int(written)) {
        const bool done = WriteFile(to.handle, bytes.constData() + at, DWORD(bytes.size() - at),
                                    &written, nullptr) != 0;
        if (!done || written == 0)
            break; // the reader has gone
    }
    return true;
}
} // namespace

void Terminal::say(const QString &text)
{
    write(STD_OUTPUT_HANDLE, text);
}

void Terminal::complain(const QString &text)
{
    write(STD_ERROR_HANDLE, text);
}

void Terminal::refuse(const QString &text, Reader reader)
{
    if (write(STD_ERROR_HANDLE, text) || reader == Nobody)
        return;
    const QString title = QCoreApplication::applicationName();
    MessageBoxW(nullptr, reinterpret_cast<const wchar_t *>(text.utf16()),
                reinterpret_cast<const wchar_t *>(title.utf16()), MB_OK | MB_ICONERROR);
}
