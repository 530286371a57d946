// SPDX-License-Identifier: MIT
// Files: read whole, replaced atomically, found without regard to case.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "files/replacement.h"
#include "prancheta/base/result.h"

namespace prancheta {

/// Path as programs of any system write it: backslashes are separators, and a name that does not
/// exist is looked up folder by folder without regard to case. What is not found keeps its
/// spelling.
std::filesystem::path resolvePath(std::wstring_view path);
std::filesystem::path resolvePath(std::string_view utf8Path);

Result<std::string> readFile(const std::filesystem::path& path);

/// Name under which a file is the program's standard output.
std::filesystem::path standardOutput();
/// Whether what is written to `path` goes where the standard output goes.
bool isStandardOutput(const std::filesystem::path& path);

/// New contents of a file, whole or not at all, as files::Replacement gives them; with messages for
/// the user.
class AtomicFile {
public:
    explicit AtomicFile(std::filesystem::path target);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// What is replaced stays as this file; see files::Replacement.
    void keepFormer(std::filesystem::path backup);
    Result<void> open();
    /// Buffered; a write error is reported by commit().
    void write(std::string_view bytes);
    Result<void> commit();

private:
    Error failed(const std::string& what, int error) const;

    files::Replacement m_file;
    std::string m_buffer;
    int m_errno = 0;
};

/// Read-only file mapped into memory; the view lives as long as the object. A pipe is read whole.
class MappedFile {
public:
    static Result<std::shared_ptr<const MappedFile>> open(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view bytes() const { return {m_data, m_size}; }
    /// True when another program wrote to the file or shortened it since it was opened. What
    /// bytes() shows is no file of anybody's then; what was cut off reads as zeros.
    bool changed() const;

    /// The whole pages inside `part` of bytes() are not needed in memory for now. They stay
    /// readable: whoever looks at them again has them fetched from the file again.
    void giveBack(std::string_view part) const;

private:
    MappedFile();
    struct Watch;

    const char* m_data = nullptr;
    std::size_t m_size = 0;
    std::unique_ptr<Watch> m_watch;
    std::string m_copy;  ///< of what cannot be mapped
};

/// Portuguese reason for an errno value ("permissão negada", "disco cheio", ...).
std::string errnoText(int error);

}  // namespace prancheta
