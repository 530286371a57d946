// SPDX-License-Identifier: MIT
// Which block each parametric piece refers to.
#include "prancheta/dxf/piece_plan.h"

#include "prancheta/database/entity_picture.h"
#include "prancheta/dxf/entity_types.h"
#include "prancheta/dxf/picture_writer.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/entities/foreign_entity.h"

namespace prancheta::dxf {

bool isPiece(const AcDbEntity& entity) {
    return entityTypeOf(entity) == nullptr && ForeignEntity::cast(&entity) == nullptr;
}

void PiecePlan::add(AcDbEntity& piece, bool withCopy) {
    Picture picture;
    recordPicture(piece, picture);
    if (!picture.empty()) m_extents.addExt(picture.extents());
    Use use{0, {}};
    AcGeMatrix3d ecs;
    piece.getEcs(ecs);
    // A frame that no reference can have leaves the picture where it stands in the world.
    if (frameOf(ecs, use.frame))
        picture.transform(use.frame.matrix().inverse());
    else
        use.frame = {};
    makeByBlock(picture, piece);
    std::wstring copy = withCopy ? copyTextOf(piece) : std::wstring();
    const std::size_t hash = picture.hash() ^ std::hash<std::wstring>()(copy);
    const auto [first, last] = m_byHash.equal_range(hash);
    for (auto at = first; at != last; ++at) {
        if (m_copies[at->second] != copy || !(m_pictures[at->second] == picture)) continue;
        use.block = at->second;
        m_uses.push_back(use);
        return;
    }
    use.block = static_cast<std::uint32_t>(m_pictures.size());
    m_byHash.emplace(hash, use.block);
    m_pictures.push_back(std::move(picture));
    m_hasCopies = m_hasCopies || !copy.empty();
    m_copies.push_back(std::move(copy));
    m_blocks.emplace_back();
    m_uses.push_back(use);
}

}  // namespace prancheta::dxf
