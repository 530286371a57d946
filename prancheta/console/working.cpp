// SPDX-License-Identifier: MIT
// A clock beside the work: the work itself knows nothing of it.
#include "prancheta/console/working.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>

#include "prancheta/base/library.h"
#include "prancheta/base/text.h"

namespace prancheta::console {
namespace {

constexpr std::chrono::milliseconds kPause{500};
/// Characters of a line that no usual terminal breaks, the seconds apart.
constexpr std::size_t kMostBytes = 68;

/// The cursor stays at the line's beginning: what is told meanwhile is written over it.
void show(const std::string& line) {
    const std::string bytes = "\r\x1b[K" + line + "\r";
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
    std::fflush(stderr);
}

void tick(const std::stop_token& stop, std::mutex& mutex, const std::string& what) {
    const auto start = std::chrono::steady_clock::now();
    std::condition_variable_any ended;
    std::unique_lock lock(mutex);
    bool shown = false;
    while (!ended.wait_for(lock, stop, kPause, [&] { return stop.stop_requested(); })) {
        const auto passed = std::chrono::steady_clock::now() - start;
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(passed).count();
        show(what + (seconds > 0 ? ": " + std::to_string(seconds) + " s" : "..."));
        shown = true;
    }
    if (shown) show({});
}

/// Its end where it is long, from a whole character on.
std::string shortened(std::string text) {
    if (text.size() <= kMostBytes) return text;
    std::size_t from = text.size() - kMostBytes;
    while (from < text.size() && (static_cast<unsigned char>(text[from]) & 0xC0U) == 0x80U) ++from;
    return "..." + text.substr(from);
}

}  // namespace

Working::Working(const std::string& what) {
    if (!errorIsTerminal()) return;
    m_clock = std::jthread([this, line = shortened(harmless(what))](const std::stop_token& stop) {
        tick(stop, m_mutex, line);
    });
}

}  // namespace prancheta::console
