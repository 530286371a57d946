// SPDX-License-Identifier: MIT
// Names of temporary files, by which those of dead programs are known.
#include "files/dead_temporaries.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <random>
#include <string_view>
#include <system_error>

namespace files {
namespace {

namespace fs = std::filesystem;

std::string hex(std::uint32_t value) {
    std::string text(8, '0');
    for (std::size_t i = text.size(); i-- > 0; value >>= 4)
        text[i] = "0123456789abcdef"[value & 15];
    return text;
}

/// Process numbers mean something on one machine only, and in one container: FNV-1a of both names.
std::string machine() {
    std::array<char, 256> name{};
    (void)::gethostname(name.data(), name.size() - 1);
    std::string text = name.data();
    std::error_code unknown;
    text += fs::read_symlink("/proc/self/ns/pid", unknown).native();
    std::uint32_t hash = 2166136261U;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return hex(hash);
}

std::string prefix() { return ".gravando-" + machine() + "-"; }

bool isDead(std::string_view numberAndRest) {
    int process = 0;
    const char* const end = numberAndRest.data() + numberAndRest.size();
    const auto [rest, error] = std::from_chars(numberAndRest.data(), end, process);
    if (error != std::errc() || rest == end || *rest != '-' || process <= 0) return false;
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

std::string temporaryName() {
    static thread_local std::mt19937 chance(std::random_device{}());
    return prefix() + std::to_string(::getpid()) + "-" + hex(static_cast<std::uint32_t>(chance()));
}

void removeDeadTemporaries(const fs::path& folder) {
    static thread_local fs::path last;
    if (last == folder) return;
    last = folder;
    const std::string ours = prefix();
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const std::string name = entry->path().filename().native();
        if (!name.starts_with(ours) || !isDead(std::string_view(name).substr(ours.size())))
            continue;
        std::error_code ignored;  // somebody else's in a common folder
        fs::remove(entry->path(), ignored);
    }
}

}  // namespace files
