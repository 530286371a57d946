// SPDX-License-Identifier: MIT
// What the dynamic linker knows about a loaded module.
#include "prancheta/editor/modules_elf.h"

#include <dlfcn.h>
#include <link.h>

#include <string_view>

namespace prancheta {

const void* libraryOf(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

std::vector<std::filesystem::path> neededModules(void* handle) {
    std::vector<std::filesystem::path> modules;
    link_map* map = nullptr;
    if (dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0 || map == nullptr) return modules;
    const char* names = nullptr;
    for (const ElfW(Dyn)* d = map->l_ld; d->d_tag != DT_NULL; ++d)
        if (d->d_tag == DT_STRTAB) names = reinterpret_cast<const char*>(d->d_un.d_ptr);
    if (names == nullptr) return modules;
    const link_map* first = map;
    while (first->l_prev != nullptr) first = first->l_prev;
    for (const ElfW(Dyn)* d = map->l_ld; d->d_tag != DT_NULL; ++d) {
        if (d->d_tag != DT_NEEDED) continue;
        const std::string_view needed = names + d->d_un.d_val;
        if (!needed.ends_with(".arx")) continue;
        for (const link_map* m = first; m != nullptr; m = m->l_next) {
            const std::filesystem::path path = m->l_name;
            if (path.filename() == std::filesystem::path(needed).filename())
                modules.push_back(path);
        }
    }
    return modules;
}

}  // namespace prancheta
