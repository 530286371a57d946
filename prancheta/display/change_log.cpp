// SPDX-License-Identifier: MIT
// Where the drawing looked different.
#include "prancheta/display/change_log.h"

namespace prancheta {
namespace {

/// More boxes than this cost a front end more than one that holds them all.
constexpr std::size_t kMostOfRevision = 64;
constexpr std::size_t kMostPlaces = 512;

}  // namespace

void ChangeLog::add(const Box2d& box) {
    if (box.empty()) return;
    if (m_noted.size() < kMostOfRevision)
        m_noted.push_back(box);
    else
        m_noted.back().add(box);
}

void ChangeLog::addEverywhere() { m_noted.assign(1, everywhere()); }

void ChangeLog::commit() {
    if (m_noted.empty()) return;
    ++m_revision;
    for (const Box2d& box : m_noted) m_places.push_back({m_revision, box});
    m_noted.clear();
    while (m_places.size() > kMostPlaces) {
        m_knownSince = m_places.front().revision;
        m_places.pop_front();
    }
}

std::vector<Box2d> ChangeLog::since(std::uint64_t since) const {
    if (since == m_revision) return {};
    if (since > m_revision || since < m_knownSince) return {everywhere()};
    std::vector<Box2d> boxes;
    for (auto place = m_places.rbegin(); place != m_places.rend(); ++place) {
        if (place->revision <= since) break;
        if (place->box == everywhere()) return {everywhere()};
        boxes.push_back(place->box);
    }
    return boxes;
}

}  // namespace prancheta
