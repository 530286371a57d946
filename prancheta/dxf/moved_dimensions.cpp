// SPDX-License-Identifier: MIT
// Blocks of dimensions that were moved since their pictures were drawn.
#include "prancheta/dxf/moved_dimensions.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "dbdim.h"
#include "dbents.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::dxf {
namespace {

void forEachEntity(const std::vector<AcDbObjectId>& blocks,
                   const std::function<void(const AcDbEntity&)>& visit) {
    for (const AcDbObjectId block : blocks) {
        const auto& record =
            static_cast<const AcDbBlockTableRecord&>(*static_cast<AcDbStub*>(block)->object);
        for (const AcDbObjectId id : ObjectAccess::entities(record))
            if (!id.isErased())
                visit(static_cast<const AcDbEntity&>(*static_cast<AcDbStub*>(id)->object));
    }
}

bool wasMoved(const ForeignEntity& entity) {
    return entity.sinceDrawn() != AcGeMatrix3d::kIdentity;
}

}  // namespace

void MovedDimensions::plan(const std::vector<AcDbObjectId>& blocks) {
    std::vector<NewBlock> moved;
    forEachEntity(blocks, [&](const AcDbEntity& entity) {
        const auto* const foreign = ForeignEntity::cast(&entity);
        if (foreign == nullptr || !wasMoved(*foreign)) return;
        if (const AcDbObjectId block = blockShownBy(*foreign); !block.isNull())
            moved.push_back({foreign, block});
    });
    if (moved.empty()) return;
    // Blocks that stay because something shows them where they are, or that are taken.
    std::unordered_set<const AcDbStub*> taken;
    forEachEntity(blocks, [&](const AcDbEntity& entity) {
        if (const auto* const reference = AcDbBlockReference::cast(&entity))
            taken.insert(reference->blockTableRecord());
        if (entity.isKindOf(AcDbDimension::desc())) taken.insert(blockShownBy(entity));
        if (const auto* const foreign = ForeignEntity::cast(&entity))
            if (!wasMoved(*foreign)) taken.insert(blockShownBy(*foreign));
    });
    for (const NewBlock& each : moved) {
        if (taken.insert(each.source).second) {
            m_inPlace[each.source] = each.dimension;
        } else {
            m_places[each.dimension] = static_cast<int>(m_new.size());
            m_new.push_back(each);
        }
    }
}

const AcGeMatrix3d* MovedDimensions::moving(AcDbObjectId block) const {
    const auto found = m_inPlace.find(block);
    return found != m_inPlace.end() ? &found->second->sinceDrawn() : nullptr;
}

int MovedDimensions::newBlockOf(const AcDbEntity& entity) const {
    const auto found = m_places.find(&entity);
    return found != m_places.end() ? found->second : -1;
}

std::size_t recordCount(const AcDbEntity& entity) {
    const auto* const reference = AcDbBlockReference::cast(&entity);
    if (reference != nullptr && reference->parts() != nullptr)
        return 2 + reference->parts()->list.size();
    const auto* const foreign = ForeignEntity::cast(&entity);
    if (foreign == nullptr) return 1;
    const auto begins = [](const RawTag& tag) { return tag.code == 0; };
    return 1 + static_cast<std::size_t>(
                   std::count_if(foreign->tags().begin(), foreign->tags().end(), begins));
}

}  // namespace prancheta::dxf
