// SPDX-License-Identifier: MIT
// Writes entities.
#include "prancheta/dxf/entity_writer.h"

#include <algorithm>

#include "dblead.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/dxf/releases.h"

namespace prancheta::dxf {
namespace {

const RawTags kNoTags;

const RawTags& foreignOf(const AcDbObject& object) {
    const ObjectExtra* const extra = ObjectAccess::extra(object);
    return extra != nullptr ? extra->foreign : kNoTags;
}

/// First group of the subclasses behind the common ones.
std::size_t firstMarker(const RawTags& foreign) {
    std::size_t at = 0;
    while (at < foreign.size() && foreign[at].code != 100) ++at;
    return at;
}

Adesk::UInt64 handleOf(const AcDbEntity& entity, const Place& place) {
    return place.handle != 0 ? place.handle : entity.objectId().handle().value();
}

/// The next marker or record.
std::size_t endOfSubclass(const RawTags& tags, std::size_t at) {
    while (at < tags.size() && tags[at].code != 100 && tags[at].code != 0) ++at;
    return at;
}

}  // namespace

void EntityWriter::raw(std::string_view type, const RawTags& tags, std::size_t first,
                       std::size_t last) {
    countLosses(type, tags, first, last);
    for (std::size_t i = first; i < last; ++i)
        if (!isUnknownGroup(m_version, type, tags[i].code)) m_out.raw(tags[i].code, tags[i].value);
}

RawTags EntityWriter::own(const RawTags& tags, Adesk::UInt64 owner) const {
    constexpr int kFirstOwned = 360;
    constexpr int kLastOwned = 369;
    RawTags kept = tags;
    std::erase_if(kept, [&](const RawTag& tag) {
        std::uint64_t handle = 0;
        return tag.code >= kFirstOwned && tag.code <= kLastOwned &&
               parseHandle(tag.value, handle) && !m_handles.mayOwn(owner, handle);
    });
    // Nothing is left of an extension dictionary but the braces.
    for (std::size_t i = 0; i + 1 < kept.size(); ++i)
        if (kept[i].value == "{ACAD_XDICTIONARY" && kept[i + 1].value == "}")
            kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(i),
                       kept.begin() + static_cast<std::ptrdiff_t>(i + 2));
    return kept;
}

void EntityWriter::countLosses(std::string_view type, const RawTags& tags, std::size_t first,
                               std::size_t last) {
    for (std::size_t i = first; i < std::min(last, tags.size()); ++i)
        if (const std::string_view what = lossOf(m_version, type, tags[i]); !what.empty())
            ++m_losses[what];
}

void EntityWriter::links(const ObjectExtra* extra, Adesk::UInt64 dictionary) {
    if (dictionary == 0 && extra != nullptr) dictionary = m_handles.of(extra->extensionDictionary);
    if (dictionary != 0) {
        m_out.text(102, "{ACAD_XDICTIONARY");
        m_out.handle(360, dictionary);
        m_out.text(102, "}");
    }
    if (extra == nullptr) return;
    bool open = false;
    for (const AcDbObjectId id : extra->reactors) {
        const Adesk::UInt64 handle = m_handles.of(id);
        if (handle == 0) continue;
        if (!open) m_out.text(102, "{ACAD_REACTORS");
        open = true;
        m_out.handle(330, handle);
    }
    if (open) m_out.text(102, "}");
}

std::size_t EntityWriter::applicationGroups(const RawTags& foreign) {
    std::size_t at = 0;
    while (at < foreign.size() && foreign[at].code == 102) {
        do {
            m_out.raw(foreign[at].code, foreign[at].value);
            ++at;
            // A group that is left open ends where another part of the record begins.
        } while (at < foreign.size() && foreign[at - 1].value != "}" && foreign[at].code != 100 &&
                 foreign[at].code != 0);
    }
    return at;
}

