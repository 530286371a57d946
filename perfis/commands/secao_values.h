// SPDX-License-Identifier: MIT
// What the pieces of a command are made of: the values of its section class by role, said once,
// from which both constructors and the way back from a drawn piece to the dialog follow.
#pragma once

#include <memory>
#include <utility>

#include "perfis/commands/medidas.h"
#include "perfis/entities/zpobject.h"
#include "zp/objects/secao/table.h"

namespace perfis {

struct PerfilDescription;
struct PecaRequest;

/// One value of a section class: a number of the dialog, what a rule makes of the numbers, or
/// always the same. Length and turn about the axis come from the request; roles that nobody gives
/// are 0.
struct RoleValue {
    constexpr RoleValue(zp::secao::Role role, Medida medida) : role(role), medida(medida) {}
    constexpr RoleValue(zp::secao::Role role, double (*rule)(const Medidas&))
        : role(role), rule(rule) {}
    constexpr RoleValue(zp::secao::Role role, double constant) : role(role), constant(constant) {}

    zp::secao::Role role;
    Medida medida = nullptr;
    double (*rule)(const Medidas&) = nullptr;
    double constant = 0.0;
};

/// How a figure of the views dialog is drawn: seen like this, after a turn about the piece's axis
/// (radians).
struct Face {
    ZpObject::ZpVistas vista = ZpObject::kVistaSecao;
    double giro = 0.0;
};

/// Constructs the pieces of one section class from values by role.
struct PecaClass {
    zp::secao::Kind kind;
    std::unique_ptr<ZpObject> (*atPoint)(const AcGePoint3d& point, ZpObject::ZpVistas vista,
                                         const zp::secao::RoleValues& values);
    std::unique_ptr<ZpObject> (*between)(const AcGePoint3d& start, const AcGePoint3d& end,
                                         ZpObject::ZpVistas vista,
                                         const zp::secao::RoleValues& values);
};

template <class Perfil, class... Where, std::size_t... I>
std::unique_ptr<ZpObject> construct(std::index_sequence<I...>, const zp::secao::Roles& roles,
                                    const zp::secao::RoleValues& values, Where... where) {
    return std::make_unique<Perfil>(where..., values[roles[I]]...);
}

/// Class with one constructor of each form, its values in the order of the table of sections.
template <class Perfil, zp::secao::Kind kKind>
inline constexpr PecaClass kPecaClass{
    kKind,
    [](const AcGePoint3d& point, ZpObject::ZpVistas vista, const zp::secao::RoleValues& values) {
        static constexpr zp::secao::Roles kRoles = zp::secao::row(kKind).onePoint[0];
        return construct<Perfil>(std::make_index_sequence<count(kRoles)>(), kRoles, values, point,
                                 vista);
    },
    [](const AcGePoint3d& start, const AcGePoint3d& end, ZpObject::ZpVistas vista,
       const zp::secao::RoleValues& values) {
        static constexpr zp::secao::Roles kRoles = zp::secao::row(kKind).twoPoints[0];
        return construct<Perfil>(std::make_index_sequence<count(kRoles)>(), kRoles, values, start,
                                 end, vista);
    }};

/// Values of the section class by role, as the constructors get them; `giro` in radians.
zp::secao::RoleValues valuesFor(const PerfilDescription& description, const PecaRequest& request,
                                double giro = 0.0);
/// A new piece, in no drawing.
std::unique_ptr<ZpObject> makeAtPoint(const PerfilDescription& description,
                                      const AcGePoint3d& point, const PecaRequest& request);
/// The same between two points; the figures' turns are for pieces at a point.
std::unique_ptr<ZpObject> makeBetween(const PerfilDescription& description,
                                      const AcGePoint3d& start, const AcGePoint3d& end,
                                      const PecaRequest& request);

/// The dialog's numbers from the values of a drawn piece; those that its dialog does not have are
/// 0.
Medidas medidasOf(const PerfilDescription& description, const zp::secao::RoleValues& values);
/// The figure that a member seen and turned like this was drawn as; the view where no figure fits.
int figureOf(const PerfilDescription& description, ZpObject::ZpVistas vista, double giro);

}  // namespace perfis
