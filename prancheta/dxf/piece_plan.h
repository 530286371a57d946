// SPDX-License-Identifier: MIT
// Which block each parametric piece refers to: pieces that look alike, and say the same in its
// copy, share one.
#pragma once

#include <string>
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
    /// its copy (piece_copy.h) where it is to have one, and one look-up.
    void add(AcDbEntity& piece, bool withCopy);

    const std::vector<Use>& uses() const { return m_uses; }
    const std::vector<Picture>& pictures() const { return m_pictures; }
    /// Texts that stand in the blocks for the data; empty for none.
    const std::vector<std::wstring>& copies() const { return m_copies; }
    bool hasCopies() const { return m_hasCopies; }
    std::vector<PictureBlock>& blocks() { return m_blocks; }
    const AcDbExtents& extents() const { return m_extents; }

private:
    std::vector<Use> m_uses;
    std::vector<Picture> m_pictures;
    std::vector<std::wstring> m_copies;
    bool m_hasCopies = false;
    std::vector<PictureBlock> m_blocks;
    std::unordered_multimap<std::size_t, std::uint32_t> m_byHash;
    AcDbExtents m_extents;
};

}  // namespace prancheta::dxf
