// SPDX-License-Identifier: MIT
// What is in a block.
#include "prancheta/entities/block_content.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "dbents.h"
#include "prancheta/base/nesting.h"
#include "prancheta/base/text.h"
#include "prancheta/database/draw_order.h"
#include "prancheta/entities/filed_dimension.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

namespace {

constexpr std::size_t kMostBlocks = 100000;

/// Blocks being drawn, outermost first: drawing recurses through the entities and has no other way
/// to see that it comes back to where it was.
thread_local std::vector<AcDbStub*> g_drawing;

/// Blocks that were begun since the outermost one: those without any primitive multiply too.
thread_local std::size_t g_begun = 0;

thread_local BlocksDrawn* g_noted = nullptr;

Picture mirroredPicture(AcDbEntity& entity, const AcGeMatrix3d& by) {
    AcDbEntity* made = nullptr;
    if (entity.getTransformedCopy(by, made) != Acad::eOk) return {};
    const std::unique_ptr<AcDbEntity> copy(made);
    return pictureOf(*copy);
}

/// What an insertion shows of an entity of its block: of a definition of an attribute its value
/// when it is constant, and nothing when it is asked for.
Picture shownIn(AcDbEntity& entity, const AcGeMatrix3d& moved) {
    const bool mirrored = moved.det() < 0.0;
    const auto show = [&](AcDbEntity& each) {
        return mirrored ? mirroredPicture(each, moved) : pictureOf(each);
    };
    const auto* const definition = AcDbAttributeDefinition::cast(&entity);
    if (definition == nullptr) return show(entity);
    if (!definition->isConstant() || definition->isInvisible()) return {};
    return show(*textLike(*definition, definition->textStringConst()));
}

class DrawingScope {
public:
    explicit DrawingScope(AcDbStub* block) { g_drawing.push_back(block); }
    ~DrawingScope() { g_drawing.pop_back(); }
    DrawingScope(const DrawingScope&) = delete;
    DrawingScope& operator=(const DrawingScope&) = delete;
};

}  // namespace

BlocksDrawn::BlocksDrawn() : m_outer(std::exchange(g_noted, this)) {}
BlocksDrawn::~BlocksDrawn() { g_noted = m_outer; }

BlockInheritance::BlockInheritance(const PictureTraits& reference, const AcDbDatabase* database)
    : m_reference(reference) {
    if (database == nullptr) return;
    m_layerZero = database->layerZero();
    m_byBlock = database->byBlockLinetype();
}

PictureTraits BlockInheritance::resolved(PictureTraits traits) const {
    if (traits.layer.isNull() || traits.layer == m_layerZero) traits.layer = m_reference.layer;
    if (!traits.trueColor && traits.color == 0) {
        traits.color = m_reference.color;
        traits.trueColor = m_reference.trueColor;
    }
    if (!m_byBlock.isNull() && traits.linetype == m_byBlock) traits.linetype = m_reference.linetype;
    if (traits.lineWeight == AcDb::kLnWtByBlock) traits.lineWeight = m_reference.lineWeight;
    return traits;
}

AcDbObjectId blockShownBy(const AcDbEntity& entity) {
    if (const auto* const reference = AcDbBlockReference::cast(&entity))
        return reference->blockTableRecord();
    if (const auto* const dimension = AcDbDimension::cast(&entity)) {
        const FiledDimension* const filed = dimension->filed();
        return filed != nullptr ? filed->block : AcDbObjectId();
    }
    const auto* const foreign = ForeignEntity::cast(&entity);
    AcDbObjectId block;
    if (foreign == nullptr || entity.database() == nullptr) return block;
    if (foreign->typeName() != "INSERT" && !foreign->typeName().ends_with("DIMENSION"))
        return block;
    const AcDbObjectPointer<AcDbBlockTable> table(entity.database()->blockTableId(),
                                                  AcDb::kForRead);
    if (table.openStatus() == Acad::eOk)
        (void)table->getAt(findName(foreign->tags(), 2).c_str(), block);  // null when missing
    return block;
}

AcGePoint3d blockOrigin(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    return record.openStatus() == Acad::eOk ? record->origin() : AcGePoint3d::kOrigin;
}

void forEachInBlock(AcDbObjectId block, const std::function<void(AcDbEntity&)>& visit) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    if (record.openStatus() != Acad::eOk) return;
    for (const AcDbObjectId id : drawOrder(*record.object())) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || entity->visibility() == AcDb::kInvisible) continue;
        visit(*entity.object());
    }
}

namespace {

void appendExploded(const AcDbBlockReference& reference, const AcGeMatrix3d& m,
                    std::vector<ExplodedPart>& parts) {
    const AcDbObjectId block = reference.blockTableRecord();
    const BlockInheritance inheritance(traitsOf(reference), block.database());
    forEachInBlock(block, [&](AcDbEntity& entity) {
        AcDbVoidPtrArray pieces;
        AcDbEntity* copy = nullptr;
        const bool copied = entity.getTransformedCopy(m, copy) == Acad::eOk && copy != nullptr;
        if (copied) {
            pieces.append(copy);
        } else {
            // What cannot be stretched becomes the chords that it is drawn with.
            delete copy;
            Picture picture = pictureOf(entity);
            picture.transform(m);
            appendEntities(picture, pieces);
        }
        for (void* piece : pieces) {
            auto* made = static_cast<AcDbEntity*>(piece);
            const PictureTraits traits = inheritance.resolved(traitsOf(*made));
            if (!traits.layer.isNull()) (void)made->setLayer(traits.layer);
            if (!traits.linetype.isNull()) (void)made->setLinetype(traits.linetype);
            giveColor(*made, traits);
            (void)made->setLineWeight(traits.lineWeight);
            parts.push_back(
                {std::unique_ptr<AcDbEntity>(made), copied ? entity.objectId() : AcDbObjectId()});
        }
    });
}

}  // namespace

std::vector<ExplodedPart> explodedParts(const AcDbBlockReference& reference) {
    std::vector<ExplodedPart> parts;
    for (const AcGeMatrix3d& place : placesOf(reference)) appendExploded(reference, place, parts);
    return parts;
}

Picture blockPicture(AcDbObjectId block, const PictureTraits& reference,
                     const AcGeMatrix3d& moved) {
    Picture content;
    AcDbStub* const stub = block;
    if (g_noted != nullptr) g_noted->blocks.push_back(stub);
    const bool inside = std::find(g_drawing.begin(), g_drawing.end(), stub) != g_drawing.end();
    if (stub == nullptr || inside || g_drawing.size() >= kDeepestNesting) return content;
    if (g_drawing.empty()) g_begun = 0;
    if (++g_begun > kMostBlocks) return content;
    const DrawingScope scope(stub);
    const bool mirrored = moved.det() < 0.0;
    forEachInBlock(block, [&](AcDbEntity& entity) {
        if (content.size() >= kMostPrimitives) return;
        content.append(shownIn(entity, moved));
    });
    if (!mirrored && moved != AcGeMatrix3d::kIdentity) content.transform(moved);
    const BlockInheritance inheritance(reference, block.database());
    for (std::uint32_t i = 0; i < content.allTraits().size(); ++i)
        content.setTraits(i, inheritance.resolved(content.allTraits()[i]));
    return content;
}

}  // namespace prancheta
