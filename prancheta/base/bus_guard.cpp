// SPDX-License-Identifier: MIT
// Mapped files that another program shortens.
#include "prancheta/base/bus_guard.h"

#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>

namespace prancheta {
namespace {

/// Everything that the handler looks at: no locks, no memory of its own.
struct Slot {
    std::atomic<bool> taken = false;
    std::atomic<std::uintptr_t> begin = 0;
    std::atomic<std::uintptr_t> end = 0;  ///< 0: nothing is watched here
    std::atomic<bool> hit = false;
};

std::array<Slot, 16> g_slots;
std::uintptr_t g_page = 4096;
struct sigaction g_former;

void onBusError(int, siginfo_t* info, void*) {
    const int before = errno;
    const auto at = reinterpret_cast<std::uintptr_t>(info->si_addr);
    for (Slot& slot : g_slots) {
        const std::uintptr_t end = slot.end.load();
        if (at < slot.begin.load() || at >= end) continue;
        const std::uintptr_t first = at / g_page * g_page;
        constexpr int kZeros = MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED;
        if (::mmap(reinterpret_cast<void*>(first), end - first, PROT_READ, kZeros, -1, 0) ==
            MAP_FAILED)
            break;
        slot.hit = true;
        errno = before;
        return;
    }
    // Not ours: the access fails again, and goes where it would have gone.
    (void)::sigaction(SIGBUS, &g_former, nullptr);
    errno = before;
}

void installOnce() {
    static const bool installed = [] {
        g_page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
        struct sigaction action {};
        action.sa_sigaction = onBusError;
        action.sa_flags = SA_SIGINFO;
        return ::sigaction(SIGBUS, &action, &g_former) == 0;
    }();
    (void)installed;
}

}  // namespace

bool BusGuard::watch(const void* begin, std::size_t size) {
    installOnce();
    for (std::size_t i = 0; i < g_slots.size(); ++i) {
        Slot& slot = g_slots[i];
        if (slot.taken.exchange(true)) continue;
        const auto first = reinterpret_cast<std::uintptr_t>(begin);
        slot.hit = false;
        slot.begin = first;
        slot.end = first + size;
        m_slot = static_cast<int>(i);
        return true;
    }
    return false;
}

bool BusGuard::hit() const { return m_slot >= 0 && g_slots[static_cast<std::size_t>(m_slot)].hit; }

BusGuard::~BusGuard() {
    if (m_slot < 0) return;
    Slot& slot = g_slots[static_cast<std::size_t>(m_slot)];
    slot.end = 0;
    slot.taken = false;
}

}  // namespace prancheta
