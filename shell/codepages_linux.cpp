#include "shell/codepages.h"

#include <cstddef>
#include <cstdint>

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// Whether the dynamic linker has written into the code or constants of \a object, which would be
/// lost.
bool hasRelocatedCode(const dl_phdr_info &object)
{
    for (int i = 0; i < object.dlpi_phnum; ++i) {
        const ElfW(Phdr) &segment = object.dlpi_phdr[i];
        if (segment.p_type != PT_DYNAMIC)
            continue;
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        const auto *entry = reinterpret_cast<const ElfW(Dyn) *>(object.dlpi_addr + segment.p_vaddr);
        for (; entry->d_tag != DT_NULL; ++entry) {
            if (entry->d_tag == DT_TEXTREL ||
                (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0))
                return true;
        }
        return false;
    }
    // Without this table it is no file.
    return true;
}

void returnCode(std::uintptr_t begin, std::size_t length)
{
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t first = (begin + page - 1) / page * page;
    const std::uintptr_t last = (begin + length) / page * page;
    if (first >= last)
        return;
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    madvise(reinterpret_cast<void *>(first), last - first, MADV_DONTNEED);
}

int returnCodeOf(dl_phdr_info *object, std::size_t /*size*/, void * /*context*/)
{
    if (hasRelocatedCode(*object))
        return 0;
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const ElfW(Phdr) &segment = object->dlpi_phdr[i];
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0)
            returnCode(object->dlpi_addr + segment.p_vaddr, segment.p_memsz);
    }
    return 0;
}

} // namespace

void returnCodePages()
{
    dl_iterate_phdr(returnCodeOf, nullptr);
}
