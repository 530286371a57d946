// SPDX-License-Identifier: MIT
// Reading and writing groups by the table of a type.
#include "prancheta/dxf/fields.h"

#include <algorithm>
#include <cmath>

#include "prancheta/dxf/entity_head.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::dxf {
namespace {

constexpr bool isPoint(Meaning meaning) {
    return meaning == Meaning::Point || meaning == Meaning::PlanePoint ||
           meaning == Meaning::AlignedPoint || meaning == Meaning::Normal ||
           meaning == Meaning::Vertices || meaning == Meaning::Places;
}

/// Field of a code; for the second and third number of a point, `axis` 1 and 2.
const Field* fieldOf(std::span<const Field> fields, int code, int& axis) {
    axis = 0;
    for (const Field& field : fields)
        if (field.code == code && field.meaning != Meaning::Marker &&
            field.meaning != Meaning::Ordered)
            return &field;
    for (axis = 1; axis <= 2; ++axis)
        for (const Field& field : fields)
            if (isPoint(field.meaning) && field.code == code - 10 * axis) return &field;
    return nullptr;
}

constexpr bool isDefault(Meaning meaning) {
    return meaning == Meaning::Default || meaning == Meaning::DefaultText ||
           meaning == Meaning::DefaultHandle;
}

const Field* orderedOf(std::span<const Field> fields) {
    for (const Field& field : fields)
        if (field.meaning == Meaning::Ordered) return &field;
    return nullptr;
}

const Field* markerOf(std::span<const Field> fields, std::string_view name) {
    for (const Field& field : fields)
        if (field.meaning == Meaning::Marker && name == field.name) return &field;
    return nullptr;
}

double& coordinate(AcGePoint3d& p, int axis) { return axis == 0 ? p.x : axis == 1 ? p.y : p.z; }
double& coordinate(AcGeVector3d& v, int axis) { return axis == 0 ? v.x : axis == 1 ? v.y : v.z; }

std::string_view bare(std::string_view name) {
    while (!name.empty() && (name.back() == ' ' || name.back() == '\t')) name.remove_suffix(1);
    while (!name.empty() && (name.front() == ' ' || name.front() == '\t')) name.remove_prefix(1);
    return name;
}

void setVertex(Values& values, Meaning meaning, int axis, double number) {
    if ((meaning == Meaning::Vertices || meaning == Meaning::Places) && axis == 0) {
        values.vertices.push_back({.x = number});
        return;
    }
    if (values.vertices.empty()) return;
    FieldVertex& v = values.vertices.back();
    if ((meaning == Meaning::Vertices || meaning == Meaning::Places) && axis == 1) v.y = number;
    if (meaning == Meaning::Places && axis == 2) v.z = number;
    if (meaning == Meaning::VertexStart) v.startWidth = number;
    if (meaning == Meaning::VertexEnd) v.endWidth = number;
    if (meaning == Meaning::VertexBulge) v.bulge = number;
}

void setNumber(Values& values, const Field& field, int axis, double number) {
    switch (field.meaning) {
        case Meaning::Point:
        case Meaning::PlanePoint:
        case Meaning::AlignedPoint:
            coordinate(values.points[field.slot], axis) = number;
            break;
        case Meaning::Normal:
            coordinate(values.normal, axis) = number;
            break;
        case Meaning::Real:
            values.reals[field.slot] = number;
            break;
        case Meaning::Degrees:
            values.reals[field.slot] = radiansOf(number);
            break;
        case Meaning::Dashes:
            values.dashes.push_back(number);
            break;
        default:
            setVertex(values, field.meaning, axis, number);
            break;
    }
}

void setOther(Values& values, const Field& field, const Tag& tag, LoadNames& names) {
    switch (field.meaning) {
        case Meaning::Text:
            values.texts[field.slot] = names.text(tag.value);
            break;
        case Meaning::TextPart:
            values.textParts += tag.value;
            break;
        case Meaning::LongText:
            values.texts[field.slot] = names.text(values.textParts.append(tag.value));
            break;
        case Meaning::TextStyle:
            values.ids[field.slot] = names.find(LoadNames::kTextStyle, bare(tag.value));
            break;
        case Meaning::DimStyle:
            values.ids[field.slot] = names.find(LoadNames::kDimStyle, bare(tag.value));
            break;
        case Meaning::Block:
            values.ids[field.slot] = names.find(LoadNames::kBlock, bare(tag.value));
            break;
        case Meaning::Linetype:
            values.ids[field.slot] = names.find(LoadNames::kLinetype, bare(tag.value));
            break;
        case Meaning::StyleHandle:
        case Meaning::Reference:
            values.ids[field.slot] = names.byHandle(tag.value);
            break;
        case Meaning::References:
            values.references.push_back(names.byHandle(tag.value));
            break;
        default:
            break;
    }
}

bool readValue(Values& values, const Field& field, int axis, const Tag& tag, LoadNames& names) {
    if (field.meaning == Meaning::Integer)
        return parseInteger(tag.value, values.integers[field.slot]);
    if (kindOf(tag.code) == ValueKind::Real && field.meaning != Meaning::Ignored) {
        double number = 0.0;
        if (!parseReal(tag.value, number)) return false;
        setNumber(values, field, axis, number);
        return true;
    }
    setOther(values, field, tag, names);
    return true;
}

/// Plane points are in the frame of the normal while they are in the file.
void convertPlanePoints(std::span<const Field> fields, Values& values) {
    if (values.normal.isZeroLength()) values.normal = AcGeVector3d::kZAxis;
    const AcGeVector3d& n = values.normal;
    if (n.x == 0.0 && n.y == 0.0 && n.z > 0.0) {
        values.normal = AcGeVector3d::kZAxis;
        return;
    }
    const AcGeMatrix3d toWorld = planeToWorld(n);
    for (const Field& field : fields)
        if (field.meaning == Meaning::PlanePoint || field.meaning == Meaning::AlignedPoint)
            values.points[field.slot].transformBy(toWorld);
}

/// The groups from 101 on.
bool readNested(const Field& field, std::span<const Tag> nested, Values& values,
                std::optional<Fault>& fault) {
    std::string why;
    for (const Tag& tag : nested) {
        const bool good = tag.code == 71 ? parseInteger(tag.value, values.integers[field.slot])
                                         : checkValue(tag, why);
        if (!good) fault = Fault{complaintAbout(tag), tag.value.data()};
        if (!good || tag.code == 71) return good;
    }
    return true;
}

class FieldWriter {
public:
    FieldWriter(const Values& values, SaveNames& names, TagWriter& out, const RawTags* kept)
        : m_values(values), m_names(names), m_out(out), m_kept(kept) {
        const AcGeVector3d& n = values.normal;
        m_tilted = n.x != 0.0 || n.y != 0.0 || n.z <= 0.0;
        if (m_tilted) m_toPlane = planeToWorld(n).inverse();
    }

