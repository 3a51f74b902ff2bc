#include "common/platform.h"

#include <QFileDevice>

#include <memory>

#include <io.h>
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

namespace {
constexpr DWORD Shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr SECURITY_INFORMATION Rights =
    DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;

struct LocalFreed
{
    void operator()(void *memory) const { LocalFree(memory); }
};
using Descriptor = std::unique_ptr<void, LocalFreed>;

class Handle
{
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle()
    {
        if (isOpen())
            CloseHandle(m_handle);
    }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    operator HANDLE() const { return m_handle; }

private:
    HANDLE m_handle;
};

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

// The user whom this process runs as, as "S-1-5-...".
QString readUser()
{
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token))
        return QString();
    const Handle closed(token);
    alignas(TOKEN_USER) char buffer[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    DWORD size = 0;
    LPWSTR text = nullptr;
    if (!GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &size) ||
        !ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER *>(buffer)->User.Sid, &text))
        return QString();
    const Descriptor freed(text);
    return QString::fromWCharArray(text);
}

const QString &user()
{
    static const QString sid = readUser();
    return sid;
}

// Everything for the user, the system and the administrators, and nothing that the
// folder around it grants.
Descriptor ownersRights(bool inheritable)
{
    QString text = QStringLiteral("D:P");
    for (const QString &who : {user(), QStringLiteral("SY"), QStringLiteral("BA")})
        text += QStringLiteral("(A;%1;FA;;;%2)").arg(QLatin1String(inheritable ? "OICI" : ""), who);
    PSECURITY_DESCRIPTOR made = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(wide(text), SDDL_REVISION_1, &made,
                                                         nullptr);
    return Descriptor(made);
}

bool isOwners(const ACE_HEADER *entry)
{
    if (entry->AceType == ACCESS_DENIED_ACE_TYPE)
        return true;
    if (entry->AceType != ACCESS_ALLOWED_ACE_TYPE)
        return false;
    const auto *allowed = reinterpret_cast<const ACCESS_ALLOWED_ACE *>(entry);
    const PSID sid = const_cast<DWORD *>(&allowed->SidStart);
    for (const WELL_KNOWN_SID_TYPE known : {WinLocalSystemSid, WinBuiltinAdministratorsSid,
                                            WinCreatorOwnerSid, WinCreatorOwnerRightsSid}) {
        if (IsWellKnownSid(sid, known))
            return true;
    }
    LPWSTR text = nullptr;
    if (!ConvertSidToStringSidW(sid, &text))
        return false;
    const Descriptor freed(text);
    return QString::fromWCharArray(text) == user();
}

bool isOwners(HANDLE file)
{
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetSecurityInfo(file, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                        nullptr, &descriptor) != ERROR_SUCCESS)
        return false;
    const Descriptor freed(descriptor);
    if (!list) // Everybody may do everything.
        return false;
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void *entry = nullptr;
        if (!GetAce(list, i, &entry) || !isOwners(static_cast<const ACE_HEADER *>(entry)))
            return false;
    }
    return true;
}

bool knowsRights(HANDLE file)
{
    DWORD flags = 0;
    return !GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &flags, nullptr, 0) ||
           (flags & FILE_PERSISTENT_ACLS) != 0;
}

bool isFolder(HANDLE file)
{
    BY_HANDLE_FILE_INFORMATION about = {};
    return GetFileInformationByHandle(file, &about) &&
           (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

HANDLE open(const QString &path, DWORD access)
{
    // Without this flag no folder is opened.
    return CreateFileW(wide(path), access, Shared, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

bool restrict(const QString &path, bool folder)
{
    const Handle changed(open(path, READ_CONTROL | WRITE_DAC | FILE_READ_ATTRIBUTES));
    if (changed.isOpen()) {
        // A device keeps its rights: it may be everybody's.
        if (GetFileType(changed) != FILE_TYPE_DISK || isFolder(changed) != folder)
            return false;
        const Descriptor rights = ownersRights(folder);
        // No other function leaves alone what the folder holds.
        if (rights && SetKernelObjectSecurity(changed, Rights, rights.get()))
            return true;
    }
    const Handle kept(open(path, READ_CONTROL | FILE_READ_ATTRIBUTES));
    return kept.isOpen() && GetFileType(kept) == FILE_TYPE_DISK && isFolder(kept) == folder &&
           (isOwners(kept) || !knowsRights(kept));
}
} // namespace

bool Platform::restrictToOwner(const QString &file)
{
    return restrict(nativePath(file), false);
}

bool Platform::restrictToOwner(QFileDevice &file)
{
    // The handle was not opened for this, and a QSaveFile tells the name of its target.
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    constexpr DWORD longest = 32768; // characters, of any path
    QString path(int(longest), QLatin1Char('\0'));
    const DWORD size = GetFinalPathNameByHandleW(handle, reinterpret_cast<wchar_t *>(path.data()),
                                                 longest, FILE_NAME_NORMALIZED);
    path.truncate(size < longest ? int(size) : 0);
    return !path.isEmpty() &&restrict(path, false);
}

bool Platform::restrictFolderToOwner(const QString &folder)
{
    return restrict(nativePath(folder), true);
}

bool Platform::makeFileForOwner(const QString &file)
{
    const Descriptor rights = ownersRights(false);
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, rights.get(), FALSE};
    const Handle made(CreateFileW(wide(nativePath(file)), GENERIC_WRITE, Shared, &attributes,
                                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return made.isOpen() || restrictToOwner(file);
}

bool Platform::isOwnerOnly(const QString &path)
{
    const Handle file(open(nativePath(path), READ_CONTROL));
    return file.isOpen() && isOwners(file);
}
