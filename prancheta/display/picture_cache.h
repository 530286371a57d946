// SPDX-License-Identifier: MIT
// Recorded pictures, kept while there is room; those not looked at for longest go first.
#pragma once

#include <cstdint>
#include <list>
#include <unordered_map>

#include "prancheta/graphics/picture.h"

namespace prancheta {

class PictureCache {
public:
    using Key = std::uint32_t;
    explicit PictureCache(std::size_t mostBytes) : m_mostBytes(mostBytes) {}

    /// Null when it is not kept; else it counts as looked at.
    const Picture* find(Key key);
    /// The key has none yet. The reference is good until the next put() or erase().
    const Picture& put(Key key, Picture picture);
    void erase(Key key);
    void clear();
    /// About what the pictures take.
    std::size_t bytes() const { return m_bytes; }

private:
    struct Kept {
        Key key;
        Picture picture;
        std::size_t bytes;
    };
    std::size_t m_mostBytes;
    std::size_t m_bytes = 0;
    std::list<Kept> m_kept;  ///< last looked at first
    std::unordered_map<Key, std::list<Kept>::iterator> m_places;
};

}  // namespace prancheta