    void write(const Field& field) {
        static const std::string kStandard = "Standard";
        static const std::string kContinuous = "Continuous";
        const int code = field.code;
        switch (field.meaning) {
            case Meaning::Marker:
                return m_out.marker(field.name);
            case Meaning::Point:
                return m_out.point(code, m_values.points[field.slot]);
            case Meaning::AlignedPoint:
                if (m_values.integers[0] == 0 && m_values.integers[1] == 0) return;
                [[fallthrough]];
            case Meaning::PlanePoint:
                return m_out.point(code, inPlane(m_values.points[field.slot]));
            case Meaning::Normal:
                if (!m_tilted) return;
                return m_out.point(
                    code, AcGePoint3d(m_values.normal.x, m_values.normal.y, m_values.normal.z));
            case Meaning::Real:
                return writeReal(field, m_values.reals[field.slot]);
            case Meaning::Degrees:
                if (field.optional && m_values.reals[field.slot] == field.standard) return;
                return m_out.real(code, degreesOf(m_values.reals[field.slot]));
            case Meaning::Integer:
                if (field.optional &&
                    m_values.integers[field.slot] == static_cast<long long>(field.standard))
                    return;
                return m_out.integer(code, m_values.integers[field.slot]);
            case Meaning::Text:
                if (field.optional && m_values.texts[field.slot].empty()) return;
                return m_out.meaning(code, m_values.texts[field.slot]);
            case Meaning::LongText:
                return writeLongText(code, m_values.texts[field.slot]);
            case Meaning::TextStyle:
            case Meaning::DimStyle:
                return writeName(field, kStandard);
            case Meaning::Block:
                return writeName(field, {});
            case Meaning::Linetype:
                return writeName(field, kContinuous);
            case Meaning::StyleHandle:
                if (field.optional && m_values.ids[field.slot].isNull()) return;
                if (!m_values.ids[field.slot].isErased())
                    m_out.handle(code, m_values.ids[field.slot].handle().value());
                return;
            case Meaning::Reference:
                if (!m_values.ids[field.slot].isNull() && !m_values.ids[field.slot].isErased())
                    m_out.handle(code, m_values.ids[field.slot].handle().value());
                return;
            case Meaning::References:
                for (const AcDbObjectId& id : m_values.references)
                    if (!id.isNull() && !id.isErased()) m_out.handle(code, id.handle().value());
                return;
            case Meaning::Vertices:
                return writeVertices();
            case Meaning::Places:
                for (const FieldVertex& v : m_values.vertices) m_out.point(code, {v.x, v.y, v.z});
                return;
            case Meaning::Dashes:
                for (const double dash : m_values.dashes) {
                    m_out.real(49, dash);
                    m_out.integer(74, 0);
                }
                return;
            case Meaning::Ordered:
                for (const RawTag& tag : m_values.ordered) writeOrdered(tag);
                return;
            case Meaning::Default:
            case Meaning::DefaultText:
            case Meaning::DefaultHandle:
                return writeDefault(field);
            default:
                return;
        }
    }

private:
    bool isKept(int code) const {
        return m_kept != nullptr &&
               std::any_of(m_kept->begin(), m_kept->end(),
                           [code](const RawTag& tag) { return tag.code == code; });
    }

