// SPDX-License-Identifier: MIT
// Handles inside content that is kept group by group.
#include "prancheta/dxf/kept_handles.h"

#include "prancheta/database/object_access.h"
#include "prancheta/dxf/tag.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::dxf {
namespace {

void visitTag(const RawTag& tag, const std::function<void(Adesk::UInt64)>& visit) {
    std::uint64_t handle = 0;
    if ((tag.code == 5 || tag.code == 105) && parseHandle(tag.value, handle) && handle != 0)
        visit(handle);
}

/// Handles of all records in a run of groups: the first group 5 or 105 behind each group 0.
void visitRecords(const RawTags& tags, std::size_t first,
                  const std::function<void(Adesk::UInt64)>& visit) {
    bool open = false;
    for (std::size_t i = first; i < tags.size(); ++i) {
        if (tags[i].code == 0) {
            open = true;
        } else if (open && (tags[i].code == 5 || tags[i].code == 105)) {
            visitTag(tags[i], visit);
            open = false;
        } else if (tags[i].code == 100) {
            open = false;
        }
    }
}

}  // namespace

Adesk::UInt64 ownHandle(const RawTags& record) {
    Adesk::UInt64 found = 0;
    visitRecords(record, 0, [&](Adesk::UInt64 handle) {
        if (found == 0) found = handle;
    });
    return found;
}

Adesk::UInt64 ownerHandle(const RawTags& record) {
    bool inBraces = false;
    for (const RawTag& tag : record) {
        std::uint64_t handle = 0;
        if (tag.code == 100) break;
        if (tag.code == 102) inBraces = tag.value != "}";
        if (tag.code == 330 && !inBraces && parseHandle(tag.value, handle)) return handle;
    }
    return 0;
}

void forEachKeptRecord(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit) {
    ForeignContent& foreign = core.foreign();
    for (const auto& [name, tags] : foreign.tables) visitRecords(tags, 0, visit);
    visitRecords(foreign.shapeStyles, 0, visit);
    for (const RawTags& tags : foreign.objects) visitRecords(tags, 0, visit);
    for (const RawTags& tags : foreign.sections) visitRecords(tags, 0, visit);
}

void forEachKeptPart(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit) {
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        const AcDbStub& stub = stubs[i];
        if (stub.object == nullptr || stub.erased) continue;
        if (const auto* entity = ForeignEntity::cast(stub.object)) {
            visitRecords(entity->tags(), 0, visit);
        } else if (const auto* reference = AcDbBlockReference::cast(stub.object)) {
            const InsertParts* const parts = reference->parts();
            if (parts == nullptr) continue;
            for (const InsertPart& part : parts->list) visit(part.handle);
            visit(ownHandle(parts->end));  // 0 where it has none yet
        } else if (stub.object->isA() == AcDbBlockTableRecord::desc() ||
                   AcDbSymbolTable::cast(stub.object) != nullptr) {
            if (const ObjectExtra* extra = ObjectAccess::extra(*stub.object))
                visitRecords(extra->foreign, 0, visit);
        }
    }
}

void forEachKeptHandle(DatabaseCore& core, const std::function<void(Adesk::UInt64)>& visit) {
    forEachKeptRecord(core, visit);
    forEachKeptPart(core, visit);
}

}  // namespace prancheta::dxf
