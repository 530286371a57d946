// SPDX-License-Identifier: MIT
// Section ENTITIES, and entities in blocks.
#include <algorithm>

#include "dblead.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/piece_plan.h"
#include "prancheta/dxf/upgrade.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::dxf {
namespace {

/// True for INSERT with attributes and for old polylines: more records follow, up to SEQEND.
bool hasParts(std::string_view type, const Tags& body) {
    if (type == "POLYLINE") return true;
    if (type != "INSERT") return false;
    return std::any_of(body.begin(), body.end(), [](const Tag& tag) {
        long long value = 0;
        return tag.code == 66 && parseInteger(tag.value, value) && value != 0;
    });
}

/// An attribute is no object of the drawing: what its head says of others stays text.
void keepLinks(const RecordHead& head, AcDbEntity& attribute) {
    RawTags links;
    const auto keep = [&links](const char* group, int code, Adesk::UInt64 handle) {
        links.insert(links.end(), {{102, group}, {code, handleText(handle)}, {102, "}"}});
    };
    if (head.dictionary != 0) keep("{ACAD_XDICTIONARY", 360, head.dictionary);
    for (const Adesk::UInt64 reactor : head.reactors) keep("{ACAD_REACTORS", 330, reactor);
    if (links.empty()) return;
    RawTags& kept = ObjectAccess::makeExtra(attribute).foreign;
    kept.insert(kept.begin(), links.begin(), links.end());
}

bool isByLayer(std::string_view linetype) { return equalNoCase(toWide(linetype), L"ByLayer"); }

}  // namespace

bool Loader::readEntities() {
    while (nextIn(m_reader, m_record, "ENTITIES", "ENDSEC"))
        if (!readEntity(m_reader, m_record, m_core.modelSpaceId())) return false;
    return !m_fault;
}

bool Loader::readEntity(TagReader& reader, const Record& record, AcDbObjectId owner) {
    if (!splitEntity(record, m_head, m_fault)) return false;
    if (m_head.paper && owner == m_core.modelSpaceId()) owner = m_core.paperSpaceId();
    m_parts.clear();
    if (hasParts(record.type, m_head.body) && !readParts(reader)) return false;
    if (entityTypeNamed(record.type) == nullptr) return readForeign(record, owner);
    if (record.type == "INSERT" && m_parts.empty() && !m_head.xdata.empty()) {
        std::string_view pictureBlock;
        std::unique_ptr<AcDbEntity> piece = readPiece(pictureBlock);
        if (m_fault) return false;
        if (piece != nullptr) {
            block(text(pictureBlock)).ofPicture = true;
            if (!keepExtra(*piece, {}, kPieceApplication)) return false;
            return append(std::move(piece), owner);
        }
    }
    const EntityType* const type = suitedType(record.type);
    if (m_fault) return false;
    if (type == nullptr) return readForeign(record, owner);
    std::unique_ptr<AcDbEntity> entity = type->make(m_values);
    if (entity == nullptr) return readForeign(record, owner);
    if (entity->isKindOf(AcDbDimension::desc()) && !isDrawnAsFiled(m_values.ids[0], m_head.xdata))
        return readForeign(record, owner);
    if (!keepExtra(*entity, m_rest)) return false;
    if (auto* const leader = AcDbLeader::cast(entity.get())) {
        if (ObjectAccess::extra(*leader) != nullptr) {
            RawTags xdata = ObjectAccess::extra(*leader)->xdata;
            (void)leader->setDimscale(takeDimscale(xdata));
            ObjectAccess::makeExtra(*leader).xdata = xdata;
            ObjectAccess::dropEmptyExtra(*leader);
        }
        m_leaders.push_back(leader);
    }
    if (auto* const dimension = AcDbDimension::cast(entity.get()))
        if (!takeDimension(record.type, *dimension)) return false;
    if (!m_parts.empty() && !takeParts(static_cast<AcDbBlockReference&>(*entity))) return false;
    return append(std::move(entity), owner);
}

/// The type of this name that the groups suit, its values read; null for none, or with a fault.
const EntityType* Loader::suitedType(std::string_view name) {
    for (const EntityType& type : entityTypes()) {
        if (name != type.name) continue;
        if (readFields(type.fields, m_head.body, *this, m_values, m_rest, m_fault) &&
            type.suits(m_values, m_rest))
            return &type;
        if (m_fault) return nullptr;
    }
    return nullptr;
}

bool Loader::readForeign(const Record& record, AcDbObjectId owner) {
    auto entity = std::make_unique<ForeignEntity>();
    RawTags tags;
    if (!appendRaw(tags, m_head.body, charset(), m_fault)) return false;
    if (!tags.empty() && tags.front().code != 100) addSubclassMarkers(record.type, tags);
    if (!keepExtra(*entity, {})) return false;
    if (!m_parts.empty()) {
        // Its parts name it as their owner, so it needs a handle at once.
        m_head.handle = claim(m_head.handle, record.at);
        if (m_head.handle == 0) m_head.handle = freshHandle();
        if (!keepParts(tags, m_head.handle)) return false;
    }
    wantBlocksOf(record.type, tags);
    (void)entity->setContent(decode(record.type, charset()), std::move(tags));
    return append(std::move(entity), owner);
}

bool Loader::readParts(TagReader& reader) {
    for (;;) {
        Record part;
        if (!nextIn(reader, part, "ENTITIES", "SEQEND") && m_fault) return false;
        const bool isPart = part.type == "VERTEX" || part.type == "ATTRIB" || part.type == "SEQEND";
        if (!isPart) return bad(part.at, "esperado SEQEND depois dos vértices ou atributos");
        m_parts.push_back(std::move(part));
        if (m_parts.back().type == "SEQEND") return true;
    }
}

