// SPDX-License-Identifier: MIT
// Writes pictures as entities of a block.
#pragma once

#include "prancheta/dxf/entity_writer.h"
#include "prancheta/graphics/picture.h"

namespace prancheta::dxf {

/// Replaces the properties that a picture has from its entity by those that follow the reference to
/// the block: layer 0 and by block; what the entity chose by itself stays.
void makeByBlock(Picture& picture, const AcDbEntity& entity);

/// Lines, polylines, circles, arcs, texts, solids and hatches, those that R12 knows for it: there
/// large filled areas are their outlines, without handles and owners. Coordinates are rounded to
/// 1e-8, far below what is drawn, so that a turned frame leaves no tails of digits.
class PictureWriter {
public:
    /// `acadVersion` as $ACADVER has it: older ones know no true colour, and less.
    PictureWriter(TagWriter& out, SaveNames& names, AcDbDatabase& database,
                  std::string_view acadVersion);

    /// Number of entities that write() makes.
    static std::size_t count(const Picture& picture);
    /// Handles are taken one by one from `handles`. Texts are of the style, Standard when it is
    /// null.
    void write(const Picture& picture, Adesk::UInt64 owner, HandleSource& handles,
               AcDbObjectId textStyle = AcDbObjectId::kNull);
    /// A point on a layer that is not the picture's.
    void writePoint(const AcGePoint3d& p, const char* layer, Adesk::UInt64 owner,
                    Adesk::UInt64 handle);

    /// A text at the origin for programs, on a layer that nobody sees.
    void writeHidden(const std::string& text, const std::string& layer, Adesk::UInt64 owner,
                     Adesk::UInt64 handle);

private:
    void begin(const char* type, const PictureTraits& traits, Adesk::UInt64 owner,
               Adesk::UInt64 handle);
    void polyline(const PrimitiveView& view, const PictureTraits& traits, Adesk::UInt64 owner,
                  HandleSource& handles);
    void flatPolyline(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                      bool closed, const AcGeVector3d& normal, const PictureTraits& traits,
                      Adesk::UInt64 owner, HandleSource& handles);
    /// The same as POLYLINE and VERTEX.
    void oldPolyline(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                     bool closed, const AcGeVector3d& normal, const PictureTraits& traits);
    void layer(const PictureTraits& traits);
    void marker(const char* name);
    void lines(std::span<const AcGePoint3d> points, const PictureTraits& traits,
               Adesk::UInt64 owner, HandleSource& handles);
    void filled(std::span<const AcGePoint3d> points, const PictureTraits& traits,
                Adesk::UInt64 owner, HandleSource& handles);
    void hatch(std::span<const AcGePoint3d> points);
    void circle(const PrimitiveView& view);
    void arc(const PrimitiveView& view);
    void text(const PrimitiveView& view);
    void point(int code, const AcGePoint3d& p);
    void real(int code, double value);
    void normal(const AcGeVector3d& n);

    TagWriter& m_out;
    SaveNames& m_names;
    AcDbObjectId m_layerZero;
    bool m_isR12;
    bool m_knowsTrueColor;
    AcDbObjectId m_byLayer;
    AcDbObjectId m_textStyle;  ///< of the picture at hand
};

}  // namespace prancheta::dxf
