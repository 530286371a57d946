// SPDX-License-Identifier: MIT
// What belongs to a block reference.
#include "prancheta/entities/insert_parts.h"

#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/picture_entities.h"

namespace prancheta {

std::vector<const AcDbAttribute*> attributesOf(const AcDbBlockReference& reference) {
    std::vector<const AcDbAttribute*> attributes;
    if (reference.parts() == nullptr) return attributes;
    for (const InsertPart& part : reference.parts()->list)
        if (const auto* const attribute = AcDbAttribute::cast(part.entity.get()))
            attributes.push_back(attribute);
    return attributes;
}

std::vector<AcDbAttribute*> attributesForChange(AcDbBlockReference& reference) {
    std::vector<AcDbAttribute*> attributes;
    if (reference.parts() == nullptr) return attributes;
    for (const InsertPart& part : reference.partsForChange().list)
        if (auto* const attribute = AcDbAttribute::cast(part.entity.get()))
            attributes.push_back(attribute);
    return attributes;
}

std::vector<AcDbObjectId> attributeDefinitions(AcDbObjectId block) {
    std::vector<AcDbObjectId> definitions;
    forEachInBlock(block, [&](AcDbEntity& entity) {
        if (entity.isA() == AcDbAttributeDefinition::desc())
            definitions.push_back(entity.objectId());
    });
    return definitions;
}

void appendOffered(AcDbBlockReference& reference) {
    for (const AcDbObjectId& id : attributeDefinitions(reference.blockTableRecord())) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (definition.openStatus() != Acad::eOk || definition->isConstant()) continue;
        auto attribute = std::make_unique<AcDbAttribute>();
        if (attribute->setAttributeFromBlock(definition.object(), reference.blockTransform()) ==
            Acad::eOk)
            (void)reference.appendAttribute(attribute.release());  // open for write
    }
}

Acad::ErrorStatus writeParts(AcDbDwgFiler& filer, const InsertParts* parts) {
    filer.writeBool(parts != nullptr);
    if (parts == nullptr) return filer.filerStatus();
    const bool undo = filer.filerType() == AcDb::kUndoFiler;
    filer.writeUInt32(static_cast<Adesk::UInt32>(parts->list.size()));
    for (const InsertPart& part : parts->list) {
        filer.writeBool(part.entity->isA() == ForeignEntity::desc());
        filer.writeItem(AcDbHandle(undo ? part.handle : 0));
        const Acad::ErrorStatus es = part.entity->dwgOutFields(&filer);
        if (es != Acad::eOk) return es;
    }
    filer.writeUInt32(static_cast<Adesk::UInt32>(undo ? parts->end.size() : 0));
    if (!undo) return filer.filerStatus();
    for (const RawTag& tag : parts->end) {
        filer.writeInt32(tag.code);
        writeNarrow(filer, tag.value);
    }
    return filer.filerStatus();
}

Acad::ErrorStatus readParts(AcDbDwgFiler& filer, std::unique_ptr<InsertParts>& parts) {
    parts.reset();
    bool any = false;
    filer.readBool(&any);
    if (!any) return filer.filerStatus();
    parts = std::make_unique<InsertParts>();
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    for (; count > 0 && filer.filerStatus() == Acad::eOk; --count) {
        bool foreign = false;
        filer.readBool(&foreign);
        InsertPart part;
        if (foreign)
            part.entity = std::make_unique<ForeignEntity>();
        else
            part.entity = std::make_unique<AcDbAttribute>();
        AcDbHandle handle;
        filer.readItem(&handle);
        part.handle = handle.value();
        const Acad::ErrorStatus es = part.entity->dwgInFields(&filer);
        if (es != Acad::eOk) return es;
        parts->list.push_back(std::move(part));
    }
    filer.readUInt32(&count);
    for (; count > 0 && filer.filerStatus() == Acad::eOk; --count) {
        Adesk::Int32 code = 0;
        filer.readInt32(&code);
        parts->end.push_back({code, readNarrow(filer)});
    }
    return filer.filerStatus();
}

Acad::ErrorStatus movedParts(const InsertParts& parts, const AcGeMatrix3d& by, InsertParts& moved) {
    moved.end = parts.end;
    for (const InsertPart& part : parts.list) {
        AcDbEntity* copy = nullptr;
        const Acad::ErrorStatus es = part.entity->getTransformedCopy(by, copy);
        std::unique_ptr<AcDbEntity> made(copy);
        if (es != Acad::eOk) return es;
        moved.list.push_back({std::move(made), part.handle});
    }
    return Acad::eOk;
}

Picture partsPicture(const InsertParts& parts, const PictureTraits& reference,
                     const AcDbDatabase* database) {
    const BlockInheritance inheritance(reference, database);
    Picture all;
    for (const InsertPart& part : parts.list)
        if (part.entity->visibility() != AcDb::kInvisible) all.append(pictureOf(*part.entity));
    for (std::uint32_t i = 0; i < all.allTraits().size(); ++i)
        all.setTraits(i, inheritance.resolved(all.allTraits()[i]));
    return all;
}

}  // namespace prancheta
