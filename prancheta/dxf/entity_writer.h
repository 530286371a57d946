// SPDX-License-Identifier: MIT
// Writes entities: head, groups of the type, extended data.
#pragma once

#include <map>

#include "prancheta/dxf/entity_types.h"
#include "prancheta/dxf/handle_source.h"
#include "prancheta/entities/filed_dimension.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::dxf {

/// Where an entity stands.
struct Place {
    Adesk::UInt64 owner = 0;  ///< block record
    bool paper = false;
    Adesk::UInt64 handle = 0;  ///< of an entity that is not in the drawing; 0: its own
    bool newParts = false;     ///< what belongs to it gets handles of its own, too
};

class EntityWriter {
public:
    EntityWriter(TagWriter& out, SaveNames& names, HandleSource& handles, std::string version)
        : m_out(out), m_names(names), m_handles(handles), m_version(std::move(version)) {}

    /// An entity of a type with a class here, or one that is kept group by group.
    void write(const AcDbEntity& entity, const Place& place);
    /// A dimension that is kept group by group, with the name of the block of its picture.
    void writeDimension(const ForeignEntity& dimension, const std::string& block,
                        const Place& place);
    /// A dimension that nobody changed since another program's file was read.
    void writeFiled(const AcDbDimension& dimension, const FiledDimension& filed,
                    const Place& place);
    /// The aligned dimension with the name of the block of its picture.
    void writeDimension(const AcDbEntity& original, const AcDbEntity& asFiled,
                        const std::string& block, const Place& place);

    /// What entities and layers lost, because the release does not hold it, and how many of them.
    const std::map<std::string_view, std::size_t>& losses() const { return m_losses; }
    /// Counts what these groups of a record lose.
    void countLosses(std::string_view type, const RawTags& tags, std::size_t first = 0,
                     std::size_t last = std::string::npos);

    /// Everything before the groups of the type. `dictionary` 0: the entity's own.
    void head(std::string_view type, const AcDbEntity& entity, const Place& place,
              Adesk::UInt64 dictionary = 0);
    /// Groups {ACAD_XDICTIONARY and {ACAD_REACTORS of any object.
    void links(const ObjectExtra* extra, Adesk::UInt64 dictionary = 0);
    /// Groups of applications that stand before the owner; returns the first group behind them.
    std::size_t applicationGroups(const RawTags& foreign);
    void xdata(const AcDbEntity& entity);
    /// With the own scale of what follows a dimension style; 0 for none.
    void scaledXdata(const AcDbEntity& entity, double dimscale);
    /// Records that are kept group by group, from group `first` on, with their owner. One that is
    /// there a second time, in a copy of what it belongs to, gets a handle of its own.
    void parts(const RawTags& tags, std::size_t first, Adesk::UInt64 owner, bool renamed = false);

private:
    void common(const AcDbEntity& entity, const Place& place, int color);
    /// The attributes of a reference, and what ends them.
    void writeParts(const InsertParts& parts, const AcDbEntity& reference, const Place& place);
    void writeForeign(const ForeignEntity& entity, const RawTags& tags, const Place& place);
    /// Without the objects that an entity of this handle names as its own and that are not.
    RawTags own(const RawTags& tags, Adesk::UInt64 owner) const;
    /// Groups [first, last) of a record of this type, without what the release does not know.
    void raw(std::string_view type, const RawTags& tags, std::size_t first, std::size_t last);

    TagWriter& m_out;
    SaveNames& m_names;
    HandleSource& m_handles;
    std::string m_version;
    Values m_values;
    std::map<std::string_view, std::size_t> m_losses;
};

}  // namespace prancheta::dxf
