// SPDX-License-Identifier: MIT
// The sheet of a section: all that a designer reads off a handbook's row.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "zp/objects/secao/outline.h"
#include "zp/objects/secao/properties.h"
#include "zp/objects/secao/thin_walled.h"

namespace zp::secao {

/// mm and its powers, in the section plane with the piece's own turn; the mirror of a drawn piece
/// is not in it. What is not defined has no value.
///
/// Areas, inertias, elastic and plastic moduli: exact over lines and arcs, of the whole, gaps as
/// drawn. It: torsion.h; the sum of the parts of a built-up section, unless they close a box.
/// Cw and shear centre:
/// - bent sheets, rolled angles, U and I, welded I: on the mid-line (thin_walled.h). Angles whose
///   walls meet at a point have Cw = 0 and the shear centre there.
/// - two bent or rolled angles toe to toe, as a U: the one open section that they are.
/// - what half a turn leaves as it is has its shear centre in the centroid: tubes, boxes, crosses,
///   two U in either way, gap or none. Cw of round ones is 0; of two U back to back without a gap
///   it is that of the walls held together at their backs. For closed ones (none is printed) and
///   parts with a gap (it depends on what ties them) it is not defined.
/// - two angles back to back: between their corners, as handbooks take it; no Cw.
/// - the box that stands for an invalid section: neither, nor It.
struct Sheet {
    Properties p;
    double m2Metro = 0.0;  ///< to be painted, m2 a metre
    double xg = 0.0;       ///< from the left face of the section's box
    double yg = 0.0;       ///< from its lower face
    double zx = 0.0;
    double zy = 0.0;
    std::optional<double> it;
    std::optional<double> cw;
    std::optional<double> x0;  ///< shear centre from the centroid
    std::optional<double> y0;
    std::optional<double> r0;  ///< polar radius of gyration about the shear centre
    /// Along the walls of one loop after the other; none of a solid bar.
    std::vector<Element> elements;
    /// Walls of the first part when it is bent from a strip, else none.
    std::vector<Wall> strip;
};

/// What the sheet is made from; `loops` as the outlines trace them.
struct SheetSource {
    const std::vector<Loop>& loops;
    const std::vector<Outline>& outlines;
    const Bounds& bounds;
    const Properties& properties;
    double perimetroPintura;
    double torsion;
    double espessura;
    bool invalid;
};
Sheet sheetOf(const SheetSource& source);

/// A row of the sheet as users and programs read it.
struct SheetRow {
    const wchar_t* key;    ///< in mm and its powers, degrees
    const wchar_t* label;  ///< with the symbol
    const wchar_t* unit;   ///< that users read
    double factor;         ///< of the value, for that unit
    int decimals;          ///< of that unit, at most
    std::optional<double> (*of)(const Sheet& sheet);
    bool fromOrigin = false;  ///< depends on where the section lies about the insertion point
};
/// In the order of a handbook. The mass is none of them: it may be a catalogue's.
std::span<const SheetRow> sheetRows();
/// Where a row has no value.
inline constexpr const wchar_t* kUndefined = L"não definido";
/// Of the elements, equal ones together: "2x 14,7/2,65 = 5,55; ..."; empty where there are none.
std::wstring slendernessText(const Sheet& sheet);
inline constexpr const wchar_t* kSlenderness = L"Esbeltez dos elementos (b/t)";

}  // namespace zp::secao
