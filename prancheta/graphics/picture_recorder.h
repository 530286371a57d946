// SPDX-License-Identifier: MIT
// Draws into a picture.
#pragma once

#include <vector>

#include "prancheta/geometry/bulge.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// What entities draw through while they are recorded. Appends to a picture that outlives it.
class PictureRecorder : public AcGiWorldDraw {
public:
    /// What a mirror does to the letters of texts: they take the mirrored place but stay readable,
    /// or are seen in the mirror.
    enum class Letters { Readable, Mirrored };

    explicit PictureRecorder(Picture& out, AcGiRegenType type = kAcGiStandardDisplay,
                             bool dragging = false);

    /// Start of an entity: traits become the entity's own, model transforms are forgotten.
    void begin(const PictureTraits& own);
    void setLetters(Letters letters) { m_geometry.setLetters(letters); }

    AcGiRegenType regenType() const override { return m_type; }
    bool regenAbort() const override { return false; }
    bool isDragging() const override { return m_dragging; }
    AcGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    AcGiWorldGeometry& geometry() const override { return m_geometry; }

private:
    class Traits : public AcGiSubEntityTraits {
    public:
        void setColor(Adesk::UInt16 index) override {
            now.color = index;
            now.trueColor.reset();
        }
        void setTrueColor(const AcCmEntityColor& color) override {
            now.trueColor = Rgb{color.red(), color.green(), color.blue()};
        }
        void setLayer(const AcDbObjectId& layer) override { now.layer = layer; }
        void setLineType(const AcDbObjectId& linetype) override { now.linetype = linetype; }
        void setLineTypeScale(double scale) override { now.linetypeScale = scale; }
        void setLineWeight(AcDb::LineWeight weight) override { now.lineWeight = weight; }
        void setFillType(AcGiFillType type) override { fill = type; }
        void setSelectionMarker(Adesk::GsMarker marker) override { now.marker = marker; }

        PictureTraits now;
        AcGiFillType fill = kAcGiFillAlways;
    };

    class Geometry : public AcGiWorldGeometry {
    public:
        Geometry(Picture& out, Traits& traits) : m_out(out), m_traits(traits) {}
        Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points,
                                const AcGeVector3d* normal, Adesk::LongPtr marker) override;
        Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) override;
        Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                              const AcGeVector3d& normal) override;
        Adesk::Boolean circularArc(const AcGePoint3d& center, double radius,
                                   const AcGeVector3d& normal, const AcGeVector3d& start,
                                   double sweep, AcGiArcType type) override;
        Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                            const AcGeVector3d& direction, double height, double width,
                            double oblique, const ACHAR* text) override;
        Adesk::Boolean pline(Adesk::UInt32 count, const AcGePoint3d* points, const double* bulges,
                             bool closed) override;
        Adesk::Boolean pushModelTransform(const AcGeMatrix3d& m) override;
        Adesk::Boolean popModelTransform() override;

        void forgetTransforms() { m_stack.clear(); }
        void setLetters(Letters letters) { m_letters = letters; }

    private:
        /// What a matrix does to curves; Other turns them into chords.
        enum class Map { None, Similarity, Mirror, Other };
        struct Level {
            AcGeMatrix3d matrix;
            Map map = Map::None;
            double scale = 1.0;
        };
        const Level& level() const;
        std::span<const AcGePoint3d> mapped(std::span<const AcGePoint3d> points);
        void ellipse(const BulgeArc& arc, const AcGeVector3d& normal, bool closed);
        void distorted(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                       bool closed);

        Picture& m_out;
        Traits& m_traits;
        std::vector<Level> m_stack;
        std::vector<AcGePoint3d> m_scratch;
        std::vector<double> m_bulges;
        Letters m_letters = Letters::Readable;
    };

    AcGiRegenType m_type;
    bool m_dragging;
    mutable Traits m_traits;
    mutable Geometry m_geometry;
};

/// Index and true colour.
void setColor(AcGiSubEntityTraits& to, const PictureTraits& traits);

/// Draws a recorded picture again, with its own traits; at a place, letters go through its mirror.
void replay(const Picture& picture, AcGiWorldDraw& draw);
void replayAt(const Picture& picture, const AcGeMatrix3d& place, AcGiWorldDraw& draw);

}  // namespace prancheta
