// SPDX-License-Identifier: MIT
// What is the same on every system.
#include "files/replacement.h"

#include <utility>

namespace files {

void Replacement::keepFormer(std::filesystem::path backup) { m_backup = std::move(backup); }

int replace(const std::filesystem::path& target, std::string_view bytes) {
    Replacement file(target);
    if (const int error = file.open(); error != 0) return error;
    if (const int error = file.write(bytes); error != 0) return error;
    return file.commit();
}

}  // namespace files