    void writeOrdered(const RawTag& tag) {
        double number = 0.0;
        if (kindOf(tag.code) == ValueKind::Real && parseReal(tag.value, number))
            m_out.real(tag.code, number);
        else
            m_out.raw(tag.code, tag.value);
    }

    void writeDefault(const Field& field) {
        if (isKept(field.code)) {
            for (const RawTag& tag : *m_kept)
                if (tag.code == field.code) m_out.raw(tag.code, tag.value);
            return;
        }
        const long long handle = m_values.integers[field.slot];
        if (field.meaning == Meaning::DefaultText)
            m_out.text(field.code, field.name);
        else if (field.meaning == Meaning::DefaultHandle && handle >= 0)
            m_out.handle(field.code, static_cast<Adesk::UInt64>(handle));
        else if (field.meaning == Meaning::Default && kindOf(field.code) == ValueKind::Real)
            m_out.real(field.code, field.standard);
        else if (field.meaning == Meaning::Default)
            m_out.integer(field.code, static_cast<long long>(field.standard));
    }

    /// In parts of 250 characters, of which the last has the code itself. No escaped character is
    /// parted.
    void writeLongText(int code, const std::wstring& text) {
        constexpr std::size_t kMost = 250;
        constexpr std::size_t kEscaped = 7;  // \U+XXXX
        std::size_t from = 0;
        std::size_t length = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool plain = text[i] >= 0x20 && text[i] < 0x7f && text[i] != L'^';
            const std::size_t room = plain ? 1 : kEscaped;
            // The halves of a character, and a backslash with its letter, stay together.
            const bool parted = i > 0 && (text[i - 1] == L'\\' || (text[i] & 0xFC00) == 0xDC00);
            if (length + room > kMost - kEscaped && !parted) {
                m_out.meaning(3, std::wstring_view(text).substr(from, i - from));
                from = i;
                length = 0;
            }
            length += room;
        }
        m_out.meaning(code, std::wstring_view(text).substr(from));
    }

    AcGePoint3d inPlane(const AcGePoint3d& p) const { return m_tilted ? m_toPlane * p : p; }

    void writeReal(const Field& field, double value) {
        if (!field.optional || value != field.standard) m_out.real(field.code, value);
    }

    void writeName(const Field& field, const std::string& otherwise) {
        const std::string& name = m_names.of(m_values.ids[field.slot], otherwise);
        if (field.optional && name == "Standard") return;
        m_out.text(field.code, name);
    }

    void writeVertices() {
        const bool widths = m_values.reals[1] == 0.0;
        for (const FieldVertex& v : m_values.vertices) {
            m_out.point2d(10, v.x, v.y);
            if (widths && (v.startWidth != 0.0 || v.endWidth != 0.0)) {
                m_out.real(40, v.startWidth);
                m_out.real(41, v.endWidth);
            }
            if (v.bulge != 0.0) m_out.real(42, v.bulge);
        }
    }

