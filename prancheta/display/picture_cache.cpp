// SPDX-License-Identifier: MIT
// Recorded pictures.
#include "prancheta/display/picture_cache.h"

#include <cwchar>

namespace prancheta {
namespace {

/// Numbers that a primitive keeps beside its points.
std::size_t numbersOf(const PrimitiveView& primitive) {
    switch (primitive.kind()) {
        case PrimitiveKind::Pline:
            return 3 + primitive.points().size();
        case PrimitiveKind::Circle:
            return 4;
        case PrimitiveKind::Arc:
            return 8;
        case PrimitiveKind::Text:
            return 9 + std::wcslen(primitive.text()) / 2 + 1;
        default:
            return 0;
    }
}

std::size_t bytesOf(const Picture& picture) {
    constexpr std::size_t kPrimitive = 32;
    constexpr std::size_t kPlace = 96;  // list and table
    std::size_t bytes =
        sizeof(Picture) + kPlace + picture.allTraits().size() * sizeof(PictureTraits);
    for (const PrimitiveView primitive : picture)
        bytes += kPrimitive + primitive.points().size() * sizeof(AcGePoint3d) +
                 numbersOf(primitive) * sizeof(double);
    return bytes;
}

}  // namespace

const Picture* PictureCache::find(Key key) {
    const auto at = m_places.find(key);
    if (at == m_places.end()) return nullptr;
    m_kept.splice(m_kept.begin(), m_kept, at->second);
    return &at->second->picture;
}

const Picture& PictureCache::put(Key key, Picture picture) {
    const std::size_t bytes = bytesOf(picture);
    // The one that is put in stays, whatever its size.
    while (!m_kept.empty() && m_bytes + bytes > m_mostBytes) erase(m_kept.back().key);
    m_kept.push_front({key, std::move(picture), bytes});
    m_places[key] = m_kept.begin();
    m_bytes += bytes;
    return m_kept.front().picture;
}

void PictureCache::erase(Key key) {
    const auto at = m_places.find(key);
    if (at == m_places.end()) return;
    m_bytes -= at->second->bytes;
    m_kept.erase(at->second);
    m_places.erase(at);
}

void PictureCache::clear() {
    m_kept.clear();
    m_places.clear();
    m_bytes = 0;
}

}  // namespace prancheta
