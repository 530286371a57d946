// SPDX-License-Identifier: MIT
// Cold-formed sections, tubes and round bars.
#pragma once

#include "perfis/entities/zpobject.h"

/// Cold-formed U: height h, flange b1 (upper) and b2 (lower), thickness t, inner bend radius ri,
/// flange angles a1 and a2, turn r about the axis, lip (0 none, negative outwards).
class ZpUDobrado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpUDobrado);
    ZpUDobrado();
    ZpUDobrado(const AcGePoint3d& point, ZpVistas vista, double h, double b1, double b2, double t,
               double ri, double a1, double a2, double L, double r, double reserved1, double aba);
    ZpUDobrado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
               double b1, double b2, double t, double ri, double a1, double a2, double reserved1,
               double aba);
};

/// Cold-formed Z with lips of length aba.
class ZpZDobrado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpZDobrado);
    ZpZDobrado();
    ZpZDobrado(const AcGePoint3d& point, ZpVistas vista, double h, double b, double aba, double t,
               double ri, double a1, double a2, double L, double reserved1, double reserved2,
               double reserved3, double reserved4);
    ZpZDobrado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h, double b,
               double aba, double t, double ri, double a1, double a2, double reserved1,
               double reserved2, double reserved3);
};

/// Hat section: side h, top b, outward lips aba.
class ZpCartola : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCartola);
    ZpCartola();
    ZpCartola(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t, double ri,
              double aba, double L, double reserved1, double reserved2);
    ZpCartola(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h, double b,
              double t, double ri, double aba, double reserved1);
};

/// Cold-formed angle: leg h down, leg b to the right, angle between them.
class ZpCantoneiraDobrada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantoneiraDobrada);
    ZpCantoneiraDobrada();
    ZpCantoneiraDobrada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                        double ri, double angle, double L, double r, double reserved1,
                        double reserved2);
    ZpCantoneiraDobrada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                        double b, double t, double ri, double angle, double reserved1,
                        double reserved2);
};

/// Box of two cold-formed U, toes facing, over the outside width w (at least 2b); aba = lip.
class ZpCaixaDobrado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCaixaDobrado);
    ZpCaixaDobrado();
    ZpCaixaDobrado(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                   double ri, double w, double L, double reserved1, double reserved2, double aba);
    ZpCaixaDobrado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                   double b, double t, double ri, double w, double reserved1, double aba);
};

/// Rectangular tube b x h.
class ZpBox : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpBox);
    ZpBox();
    ZpBox(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t, double ri,
          double L, double reserved1, double reserved2);
    ZpBox(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h, double b,
          double t, double ri, double reserved1);
};

/// Round tube of outer diameter d; dint inner diameter, solid when it is not positive.
class ZpTubo : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpTubo);
    ZpTubo();
    ZpTubo(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double d, double dint);

    ZP_VALUE(Diametro)
    ZP_VALUE(DiametroInt)
    Acad::ErrorStatus KgMetro(double& value) const;
    Acad::ErrorStatus Area(double& value) const;
    void GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                               AcGePoint3d& f3) const override;
};

/// Round bar.
class ZpBarraRedonda : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpBarraRedonda);
    ZpBarraRedonda();
    ZpBarraRedonda(const AcGePoint3d& point, ZpVistas vista, double d, double L, double reserved1);
    ZpBarraRedonda(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double d);
};

/// Two cold-formed angles back to back in T, gap between the stems.
class ZpCantTDobrada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantTDobrada);
    ZpCantTDobrada();
    ZpCantTDobrada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                   double ri, double vao, double L, double r, double reserved1, double reserved2);
    ZpCantTDobrada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                   double b, double t, double ri, double vao, double reserved1, double reserved2);
};

/// Two cold-formed angles as a U, over the outside width w.
class ZpCantUDobrada : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpCantUDobrada);
    ZpCantUDobrada();
    ZpCantUDobrada(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t,
                   double ri, double w, double L, double r, double reserved1, double reserved2);
    ZpCantUDobrada(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
                   double b, double t, double ri, double w, double reserved1, double reserved2);
};

/// Two cold-formed angles turned by 45 degrees, bend to bend, gap between the bends.
class ZpXDobrado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpXDobrado);
    ZpXDobrado();
    ZpXDobrado(const AcGePoint3d& point, ZpVistas vista, double h, double b, double t, double ri,
               double vao, double L, double r, double reserved1, double reserved2,
               double reserved3);
    ZpXDobrado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h, double b,
               double t, double ri, double vao, double reserved1, double reserved2,
               double reserved3);
};

/// Two cold-formed U back to back; aba = lip, especie 0 inwards, 1 outwards.
class ZpIDobrado : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpIDobrado);
    ZpIDobrado();
    ZpIDobrado(const AcGePoint3d& point, ZpVistas vista, double h, double b1, double b2, double t,
               double ri, double vao, double L, double aba, double especie, double reserved1);
    ZpIDobrado(const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista, double h,
               double b1, double b2, double t, double ri, double vao, double aba, double especie);
};
