// SPDX-License-Identifier: MIT
// Blocks of dimensions that were moved since their pictures were drawn.
#pragma once

#include <unordered_map>
#include <vector>

#include "prancheta/entities/foreign_entity.h"

namespace prancheta::dxf {

/// A dimension that is kept group by group shares the block of its picture with its copies, and the
/// block stands where the file had it. In the file that is written the picture has to stand where
/// the dimension is: in the block itself when nothing else shows it, in a new block otherwise.
class MovedDimensions {
public:
    struct NewBlock {
        const ForeignEntity* dimension;
        AcDbObjectId source;
    };

    /// Looks at all entities of the drawing's blocks. O(entities) when a dimension was moved.
    void plan(const std::vector<AcDbObjectId>& blocks);

    const std::vector<NewBlock>& newBlocks() const { return m_new; }
    /// What moves the content of a block that is written in its place; null: nothing.
    const AcGeMatrix3d* moving(AcDbObjectId block) const;
    /// Place among the new blocks; -1 for everything that needs none.
    int newBlockOf(const AcDbEntity& entity) const;

private:
    std::vector<NewBlock> m_new;
    std::unordered_map<const AcDbStub*, const ForeignEntity*> m_inPlace;
    std::unordered_map<const AcDbEntity*, int> m_places;
};

/// Number of records that the entity is written as.
std::size_t recordCount(const AcDbEntity& entity);

}  // namespace prancheta::dxf
