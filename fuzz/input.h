// SPDX-License-Identifier: MIT
// What fuzz targets share: the input as text and as a file, and a check that ends the program.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// A finding unless it holds.
inline void expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// The bytes under a name, in memory only.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes) : m_fd(memfd_create("entrada", 0)) {
        for (std::size_t at = 0; at < bytes.size();) {
            const ssize_t done = ::write(m_fd, bytes.data() + at, bytes.size() - at);
            expect(done > 0, "no room for the input");
            at += static_cast<std::size_t>(done);
        }
    }
    ~MemoryFile() { ::close(m_fd); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_fd); }

private:
    int m_fd;
};

/// Folder of this process for what a target writes; emptied by clear(), left to the system at the
/// end.
class Scratch {
public:
    Scratch() {
        m_path = std::filesystem::temp_directory_path() / ("fuzz_" + std::to_string(getpid()));
        std::filesystem::create_directories(m_path);
    }
    ~Scratch() {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    const std::filesystem::path& path() const { return m_path; }
    void clear() const {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(m_path, error))
            std::filesystem::remove_all(entry.path(), error);
    }

private:
    std::filesystem::path m_path;
};

}  // namespace fuzz
