// SPDX-License-Identifier: MIT
// Rolled angles and U, single and built up.
#pragma once

#include "perfis/entities/zpobject.h"

/// Linear mass in kg/m, area in mm2 unless the class says cm2, radius and thickness in mm: read
/// and changed.
#define ZP_ROLLED_VALUES \
    ZP_VALUE(KgMetro)    \
    ZP_VALUE(Area)       \
    ZP_VALUE(RaioDobra)  \
    ZP_VALUE(Espessura)

/// Rolled equal angle turned by 45 degrees, heel at the left, at x = 2e. m = kg/m, A = area in mm2.
class ZpBNLaminado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpBNLaminado);
    ZpBNLaminado();
    ZpBNLaminado(const AcGePoint3d& point, ZpVistas vista, double h, double t, double e,
                 double radius, double reserved1, double reserved2, double L, double m, double A);
    ZpBNLaminado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                 double t, double e, double radius, double reserved1, double m, double A);

    ZP_ROLLED_VALUES
};

/// Rolled angle; ex from the back of the vertical leg, ey above its lower end to the axis.
class ZpCantLaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantLaminada);
    ZpCantLaminada();
    ZpCantLaminada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                   double ex, double ey, double radius, double reserved1, double reserved2,
                   double L, double m, double A);
    ZpCantLaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                   double b, double t, double ex, double ey, double radius, double reserved1,
                   double m, double A);

    ZP_ROLLED_VALUES
    ZP_VALUE(EixoX)
    ZP_VALUE(EixoY)
};

/// Box of two rolled angles, one standing on the other.
class ZpCantLaminadaCaixa : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantLaminadaCaixa);
    ZpCantLaminadaCaixa();
    ZpCantLaminadaCaixa(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                        double radius, double reserved1, double reserved2, double L, double m,
                        double A);
    ZpCantLaminadaCaixa(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                        double b, double t, double radius, double reserved1, double m, double A);

    ZP_ROLLED_VALUES
};

/// Rolled U; ex from the back of the web to the axis, r turn about it.
class ZpULaminado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpULaminado);
    ZpULaminado();
    ZpULaminado(const AcGePoint3d& point, ZpVistas vista, double h, double b1, double t, double b2,
                double tf1, double tf2, double ex, double radius, double reserved1, double r,
                double L, double A, double m);
    ZpULaminado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                double b1, double t, double b2, double tf1, double tf2, double ex, double radius,
                double reserved1, double A, double m);

    ZP_ROLLED_VALUES
    ZP_VALUE(EixoX)
    /// Half the fall of the inner face of a flange from web to toe: (b - t) / 12.
    static double calcDeslocF(double b, double t);
};

/// Two rolled angles back to back in T. The area handed over is in cm2.
class ZpCantTEELaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantTEELaminada);
    ZpCantTEELaminada();
    ZpCantTEELaminada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                      double ex, double ey, double radius, double vao, double reserved1, double r,
                      double L, double m, double A);
    ZpCantTEELaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                      double b, double t, double ex, double ey, double radius, double vao,
                      double reserved1, double m, double A);

    ZP_ROLLED_VALUES
    ZP_VALUE(EixoX)
    ZP_VALUE(EixoY)
};

/// Two rolled angles as a U, over the outside width w. The area handed over is in cm2.
class ZpCantULaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantULaminada);
    ZpCantULaminada();
    ZpCantULaminada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                    double ex, double ey, double radius, double w, double reserved1, double r,
                    double L, double m, double A);
    ZpCantULaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                    double b, double t, double ex, double ey, double radius, double w,
                    double reserved1, double m, double A);

    ZP_ROLLED_VALUES
    ZP_VALUE(EixoX)
    ZP_VALUE(EixoY)
};

/// Two rolled equal angles turned by 45 degrees, heel to heel. The area handed over is in cm2.
class ZpBNDuplaLaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpBNDuplaLaminada);
    ZpBNDuplaLaminada();
    ZpBNDuplaLaminada(const AcGePoint3d& point, ZpVistas vista, double h, double t, double e,
                      double radius, double vao, double reserved1, double r, double L, double m,
                      double A);
    ZpBNDuplaLaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                      double t, double e, double radius, double vao, double reserved1, double m,
                      double A);

    ZP_ROLLED_VALUES
};

/// Star of two rolled angles; gaps across (vao) and in height (vaoV). The area handed over is in
/// cm2.
class ZpCantCruzLaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantCruzLaminada);
    ZpCantCruzLaminada();
    ZpCantCruzLaminada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                       double radius, double vao, double vaoV, double reserved1, double r, double L,
                       double m, double A);
    ZpCantCruzLaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                       double b, double t, double radius, double vao, double vaoV, double reserved1,
                       double m, double A);

    ZP_ROLLED_VALUES
};

/// Two rolled angles in Z; gap across (vao), shift in height (vaoV). The area handed over is in
/// cm2.
class ZpCantZLaminada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantZLaminada);
    ZpCantZLaminada();
    ZpCantZLaminada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                    double radius, double vao, double vaoV, double reserved1, double r, double L,
                    double m, double A);
    ZpCantZLaminada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                    double b, double t, double radius, double vao, double vaoV, double reserved1,
                    double m, double A);

    ZP_ROLLED_VALUES
};

/// Two rolled U, toes facing, over the outside width w. A and m are those of both.
class ZpUULaminado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpUULaminado);
    ZpUULaminado();
    ZpUULaminado(const AcGePoint3d& point, ZpVistas vista, double h, double b1, double t, double b2,
                 double tf1, double tf2, double w, double radius, double reserved1, double r,
                 double L, double A, double m);
    ZpUULaminado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                 double b1, double t, double b2, double tf1, double tf2, double w, double radius,
                 double reserved1, double A, double m);

    ZP_ROLLED_VALUES
};

/// Two rolled U, back to back. A and m are those of both.
class Zp2ULaminado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(Zp2ULaminado);
    Zp2ULaminado();
    Zp2ULaminado(const AcGePoint3d& point, ZpVistas vista, double h, double b1, double t, double b2,
                 double tf1, double tf2, double ex, double radius, double vao, double reserved1,
                 double r, double L, double A, double m);
    Zp2ULaminado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                 double b1, double t, double b2, double tf1, double tf2, double ex, double radius,
                 double vao, double reserved1, double A, double m);

    ZP_ROLLED_VALUES
};
