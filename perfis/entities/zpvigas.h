// SPDX-License-Identifier: MIT
// Welded and rolled I sections.
#pragma once

#include "perfis/entities/zpobject.h"

/// Welded I: height, flanges, web. The series form has equal flanges; the other one has its own
/// sizes for the upper (bc, tc) and the lower flange (bb, tb).
class ZpISoldado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpISoldado);
    /// Series that the size was picked from.
    enum SubType { kFavoritos = 0, kVS = 1, kCVS = 2, kCS = 3 };

    ZpISoldado();
    ZpISoldado(const AcGePoint3d& point, ZpVistas vista, double H, double bUpper, double bLower,
               double tw, double tf, double L, double reserved1, double reserved2, double m);
    ZpISoldado(const AcGePoint3d& point, double H, double bc, double bb, double tc, double tb,
               double tw, double L, ZpVistas vista, double reserved1, double reserved2,
               double reserved3);
    ZpISoldado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double H,
               double bUpper, double bLower, double tw, double tf, double reserved1, double m);
    ZpISoldado(const AcGePoint3d& start, const AcGePoint3d& end, double H, double bc, double bb,
               double tc, double tb, double tw, ZpVistas vista, double reserved1, double reserved2);

    Acad::ErrorStatus setSubType(SubType type);
    Acad::ErrorStatus subType(SubType& type) const;
};

/// Rolled I: parallel flanges (types 0 and 1) or flanges tapered 1:6 (type 2). A = area in mm2, m =
/// kg/m.
class ZpILaminadoUSA : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpILaminadoUSA);
    enum ISolType { kEuropeu = 0, kAcoMinas = 1, kAmericano = 2 };

    ZpILaminadoUSA();
    ZpILaminadoUSA(const AcGePoint3d& point, ZpVistas vista, double H, double B, double tw,
                   double tf, ISolType type, double reserved1, double reserved2, double L, double A,
                   double m);
    ZpILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double H,
                   double B, double tw, double tf, ISolType type, double reserved1, double A,
                   double m);
};
