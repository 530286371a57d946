// SPDX-License-Identifier: MIT
// Values by role, and back.
#include "perfis/commands/secao_values.h"

#include "perfis/commands/perfil_description.h"
#include "zp/objects/edit.h"
#include "zp/objects/published.h"

namespace perfis {
namespace {

using zp::secao::Role;
using zp::secao::RoleValues;

double valueOf(const RoleValue& value, const Medidas& medidas) {
    if (value.medida != nullptr) return medidas.*value.medida;
    return value.rule != nullptr ? value.rule(medidas) : value.constant;
}

}  // namespace

RoleValues valuesFor(const PerfilDescription& description, const PecaRequest& request,
                     double giro) {
    RoleValues values;
    for (const RoleValue& value : description.values)
        values[value.role] = valueOf(value, request.medidas);
    values[Role::L] = request.comprimento;
    values[Role::Giro] = giro;
    if (description.complete != nullptr) description.complete(values, request);
    return values;
}

namespace {

/// The mass belongs to a row that has other sizes: it weighs nothing.
std::unique_ptr<ZpObject> withOwnMass(const PerfilDescription& description,
                                      const PecaRequest& request, std::unique_ptr<ZpObject> peca) {
    if (request.medidas.m == 0.0 || !request.picked) return peca;
    PecaRequest row = request;
    row.medidas = *request.picked;
    if (!zp::edit::sameShape(valuesFor(description, request, 0.0),
                             valuesFor(description, row, 0.0)))
        zp::published::disownMass(*peca);
    return peca;
}

}  // namespace

std::unique_ptr<ZpObject> makeAtPoint(const PerfilDescription& description,
                                      const AcGePoint3d& point, const PecaRequest& request) {
    const auto figure = static_cast<std::size_t>(request.vista);
    const Face drawn =
        figure < description.faces.size() ? description.faces[figure] : Face{request.vista, 0.0};
    const Face face = request.face.value_or(drawn);
    return withOwnMass(
        description, request,
        description.pecas.atPoint(point, face.vista, valuesFor(description, request, face.giro)));
}

std::unique_ptr<ZpObject> makeBetween(const PerfilDescription& description,
                                      const AcGePoint3d& start, const AcGePoint3d& end,
                                      const PecaRequest& request) {
    return withOwnMass(
        description, request,
        description.pecas.between(start, end, request.vista, valuesFor(description, request, 0.0)));
}

Medidas medidasOf(const PerfilDescription& description, const RoleValues& values) {
    Medidas medidas;
    // The upper flange decides where a property sheet made the lower one different.
    for (auto value = description.values.rbegin(); value != description.values.rend(); ++value)
        if (value->medida != nullptr) medidas.*value->medida = values[value->role];
    const bool single =
        zp::secao::description(description.pecas.kind).composition == zp::secao::Composition::One;
    medidas.m = single ? values[Role::M] : values[Role::M] / 2.0;
    if (description.readBack != nullptr) description.readBack(medidas, values);
    return medidas;
}

int figureOf(const PerfilDescription& description, ZpObject::ZpVistas vista, double giro) {
    for (std::size_t figure = 0; figure < description.faces.size(); ++figure) {
        const Face& face = description.faces[figure];
        if (face.vista == vista && (face.giro != 0.0) == (giro != 0.0))
            return static_cast<int>(figure);
    }
    return vista;
}

}  // namespace perfis