void EntityWriter::common(const AcDbEntity& entity, const Place& place, int color) {
    static const std::string kLayerZero = "0";
    if (place.paper) m_out.integer(67, 1);
    m_out.text(8, m_names.of(ObjectAccess::layer(entity), kLayerZero));
    const AcDbObjectId linetype = ObjectAccess::linetype(entity);
    if (!linetype.isNull() && !linetype.isErased() &&
        (entity.database() == nullptr || linetype != entity.database()->byLayerLinetype()))
        m_out.text(6, m_names.of(linetype));
    if (color != 256) m_out.integer(62, color);
    if (entity.linetypeScale() != 1.0) m_out.real(48, entity.linetypeScale());
    if (entity.lineWeight() != AcDb::kLnWtByLayer) m_out.integer(370, entity.lineWeight());
    if (entity.visibility() == AcDb::kInvisible) m_out.integer(60, 1);
}

void EntityWriter::head(std::string_view type, const AcDbEntity& entity, const Place& place,
                        Adesk::UInt64 dictionary) {
    m_out.text(0, type);
    m_out.handle(5, handleOf(entity, place));
    const RawTags& foreign = foreignOf(entity);
    const std::size_t first = applicationGroups(foreign);
    links(ObjectAccess::extra(entity), dictionary);
    m_out.handle(330, place.owner);
    m_out.marker("AcDbEntity");
    const std::size_t last = firstMarker(foreign);
    common(entity, place,
           indexOfTrueColor(m_version, foreign, first, last).value_or(entity.colorIndex()));
    raw(kAnyEntity, foreign, first, last);
}

void EntityWriter::xdata(const AcDbEntity& entity) {
    if (const ObjectExtra* const extra = ObjectAccess::extra(entity)) m_out.raw(extra->xdata);
}

void EntityWriter::scaledXdata(const AcDbEntity& entity, double dimscale) {
    if (dimscale == 0.0) return xdata(entity);
    const ObjectExtra* const extra = ObjectAccess::extra(entity);
    RawTags data = extra != nullptr ? RawTags(extra->xdata) : RawTags();
    putDimscale(data, dimscale);
    m_out.raw(data);
}

void EntityWriter::parts(const RawTags& tags, std::size_t first, Adesk::UInt64 owner,
                         bool renamed) {
    bool head = false;  // before the first marker
    bool named = false;
    bool owned = false;
    bool inGroup = false;
    bool common = false;  // between AcDbEntity and the marker behind it
    std::optional<int> color;
    for (std::size_t i = first; i < tags.size(); ++i) {
        const RawTag& tag = tags[i];
        if (tag.code == 0) {
            head = true;
            named = owned = inGroup = false;
        }
        if (tag.code == 100 && head) {
            if (!owned) m_out.handle(330, owner);
            head = false;
        }
        if (tag.code == 100 || tag.code == 0) {
            common = tag.code == 100 && tag.value == "AcDbEntity";
            const std::size_t end = common ? endOfSubclass(tags, i + 1) : i;
            color = indexOfTrueColor(m_version, tags, i, end);
        }
        if (common && color && tag.code == 420) m_out.integer(62, *color);
        if (common &&
            ((color && tag.code == 62) || isUnknownGroup(m_version, kAnyEntity, tag.code)))
            continue;
        if (tag.code == 102) inGroup = tag.value != "}";
        std::uint64_t handle = 0;
        const bool own = head && !inGroup;
        if (own && tag.code == 5 && !named && parseHandle(tag.value, handle) && handle != 0) {
            named = true;
            m_out.handle(5, renamed ? m_handles.next() : m_handles.ofPart(handle));
        } else if (own && tag.code == 330) {
            owned = true;
            m_out.handle(330, owner);
        } else {
            m_out.raw(tag.code, tag.value);
        }
    }
}

void EntityWriter::write(const AcDbEntity& entity, const Place& place) {
    if (const auto* const kept = ForeignEntity::cast(&entity))
        return writeForeign(*kept, own(kept->tags(), handleOf(entity, place)), place);
    const EntityType& type = *entityTypeOf(entity);
    RawTags foreign = own(foreignOf(entity), handleOf(entity, place));
    countLosses(type.name, foreign, firstMarker(foreign));
    dropUnknownGroups(m_version, type.name, foreign);
    m_values.reset(type.fields);
    type.take(entity, m_values);
    head(type.name, entity, place);
    writeFields(type.fields, m_values, m_names, m_out, &foreign, firstMarker(foreign));
    const auto* const leader = AcDbLeader::cast(&entity);
    scaledXdata(entity, leader != nullptr ? leader->ownDimscale() : 0.0);
    const auto* const reference = AcDbBlockReference::cast(&entity);
    if (reference != nullptr && reference->parts() != nullptr)
        writeParts(*reference->parts(), entity, place);
}