    const Values& m_values;
    SaveNames& m_names;
    TagWriter& m_out;
    const RawTags* m_kept;
    AcGeMatrix3d m_toPlane;
    bool m_tilted;
};

bool isDefaultCode(std::span<const Field> fields, int code) {
    return std::any_of(fields.begin(), fields.end(), [code](const Field& field) {
        return field.code == code && isDefault(field.meaning);
    });
}

/// Writes the kept groups of one subclass: from behind its marker to the next marker.
void writeKept(std::span<const Field> fields, const char* name, const RawTags& kept,
               std::size_t first, TagWriter& out) {
    bool inside = false;
    for (std::size_t i = first; i < kept.size(); ++i) {
        if (kept[i].code == 100 || kept[i].code == 0)
            inside = kept[i].code == 100 && kept[i].value == name;
        else if (inside && !isDefaultCode(fields, kept[i].code))
            out.raw(kept[i].code, kept[i].value);
    }
}

}  // namespace

void Values::reset(std::span<const Field> fields) {
    for (AcGePoint3d& p : points) p = AcGePoint3d::kOrigin;
    for (std::wstring& text : texts) text.clear();
    textParts.clear();
    for (AcDbObjectId& id : ids) id.setNull();
    for (double& real : reals) real = 0.0;
    for (long long& integer : integers) integer = 0;
    normal = AcGeVector3d::kZAxis;
    vertices.clear();
    dashes.clear();
    ordered.clear();
    references.clear();
    for (const Field& field : fields) {
        if (field.meaning == Meaning::Real || field.meaning == Meaning::Degrees)
            reals[field.slot] = field.standard;
        if (field.meaning == Meaning::Integer)
            integers[field.slot] = static_cast<long long>(field.standard);
    }
}

bool readFields(std::span<const Field> fields, const Tags& body, LoadNames& names, Values& values,
                Tags& rest, std::optional<Fault>& fault) {
    values.reset(fields);
    rest.clear();
    Tag segment{100, fields.empty() || fields[0].name == nullptr ? "" : fields[0].name};
    bool segmentKept = false;
    const Field* ordered = orderedOf(fields);
    for (const Tag& tag : body) {
        if (tag.code == 100) {
            if (markerOf(fields, bare(tag.value)) == nullptr) return false;
            if (bare(tag.value) != segment.value) segmentKept = false;
            segment = {100, bare(tag.value)};
            continue;
        }
        if (ordered != nullptr && tag.code == ordered->code) ordered = nullptr;
        if (ordered != nullptr) {
            if (!appendRaw(values.ordered, {tag}, names.charset(), fault)) return false;
            if (tag.code == 330) values.references.push_back(names.byHandle(tag.value));
            continue;
        }
        int axis = 0;
        std::string why;
        const Field* field = fieldOf(fields, tag.code, axis);
        if (field != nullptr && field->meaning == Meaning::Nested) {
            if (!readNested(*field, {&tag, body.data() + body.size()}, values, fault)) return false;
            break;
        }
        if (field != nullptr && isDefault(field->meaning)) field = nullptr;
        const bool good =
            field != nullptr ? readValue(values, *field, axis, tag, names) : checkValue(tag, why);
        if (!good) {
            fault = Fault{complaintAbout(tag), tag.value.data()};
            return false;
        }
        if (field != nullptr) continue;
        if (!segmentKept) rest.push_back(segment);
        segmentKept = true;
        rest.push_back(tag);
    }
    convertPlanePoints(fields, values);
    return true;
}

void writeFields(std::span<const Field> fields, const Values& values, SaveNames& names,
                 TagWriter& out, const RawTags* kept, std::size_t first) {
    FieldWriter writer(values, names, out, kept);
    const char* segment = nullptr;
    std::string_view done;
    const auto endSegment = [&](const char* next) {
        // A marker may come twice; what was kept stands behind the first.
        if (kept != nullptr && segment != nullptr && segment != done) {
            writeKept(fields, segment, *kept, first, out);
            done = segment;
        }
        segment = next;
    };
    for (const Field& field : fields) {
        if (field.meaning == Meaning::Marker) endSegment(field.name);
        writer.write(field);
    }
    endSegment(nullptr);
}

}  // namespace prancheta::dxf
