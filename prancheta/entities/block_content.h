// SPDX-License-Identifier: MIT
// What is in a block, seen from a reference to it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// Blocks may nest, and arrays repeat, so that their copies multiply without end: no reference
/// shows more.
inline constexpr std::size_t kMostPrimitives = 500000;

/// Properties that entities of a block take from the reference: on layer 0, by block.
class BlockInheritance {
public:
    BlockInheritance(const PictureTraits& reference, const AcDbDatabase* database);
    PictureTraits resolved(PictureTraits traits) const;

private:
    PictureTraits m_reference;
    AcDbObjectId m_layerZero;
    AcDbObjectId m_byBlock;
};

/// The block whose content the entity shows: of a reference, or of a dimension of another program.
/// Null for all else, and when the drawing does not have the block.
AcDbObjectId blockShownBy(const AcDbEntity& entity);

/// Base point of a block; the world's origin when it cannot be opened.
AcGePoint3d blockOrigin(AcDbObjectId block);

/// Calls `visit` for each visible entity, open for read. Nothing when the block cannot be opened.
void forEachInBlock(AcDbObjectId block, const std::function<void(AcDbEntity&)>& visit);

/// A part of an exploded reference, in no drawing.
struct ExplodedPart {
    std::unique_ptr<AcDbEntity> entity;
    AcDbObjectId original;  ///< entity of the block that it is a copy of; null: drawn in its place
};
/// What a reference shows, as entities of their own in its place; empty when it shows nothing.
std::vector<ExplodedPart> explodedParts(const AcDbBlockReference& reference);

/// While it lives, notes whose content blockPicture() is asked for, nested blocks included; null
/// stands for blocks that are missing. Scopes may nest: the innermost one notes.
class BlocksDrawn {
public:
    BlocksDrawn();
    ~BlocksDrawn();
    BlocksDrawn(const BlocksDrawn&) = delete;
    BlocksDrawn& operator=(const BlocksDrawn&) = delete;

    /// In the order in which they were drawn, repeated where they repeat.
    std::vector<AcDbStub*> blocks;

private:
    BlocksDrawn* m_outer;
};

/// What the block draws in its own coordinates, with the reference's properties. A block that
/// contains itself is left out where it would repeat; very large nests are cut, and so is what lies
/// deeper than kDeepestNesting. Moved: as the moved entities draw themselves, so that texts stay
/// readable in a mirror.
Picture blockPicture(AcDbObjectId block, const PictureTraits& reference,
                     const AcGeMatrix3d& moved = AcGeMatrix3d::kIdentity);

}  // namespace prancheta
