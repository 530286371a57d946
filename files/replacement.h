// SPDX-License-Identifier: MIT
// How a file is read whole, and how it gets new contents: all of them or none, and still the same
// file to everybody else.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace files {

/// The whole file. Nothing, and at once, when it cannot be opened or is none (folder, pipe,
/// device).
std::optional<std::string> readRegular(const std::filesystem::path& path);

/// Name under which a file is the program's standard output.
std::filesystem::path standardOutput();
/// Whether what is written to `path` goes where the standard output goes.
bool isStandardOutput(const std::filesystem::path& path);

/// New contents of one file. They are written beside it under a name of their own, flushed to the
/// disk and renamed over it; until then, and after a failure, what was there stands and nothing is
/// left beside it. Temporary files that killed programs of this machine left in the folder are
/// removed on the way. Failures are errno values, 0 is done.
///
/// Links are followed; one that points nowhere gets its file. On POSIX systems owner, group,
/// permissions and hard links stay: a file that a rename would take them from, and one whose folder
/// takes no new file, is written in place. For as long as that lasts the new contents also stand in
/// NAME.copia-XXXXXX, in the folder or in the system's one for temporary files; that file stays
/// when the writing is cut short. What is no file (pipe, device), and the standard output, is
/// written to directly.
class Replacement {
public:
    explicit Replacement(std::filesystem::path target);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    /// What is replaced stays as this file, which changes only when the new contents are in place.
    /// Where that cannot be had the replacement goes on without.
    void keepFormer(std::filesystem::path backup);

    int open();
    int write(std::string_view bytes);
    int commit();

    /// Where links led; the file that open() and commit() speak of.
    const std::filesystem::path& target() const { return m_target; }
    /// From open() to commit(): the file that receives the bytes, for who writes it by name.
    const std::filesystem::path& place() const { return m_place; }
    /// After a failure in the midst of writing in place: where the whole new contents are.
    const std::filesystem::path& copyLeft() const { return m_copyLeft; }

private:
    int makeTemporary(const std::filesystem::path& folder, int permissions);
    int copyIntoTarget();

    std::filesystem::path m_target;
    std::filesystem::path m_place;
    std::filesystem::path m_backup;
    std::filesystem::path m_copyLeft;
    int m_fd = -1;
    bool m_direct = false;
    bool m_inPlace = false;
};

/// All of it at once. Who reads and writes text files of some kilobytes needs no more.
int replace(const std::filesystem::path& target, std::string_view bytes);

}  // namespace files
