// SPDX-License-Identifier: MIT
// Whether a file is still the one that was read.
#include "prancheta/base/file_stamp.h"

#include <sys/stat.h>

namespace prancheta {

std::optional<FileStamp> fileStampOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileStamp{status.st_mtim.tv_sec, status.st_mtim.tv_nsec,
                     static_cast<std::uint64_t>(status.st_size), status.st_dev, status.st_ino};
}

}  // namespace prancheta
