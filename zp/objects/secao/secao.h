// SPDX-License-Identifier: MIT
// A section made from constructor values: outline, properties, views; equal sections are one
// object.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "zp/objects/secao/kinds.h"
#include "zp/objects/secao/levels.h"
#include "zp/objects/secao/outline.h"
#include "zp/objects/secao/properties.h"
#include "zp/objects/secao/sheet.h"

namespace zp::secao {

/// Section plane with the piece's axis at the origin, turned by r; mm, kg/m.
class Secao {
public:
    Secao(Kind kind, const RoleValues& given);

    const std::vector<Outline>& outlines() const { return m_outlines; }
    /// Exact box of the outline.
    const Bounds& bounds() const { return m_bounds; }
    const Properties& properties() const { return m_properties; }
    /// What a brush reaches: loops without holes; closed boxes only from outside.
    double perimetroPintura() const { return m_perimetroPintura; }
    /// Computed when first asked for.
    const Sheet& sheet() const;
    /// True when the values gave no drawable outline and a box stands for it.
    bool invalid() const { return m_invalid; }
    /// Height and width of one piece, of the whole for built-up sections; thickness.
    double altura() const { return m_altura; }
    /// mm.
    double largura() const { return m_largura; }
    /// mm.
    double espessura() const { return m_espessura; }
    /// Area handed over in mm2, that of the outline when none was.
    double area() const { return m_area; }
    /// Mass handed over for this size, area of the outline times 7850 kg/m3 when none was.
    double kgMetro() const { return m_kgMetro; }
    /// The latter always.
    double kgMetroOfOutline() const;
    /// Views 1 to 4; computed when first asked for.
    const Vista& vista(int vista) const;

private:
    std::vector<Loop> m_loops;
    std::vector<Outline> m_outlines;
    Bounds m_bounds;
    Properties m_properties;
    double m_perimetroPintura = 0.0;
    double m_torsion = 0.0;
    double m_altura = 0.0;
    double m_largura = 0.0;
    double m_espessura = 0.0;
    double m_area = 0.0;
    double m_kgMetro = 0.0;
    bool m_invalid = false;
    mutable std::unique_ptr<Vista> m_vistas[4];
    mutable std::unique_ptr<Sheet> m_sheet;
};

/// The section of these constructor values from the shared cache. `values` in constructor order;
/// values that do not shape the section (length, places that carry nothing) make no difference.
/// Single thread, as the host's objects.
std::shared_ptr<const Secao> secaoFrom(Kind kind, int points, std::span<const double> values,
                                       const Printed& printed = {});

/// Short name and sizes as a draughtsman reads them: "Ue", "200x75x20x2,65". `series` is the
/// series of a welded I.
std::wstring perfilText(Kind kind, const RoleValues& roleValues, int series);
std::wstring dimensoesText(Kind kind, const RoleValues& roleValues, int series);

}  // namespace zp::secao
