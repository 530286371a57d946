// SPDX-License-Identifier: MIT
// Which block each parametric piece refers to: pieces that look alike share one.
#pragma once

#include <unordered_map>
#include <vector>

#include "dbdim.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/graphics/picture.h"

namespace prancheta::dxf {

/// True for entities of classes that modules brought: filed as block references.
bool isPiece(const AcDbEntity& entity);

/// A block that the writer makes for a piece or a dimension.
struct PictureBlock {
    std::string name;
    Adesk::UInt64 record = 0;
};

class PiecePlan {
public:
    struct Use {
        std::uint32_t block;
        PieceFrame frame;
    };

    /// Records what the piece draws. In the order in which pieces are written. Cost: the picture,
    /// and one look-up.
    void add(AcDbEntity& piece);

    const std::vector<Use>& uses() const { return m_uses; }
    const std::vector<Picture>& pictures() const { return m_pictures; }
    std::vector<PictureBlock>& blocks() { return m_blocks; }
    const AcDbExtents& extents() const { return m_extents; }

private:
    std::vector<Use> m_uses;
    std::vector<Picture> m_pictures;
    std::vector<PictureBlock> m_blocks;
    std::unordered_multimap<std::size_t, std::uint32_t> m_byHash;
    AcDbExtents m_extents;
};

}  // namespace prancheta::dxf
