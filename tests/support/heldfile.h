// A file that another program has open and shares with nobody, as long as the object lives.
// There is no such thing but on Windows.
#pragma once

#include <QDir>

#include <windows.h>

class HeldFile
{
public:
    explicit HeldFile(const QString &file)
        : m_handle(
              CreateFileW(reinterpret_cast<const wchar_t *>(QDir::toNativeSeparators(file).utf16()),
                          GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    ~HeldFile() { release(); }
    HeldFile(const HeldFile &) = delete;
    HeldFile &operator=(const HeldFile &) = delete;

    bool isHeld() const { return m_handle != INVALID_HANDLE_VALUE; }
    void release()
    {
        if (isHeld())
            CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE m_handle;
};
