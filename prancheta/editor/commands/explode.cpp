// SPDX-License-Identifier: MIT
// EXPLODE: replaces compound objects by their parts, one level.
#include <utility>

#include "dbsymtb.h"
#include "prancheta/database/deep_clone.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/details.h"
#include "prancheta/entities/block_content.h"

namespace prancheta::commands {

namespace {

using Parts = std::vector<ExplodedPart>;

Parts partsOf(const AcDbEntity& entity) {
    if (const auto* const reference = AcDbBlockReference::cast(&entity))
        return explodedParts(*reference);
    AcDbVoidPtrArray set;
    const Acad::ErrorStatus status = entity.explode(set);
    Parts parts;
    for (void* part : set)
        parts.push_back({std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(part)), {}});
    if (status != Acad::eOk) parts.clear();
    return parts;
}

/// Puts the parts where the entity stood, tied to one another as they were in a block; false leaves
/// the drawing as it was.
bool explodeOne(const CommandContext& context, AcDbObjectId id) {
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return false;
    Parts parts = partsOf(*entity.object());
    if (parts.empty()) return false;
    AcDbObjectPointer<AcDbBlockTableRecord> owner(entity->blockId(), AcDb::kForWrite);
    if (owner.openStatus() != Acad::eOk) return false;
    Ids added;
    Copies copies;  // of one insertion: an array has several
    for (auto& [part, original] : parts) {
        if (part->layerId().isNull()) (void)part->setPropertiesFrom(entity.object());
        AcDbObjectId partId;
        if (owner->appendAcDbEntity(partId, part.get()) != Acad::eOk) {
            (void)eraseAll(context, added);
            return false;
        }
        (void)part.release()->close();
        added.push_back(partId);
        if (original.isNull()) continue;
        if (copies.contains(original)) translateReferences(std::exchange(copies, {}));
        copies[original] = partId;
    }
    translateReferences(copies);
    releaseDetail(context.database(), id);
    return entity->erase() == Acad::eOk;
}

}  // namespace

CommandTask explode(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    std::size_t refused = 0;
    for (const AcDbObjectId id : chosen.ids)
        if (!explodeOne(context, id)) ++refused;
    if (refused > 0)
        say(context, counted(refused, L"objeto não pôde ser explodido.",
                             L"objetos não puderam ser explodidos."));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
