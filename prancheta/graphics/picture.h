// SPDX-License-Identifier: MIT
// Recording of what an entity draws: compact, comparable, transformable.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "acgi.h"
#include "dbmain.h"
#include "prancheta/graphics/palette.h"

namespace prancheta {

/// Properties of one primitive, as the entity asked for them (by layer and by block not resolved).
struct PictureTraits {
    AcDbObjectId layer;
    AcDbObjectId linetype;
    double linetypeScale = 1.0;
    Adesk::GsMarker marker = -1;  ///< part of the entity for picking; does not count for equality
    Adesk::UInt16 color = 256;
    std::optional<Rgb> trueColor;  ///< goes over the index, also where that is by block
    AcDb::LineWeight lineWeight = AcDb::kLnWtByLayer;

    bool operator==(const PictureTraits& other) const = default;
};

enum class PrimitiveKind : std::uint8_t {
    Polyline,  ///< points; a single point is a node
    Polygon,   ///< points of a filled area, not repeated at the end
    Circle,    ///< center, normal, radius
    Arc,       ///< center, normal, start (unit vector), radius, sweep in (0, 2 pi) about the normal
    Text,      ///< position, normal, direction (unit vector), height, widthFactor, oblique, text
    Pline,     ///< points, bulges (one per point), closed, normal
};

class Picture;

/// One primitive of a picture; valid while the picture is unchanged. Only the members of its kind
/// may be asked for. Normals never point below the plane: z is 0 or more.
class PrimitiveView {
public:
    PrimitiveView(const Picture& picture, std::size_t index)
        : m_picture(&picture), m_index(index) {}

    PrimitiveKind kind() const;
    const PictureTraits& traits() const;
    /// Index of the traits in Picture::allTraits().
    std::uint32_t traitsIndex() const;

    /// World coordinates.
    std::span<const AcGePoint3d> points() const;
    /// One a point, empty for straight ones.
    std::span<const double> bulges() const;
    bool closed() const;

    /// World coordinates.
    AcGePoint3d center() const;
    /// Unit vector.
    AcGeVector3d normal() const;
    /// Unit vector from the centre to where the arc begins.
    AcGeVector3d start() const;
    /// Drawing units.
    double radius() const;
    /// Radians about the normal.
    double sweep() const;

    /// Left end of the baseline.
    AcGePoint3d position() const;
    /// Along the line of writing.
    AcGeVector3d direction() const;
    /// Drawing units.
    double height() const;
    /// 1: as the font has it. Below 0 the letters run from the position the other way, mirrored.
    double widthFactor() const;
    /// Radians from upright.
    double oblique() const;
    const ACHAR* text() const;

private:
    friend class Picture;
    /// Numbers of the kind: normal first, then what it needs, see the adders.
    std::span<const double> numbers() const;

    const Picture* m_picture;
    std::size_t m_index;
};

/// Selection marker of lines that go on beyond any drawing: they have no extents, and are drawn as
/// far as they are seen.
inline constexpr Adesk::GsMarker kEndlessMarker = -3;
/// Selection marker of filled areas that hide what was drawn before them: they have the colour of
/// the ground, whatever theirs is, and are picked at their outline.
inline constexpr Adesk::GsMarker kCoverMarker = -4;

/// What an entity draws, in drawing order. All points stand in one vector, so copying costs a few
/// allocations whatever the number of primitives.
class Picture {
public:
    std::size_t size() const { return m_primitives.size(); }
    bool empty() const { return m_primitives.empty(); }
    void clear();
    PrimitiveView operator[](std::size_t index) const { return {*this, index}; }

    class Iterator {
    public:
        Iterator(const Picture* picture, std::size_t at) : m_picture(picture), m_at(at) {}
        PrimitiveView operator*() const { return {*m_picture, m_at}; }
        Iterator& operator++() {
            ++m_at;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return m_at != other.m_at; }

    private:
        const Picture* m_picture;
        std::size_t m_at;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, size()}; }

    /// Appending, in world coordinates. Primitives with a coordinate that is not finite, and those
    /// that have no size where they need one, are left out.
    void addPolyline(const PictureTraits& traits, std::span<const AcGePoint3d> points);
    void addPolygon(const PictureTraits& traits, std::span<const AcGePoint3d> points);
    void addCircle(const PictureTraits& traits, const AcGePoint3d& center, double radius,
                   const AcGeVector3d& normal);
    /// A negative sweep is turned round; one of a full turn or more is a circle.
    void addArc(const PictureTraits& traits, const AcGePoint3d& center, double radius,
                const AcGeVector3d& normal, const AcGeVector3d& start, double sweep);
    void addText(const PictureTraits& traits, const AcGePoint3d& position,
                 const AcGeVector3d& normal, const AcGeVector3d& direction, double height,
                 double widthFactor, double oblique, std::wstring_view text);
    /// `bulges` about the normal, one per point (that of an open end counts for nothing).
    void addPline(const PictureTraits& traits, std::span<const AcGePoint3d> points,
                  std::span<const double> bulges, bool closed,
                  const AcGeVector3d& normal = AcGeVector3d::kZAxis);
    /// Appends all of `other`, which may not be this picture, transformed.
    void append(const Picture& other, const AcGeMatrix3d& m = AcGeMatrix3d::kIdentity);

    /// A similarity keeps the kinds of primitives: bulges flip under a mirror, texts take the
    /// mirrored place but stay readable. Any other affine map turns curves into polylines of arcs,
    /// which leave them by less than 1e-5 of their size.
    void transform(const AcGeMatrix3d& m);

    /// Smallest box; arcs exactly, texts by the estimate of textBox(). Endless lines do not count.
    AcDbExtents extents() const;
    /// The same with them, as far as they are recorded: whatever is outside is not touched.
    AcDbExtents reach() const;

    /// Same primitives in the same order, lengths within 1e-6, angles and bulges within 1e-9 (by
    /// rounding to these steps). Selection markers do not count.
    bool operator==(const Picture& other) const;
    /// Equal for equal pictures; valid within the process only.
    std::size_t hash() const;

    const std::vector<PictureTraits>& allTraits() const { return m_traits; }
    /// Replaces a set of traits for all primitives that use it; for resolving by block and by
    /// layer.
    void setTraits(std::uint32_t index, const PictureTraits& traits) { m_traits[index] = traits; }

private:
    friend class PrimitiveView;
    struct Primitive {
        PrimitiveKind kind;
        bool closed;
        std::uint32_t traits;
        std::uint32_t firstPoint;
        std::uint32_t pointCount;
        std::uint32_t firstNumber;
        std::uint32_t numberCount;
        std::uint32_t firstChar;
    };
    std::span<const AcGePoint3d> pointsOf(const Primitive& p) const {
        return {m_points.data() + p.firstPoint, p.pointCount};
    }
    std::span<const double> numbersOf(const Primitive& p) const {
        return {m_numbers.data() + p.firstNumber, p.numberCount};
    }
    void start(PrimitiveKind kind, const PictureTraits& traits, std::span<const AcGePoint3d> points,
               bool closed = false);
    void addNumber(double value);
    void addVector(const AcGeVector3d& v);

    std::vector<Primitive> m_primitives;
    std::vector<AcGePoint3d> m_points;
    std::vector<double> m_numbers;
    std::wstring m_text;  ///< texts, each ended by a null
    std::vector<PictureTraits> m_traits;
};

}  // namespace prancheta
