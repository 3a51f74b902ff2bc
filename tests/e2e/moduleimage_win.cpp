#include "tests/e2e/moduleimage.h"
#include "tests/support/files.h"

#include <windows.h>

#include <psapi.h>

#include <iterator>

namespace {
struct Image
{
    QByteArray content;
    const IMAGE_NT_HEADERS64 *headers = nullptr;

    // What the loader puts at this address.
    template <class T> const T *at(DWORD address) const
    {
        const IMAGE_SECTION_HEADER *section = IMAGE_FIRST_SECTION(headers);
        for (int i = 0; i < headers->FileHeader.NumberOfSections; ++i, ++section) {
            const DWORD offset = address - section->VirtualAddress;
            if (address >= section->VirtualAddress && offset < section->SizeOfRawData)
                return reinterpret_cast<const T *>(content.constData() + section->PointerToRawData +
                                                   offset);
        }
        return nullptr;
    }
    template <class T> const T *directory(int number) const
    {
        return at<T>(headers->OptionalHeader.DataDirectory[number].VirtualAddress);
    }
};
} // namespace

ModuleImage::ModuleImage(const QString &file)
{
    Image image{contentOf(file)};
    if (!image.content.startsWith("MZ") || image.content.size() < int(sizeof(IMAGE_DOS_HEADER)))
        return;
    const auto *start = reinterpret_cast<const IMAGE_DOS_HEADER *>(image.content.constData());
    image.headers =
        reinterpret_cast<const IMAGE_NT_HEADERS64 *>(image.content.constData() + start->e_lfanew);
    if (image.headers->OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC)
        return;
    if (const auto *exports =
            image.directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT)) {
        const auto *names = image.at<DWORD>(exports->AddressOfNames);
        for (DWORD i = 0; i < exports->NumberOfNames; ++i)
            exported.append(QString::fromLatin1(image.at<char>(names[i])));
        for (DWORD i = exports->NumberOfNames; i < exports->NumberOfFunctions; ++i)
            exported.append(QStringLiteral("without a name"));
    }
    const auto *import = image.directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
    for (; import && import->Name; ++import)
        needed.append(QString::fromLatin1(image.at<char>(import->Name)));
    exported.sort();
    isValid = true;
}

bool isLoaded(const char *library)
{
    HMODULE modules[1024];
    DWORD bytes = 0;
    K32EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &bytes);
    for (DWORD i = 0; i < bytes / sizeof(HMODULE) && i < std::size(modules); ++i) {
        char name[MAX_PATH] = "";
        K32GetModuleBaseNameA(GetCurrentProcess(), modules[i], name, sizeof name);
        if (QByteArray(name).contains(library))
            return true;
    }
    return false;
}
