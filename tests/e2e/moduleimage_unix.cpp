#include "tests/e2e/moduleimage.h"
#include "tests/support/files.h"

#include <QFile>

#include <elf.h>

ModuleImage::ModuleImage(const QString &file)
{
    const QByteArray content = contentOf(file);
    const char *bytes = content.constData();
    if (!content.startsWith(ELFMAG) || content.size() < int(sizeof(Elf64_Ehdr)) ||
        bytes[EI_CLASS] != ELFCLASS64)
        return;
    const auto *header = reinterpret_cast<const Elf64_Ehdr *>(bytes);
    const auto *sections = reinterpret_cast<const Elf64_Shdr *>(bytes + header->e_shoff);
    for (int i = 0; i < header->e_shnum; ++i) {
        const Elf64_Shdr &section = sections[i];
        const char *names = bytes + sections[section.sh_link].sh_offset;
        const char *begin = bytes + section.sh_offset;
        if (section.sh_type == SHT_DYNSYM) {
            const auto *symbols = reinterpret_cast<const Elf64_Sym *>(begin);
            for (size_t at = 1; at < section.sh_size / sizeof(Elf64_Sym); ++at) {
                if (symbols[at].st_shndx != SHN_UNDEF)
                    exported.append(QString::fromLatin1(names + symbols[at].st_name));
            }
        } else if (section.sh_type == SHT_DYNAMIC) {
            for (const auto *entry = reinterpret_cast<const Elf64_Dyn *>(begin);
                 entry->d_tag != DT_NULL; ++entry) {
                if (entry->d_tag == DT_NEEDED)
                    needed.append(QString::fromLatin1(names + entry->d_un.d_val));
            }
        }
    }
    exported.sort();
    isValid = true;
}

bool isLoaded(const char *library)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
}
