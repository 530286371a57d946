// SPDX-License-Identifier: MIT
// Files: read whole, replaced atomically, found without regard to case.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "prancheta/base/result.h"

namespace prancheta {

/// Path as programs of any system write it: backslashes are separators, and a name that does not
/// exist is looked up folder by folder without regard to case. What is not found keeps its
/// spelling.
std::filesystem::path resolvePath(std::wstring_view path);
std::filesystem::path resolvePath(std::string_view utf8Path);

Result<std::string> readFile(const std::filesystem::path& path);

/// Writes beside the target, flushes to the disk and renames over it. After a failure the old file
/// stands as it was and nothing is left beside it. On POSIX systems what is no file (a pipe, a
/// device) is written to directly.
class AtomicFile {
public:
    explicit AtomicFile(std::filesystem::path target);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    Result<void> open();
    /// Buffered; a write error is reported by commit().
    void write(std::string_view bytes);
    Result<void> commit();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::string m_buffer;
    int m_fd = -1;
    int m_errno = 0;
};

/// Read-only file mapped into memory; the view lives as long as the object.
class MappedFile {
public:
    static Result<std::shared_ptr<const MappedFile>> open(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view bytes() const { return {m_data, m_size}; }

    /// The whole pages inside `part` of bytes() are not needed in memory for now. They stay
    /// readable: whoever looks at them again has them fetched from the file again.
    void giveBack(std::string_view part) const;

private:
    MappedFile() = default;
    const char* m_data = nullptr;
    std::size_t m_size = 0;
};

/// Portuguese reason for an errno value ("permissão negada", "disco cheio", ...).
std::string errnoText(int error);

}  // namespace prancheta
