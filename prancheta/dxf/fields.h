// SPDX-License-Identifier: MIT
// What the groups of a type mean, as tables, and the general code that reads and writes by them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "dbid.h"
#include "gepnt3d.h"
#include "prancheta/dxf/load_names.h"
#include "prancheta/dxf/save_names.h"
#include "prancheta/dxf/tag.h"
#include "prancheta/dxf/tag_writer.h"
#include "prancheta/geometry/degrees.h"

namespace prancheta::dxf {

enum class Meaning : std::uint8_t {
    Marker,        ///< group 100 with the name given
    Point,         ///< world coordinates: code, code + 10, code + 20
    PlanePoint,    ///< the same in the plane frame of the normal; written in the world's in Values
    AlignedPoint,  ///< plane point that is written only when a text is justified (integers 0 and 1)
    Real,
    Degrees,  ///< radians in Values
    Integer,
    Text,
    LongText,   ///< a text whose first parts stand before it, see TextPart
    TextPart,   ///< 3, repeated: written by the LongText behind it
    TextStyle,  ///< names of records, ids in Values
    DimStyle,
    Block,
    Linetype,
    StyleHandle,  ///< the same by handle
    Reference,    ///< an entity by handle, left out when there is none
    References,   ///< the same, repeated
    Normal,       ///< 210; left out when it is the z axis
    Vertices,     ///< 10 and 20, repeated, with what follows
    Places,       ///< 10, 20 and 30 of the world, repeated
    VertexStart,
    VertexEnd,
    VertexBulge,
    Ordered,  ///< all groups of the type up to the first one of this code, as they stand: what they
              ///< mean depends on where they are
    Dashes,   ///< 49, repeated, each followed by 74 0
    Default,  ///< whole number or real that the class does not hold: kept, or written as standard
    DefaultText,    ///< the same for a text, `name` is the standard
    DefaultHandle,  ///< the same for a handle, integers say which, a negative one writes none
    Nested,   ///< 101: what comes behind is an object inside this one, of which the integer is 71
    Ignored,  ///< follows from the rest: read over, and written by the type's own code or not at
              ///< all
};

/// One group of a type. `slot` is the place among the values of its kind; `optional` groups are not
/// written when they have the standard value.
struct Field {
    int code;
    Meaning meaning;
    std::uint8_t slot = 0;
    bool optional = false;
    double standard = 0.0;
    const char* name = nullptr;
};

constexpr Field marker(const char* name) { return {100, Meaning::Marker, 0, false, 0.0, name}; }
/// A value that the class does not hold: kept, or written as `standard`, in the unit of the file.
constexpr Field defaultField(int code, double standard) {
    return {code, Meaning::Default, 0, false, standard, nullptr};
}
/// Written only when it differs from `standard`, in the unit of the file (angles in degrees).
constexpr Field optionalField(int code, Meaning meaning, int slot, double standard) {
    return {code, meaning, static_cast<std::uint8_t>(slot), true, standard, nullptr};
}

struct FieldVertex {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

/// Values of one object between its class and the file; reused, so that reading allocates little.
struct Values {
    static constexpr std::size_t kSlots = 16;
    AcGePoint3d points[6];
    double reals[kSlots] = {};
    long long integers[kSlots] = {};
    std::wstring texts[3];
    std::string textParts;  ///< as they stand in the file
    AcDbObjectId ids[4];
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::vector<FieldVertex> vertices;
    std::vector<double> dashes;
    RawTags ordered;
    std::vector<AcDbObjectId> references;  ///< also objects of the groups 330 among `ordered`

    /// Standard values of all fields, everything else empty.
    void reset(std::span<const Field> fields);
};

/// Fills the values from groups; those that no field names go to `rest`, each run behind the marker
/// of its subclass. A bad value gives the fault and false. A marker that the table does not have:
/// false with no fault, the type is another than the table's.
bool readFields(std::span<const Field> fields, const Tags& body, LoadNames& names, Values& values,
                Tags& rest, std::optional<Fault>& fault);

/// Writes the groups; behind the groups of each subclass come its groups in `kept` from `first` on,
/// which are what readFields() left in `rest`.
void writeFields(std::span<const Field> fields, const Values& values, SaveNames& names,
                 TagWriter& out, const RawTags* kept, std::size_t first);

}  // namespace prancheta::dxf
