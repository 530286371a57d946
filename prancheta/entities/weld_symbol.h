// SPDX-License-Identifier: MIT
// The symbol of a weld.
#pragma once

#include <string>

#include "dbents.h"
#include "prancheta/entities/weld_text.h"

namespace prancheta {

/// Arrow, reference line and signs by AWS A2.4: what stands below the line is on the arrow's side.
/// In files a block reference with its picture, as every class that other programs do not know.
class WeldSymbol : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(WeldSymbol)
    WeldSymbol() = default;
    /// World coordinates; `scale` multiplies letters and signs of 2.5.
    WeldSymbol(const AcGePoint3d& tip, const AcGePoint3d& elbow, double scale)
        : m_tip(tip), m_elbow(elbow), m_scale(scale) {}

    AcGePoint3d tip() const { return m_tip; }
    /// Where the reference line begins.
    AcGePoint3d elbow() const { return m_elbow; }
    double scale() const { return m_scale; }
    /// The line that readWeld() reads.
    const std::wstring& description() const { return m_line; }
    /// eInvalidInput, and no change, for a line that is not understood.
    Acad::ErrorStatus setDescription(const std::wstring& line);
    /// eInvalidInput, and no change, unless it is above 0.
    Acad::ErrorStatus setScale(double scale);

    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    /// Moved to the tip.
    void getEcs(AcGeMatrix3d& ecs) const override;

private:
    AcGePoint3d m_tip;
    AcGePoint3d m_elbow;
    double m_scale = 1.0;
    std::wstring m_line;
    Weld m_weld;  ///< what the line says
};

}  // namespace prancheta