void EntityWriter::writeParts(const InsertParts& parts, const AcDbEntity& reference,
                              const Place& place) {
    Place each = place;
    each.owner = handleOf(reference, place);
    const auto handleFor = [&](Adesk::UInt64 handle) {
        if (place.newParts) return m_handles.next();
        return handle != 0 ? m_handles.ofPart(handle) : m_handles.ofNewPart();
    };
    for (const InsertPart& part : parts.list) {
        each.handle = handleFor(part.handle);
        write(*part.entity, each);
    }
    if (!parts.end.empty()) return this->parts(parts.end, 0, each.owner, place.newParts);
    m_out.text(0, "SEQEND");
    m_out.handle(5, handleFor(0));
    m_out.handle(330, each.owner);
    m_out.marker("AcDbEntity");
    common(reference, place, 256);
}

void EntityWriter::writeForeign(const ForeignEntity& entity, const RawTags& tags,
                                const Place& place) {
    head(entity.typeName(), entity, place);
    // Extended data belongs to the main record, before its parts.
    std::size_t first = 0;
    while (first < tags.size() && tags[first].code != 0) ++first;
    raw(entity.typeName(), tags, 0, first);
    xdata(entity);
    parts(tags, first, handleOf(entity, place), place.newParts);
}

void EntityWriter::writeDimension(const ForeignEntity& dimension, const std::string& block,
                                  const Place& place) {
    RawTags tags = dimension.tags();
    for (RawTag& tag : tags)
        if (tag.code == 2) tag.value = block;
    writeForeign(dimension, tags, place);
}

void EntityWriter::writeFiled(const AcDbDimension& dimension, const FiledDimension& filed,
                              const Place& place) {
    const EntityType& type = *entityTypeOf(dimension);
    RawTags tags = filed.tags;
    // Records may have got other names.
    for (RawTag& tag : tags) {
        if (tag.code == 2) tag.value = toUtf8(ObjectAccess::recordName(filed.block));
        if (tag.code == 3 && !dimension.dimensionStyle().isNull())
            tag.value = m_names.of(dimension.dimensionStyle());
    }
    head(type.name, dimension, place);
    raw(type.name, tags, 0, tags.size());
    RawTags taken = filed.xdata;
    const bool sameScale = takeDimscale(taken) == dimension.ownDimscale();
    const ObjectExtra* const extra = ObjectAccess::extra(dimension);
    const RawTags own = extra != nullptr ? RawTags(extra->xdata) : RawTags();
    const bool same = std::ranges::equal(taken, own, [](const RawTag& a, const RawTag& b) {
        return a.code == b.code && a.value == b.value;
    });
    if (sameScale && same) return m_out.raw(filed.xdata);
    scaledXdata(dimension, dimension.ownDimscale());
}

void EntityWriter::writeDimension(const AcDbEntity& original, const AcDbEntity& asFiled,
                                  const std::string& block, const Place& place) {
    const EntityType& type = *entityTypeOf(asFiled);
    const RawTags& foreign = foreignOf(original);
    m_values.reset(type.fields);
    type.take(asFiled, m_values);
    m_values.texts[1].assign(block.begin(), block.end());
    head(type.name, original, place);
    writeFields(type.fields, m_values, m_names, m_out, &foreign, firstMarker(foreign));
    scaledXdata(original, static_cast<const AcDbDimension&>(asFiled).ownDimscale());
    // Of other kinds the last point is the same in both.
    const AcGePoint3d through =
        static_cast<const AcDbDimension&>(original).definitionPoints().back();
    const AcGePoint3d filed = static_cast<const AcDbDimension&>(asFiled).definitionPoints().back();
    if (through.x == filed.x && through.y == filed.y && through.z == filed.z) return;
    m_out.text(1001, kPieceApplication);
    m_out.point(1011, through);
}

}  // namespace prancheta::dxf