bool Loader::keepParts(RawTags& tags, Adesk::UInt64 owner) {
    for (const Record& record : m_parts) {
        RawTags part{{0, std::string(record.type)}};
        if (!appendRaw(part, record.tags, charset(), m_fault)) return false;
        completePart(part, owner, [this] { return freshHandle(); });
        tags.insert(tags.end(), std::make_move_iterator(part.begin()),
                    std::make_move_iterator(part.end()));
    }
    return true;
}

bool Loader::takeParts(AcDbBlockReference& reference) {
    const RecordHead head = std::exchange(m_head, {});
    InsertParts& parts = reference.partsForChange();
    const Record end = std::move(m_parts.back());
    m_parts.pop_back();
    for (const Record& record : m_parts) {
        std::unique_ptr<AcDbEntity> part = readPart(record);
        if (part == nullptr) return false;
        parts.list.push_back({std::move(part), m_head.handle});
    }
    m_head = head;
    m_parts.assign(1, end);
    return keepParts(parts.end, m_head.handle);
}

/// Null at a fault only: what the class does not hold is kept group by group.
std::unique_ptr<AcDbEntity> Loader::readPart(const Record& record) {
    if (!splitEntity(record, m_head, m_fault)) return nullptr;
    const EntityType* const type = entityTypeNamed(record.type);
    std::unique_ptr<AcDbEntity> entity;
    if (type != nullptr &&
        readFields(type->fields, m_head.body, *this, m_values, m_rest, m_fault) &&
        type->suits(m_values, m_rest)) {
        entity = type->make(m_values);
    } else {
        RawTags tags;
        if (m_fault || !appendRaw(tags, m_head.body, charset(), m_fault)) return nullptr;
        if (!tags.empty() && tags.front().code != 100) addSubclassMarkers(record.type, tags);
        auto foreign = std::make_unique<ForeignEntity>();
        (void)foreign->setContent(decode(record.type, charset()), std::move(tags));
        entity = std::move(foreign);
        m_rest.clear();
    }
    if (!keepExtra(*entity, m_rest)) return nullptr;
    keepLinks(m_head, *entity);
    applyHead(*entity);
    return entity;
}

/// Names of blocks in groups that nobody here understands: anonymous blocks are read for them.
void Loader::wantBlocksOf(std::string_view type, const RawTags& tags) {
    for (const RawTag& tag : tags) {
        const std::string_view name = tag.code == 2 ? trim(tag.value) : std::string_view();
        if (name.empty() || (type != "INSERT" && name.front() != '*')) continue;
        (void)makeBlock(block(decodeText(name, Charset::Utf8)));
        if (type == "INSERT") return;
    }
}

Adesk::UInt64 Loader::freshHandle() {
    const Adesk::UInt64 handle = m_core.nextHandle();
    m_core.reserveHandle(handle);
    return handle;
}

void Loader::applyHead(AcDbEntity& entity) {
    ObjectAccess::setLayer(entity, LoadNames::find(kLayer, m_head.layer));
    if (!m_head.linetype.empty() && !isByLayer(m_head.linetype))
        ObjectAccess::setLinetype(entity, LoadNames::find(kLinetype, m_head.linetype));
    if (m_head.color >= 0 && m_head.color <= 256)
        ObjectAccess::setColor(entity, static_cast<Adesk::UInt16>(m_head.color));
    if (m_head.linetypeScale > 0.0) ObjectAccess::setLinetypeScale(entity, m_head.linetypeScale);
    ObjectAccess::setLineWeight(entity, static_cast<Adesk::Int16>(m_head.lineWeight));
    ObjectAccess::setVisible(entity, !m_head.invisible);
}

bool Loader::keepExtra(AcDbObject& object, const Tags& rest, std::string_view withoutApplication) {
    if (m_head.extra.empty() && rest.empty() && m_head.xdata.empty()) return true;
    RawTags foreign;
    RawTags xdata;
    if (!appendRaw(foreign, m_head.extra, charset(), m_fault)) return false;
    if (!appendRaw(foreign, rest, charset(), m_fault)) return false;
    Tags wanted;
    bool keep = true;
    for (const Tag& tag : m_head.xdata) {
        if (tag.code == 1001)
            keep = withoutApplication.empty() || trim(tag.value) != withoutApplication;
        if (keep) wanted.push_back(tag);
    }
    if (!appendRaw(xdata, wanted, charset(), m_fault)) return false;
    if (foreign.empty() && xdata.empty()) return true;
    ObjectExtra& extra = ObjectAccess::makeExtra(object);
    if (!foreign.empty()) {
        RawTags& kept = extra.foreign;
        kept.insert(kept.end(), std::make_move_iterator(foreign.begin()),
                    std::make_move_iterator(foreign.end()));
    }
    extra.xdata = xdata;
    return true;
}

bool Loader::append(std::unique_ptr<AcDbEntity> entity, AcDbObjectId owner) {
    applyHead(*entity);
    const Adesk::UInt64 handle = claim(m_head.handle, m_head.at);
    AcDbObjectId id;
    AcDbEntity* const added = entity.get();
    if (m_core.appendWithHandle(owner, added, handle, id) != Acad::eOk)
        return bad(nullptr, "não foi possível acrescentar um objeto ao desenho");
    (void)entity.release();  // the database has it now
    added->close();
    if (handle == 0) m_automatic.insert(id);
    if (!m_head.reactors.empty() || m_head.dictionary != 0)
        m_later.push_back({added, m_head.reactors, m_head.dictionary, isPiece(*added)});
    return true;
}

}  // namespace prancheta::dxf
