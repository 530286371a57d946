// SPDX-License-Identifier: MIT
// The console as a process that meets accidents.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace faults {

/// Folder of its own, removed at the end.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

void put(const std::filesystem::path& file, const std::string& bytes);
std::string bytesOf(const std::filesystem::path& file);

struct Accident {
    int killAfter = -1;          ///< microseconds until SIGKILL, -1: never
    long largestFile = -1;       ///< bytes that a file may grow to, as on a full disk; -1: no limit
    bool withoutRights = false;  ///< permissions count, whoever runs the test
    /// Call that fails, as "alloc:12" or "fsync:1"; how many calls of each kind there were goes to
    /// the file "contas". Empty: none.
    std::string failing{};
};

struct Outcome {
    int code = -1;  ///< exit code, -1 when it was killed
    std::string errors;
};

/// Whether calls can be made to fail in this build.
bool canFail();
/// How many accidents of a kind are tried: as many as usual, or what the environment's ACIDENTES
/// says.
long samples(long usual);

/// Runs prancheta-console in `folder` with the arguments; what it prints is in "saida" and "erros".
Outcome runConsole(const Folder& folder, std::vector<std::string> arguments,
                   const Accident& accident = {});

}  // namespace faults
