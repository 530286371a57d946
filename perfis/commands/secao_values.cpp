// SPDX-License-Identifier: MIT
// Values by role, and back.
#include "perfis/commands/secao_values.h"

#include "perfis/commands/perfil_description.h"

namespace perfis {
namespace {

using zp::secao::Dados;
using zp::secao::Papel;

double valueOf(const RoleValue& value, const Medidas& medidas) {
    if (value.medida != nullptr) return medidas.*value.medida;
    return value.rule != nullptr ? value.rule(medidas) : value.constant;
}

Dados valuesFor(const PerfilDescription& description, const PecaRequest& request, double turn) {
    Dados values;
    for (const RoleValue& value : description.values)
        values[value.role] = valueOf(value, request.medidas);
    values[Papel::L] = request.length;
    values[Papel::Giro] = turn;
    if (description.complete != nullptr) description.complete(values, request);
    return values;
}

}  // namespace

std::unique_ptr<ZpObject> makeAtPoint(const PerfilDescription& description,
                                      const AcGePoint3d& point, const PecaRequest& request) {
    const auto figure = static_cast<std::size_t>(request.view);
    const Face face =
        figure < description.faces.size() ? description.faces[figure] : Face{request.view, 0.0};
    return description.pieces.atPoint(point, face.view, valuesFor(description, request, face.turn));
}

std::unique_ptr<ZpObject> makeBetween(const PerfilDescription& description,
                                      const AcGePoint3d& start, const AcGePoint3d& end,
                                      const PecaRequest& request) {
    return description.pieces.between(start, end, request.view,
                                      valuesFor(description, request, 0.0));
}

Medidas medidasOf(const PerfilDescription& description, const Dados& values) {
    Medidas medidas;
    // The upper flange decides where a property sheet made the lower one different.
    for (auto value = description.values.rbegin(); value != description.values.rend(); ++value)
        if (value->medida != nullptr) medidas.*value->medida = values[value->role];
    const bool single =
        zp::secao::descricao(description.pieces.classe).composicao == zp::secao::Composicao::Uma;
    medidas.m = single ? values[Papel::M] : values[Papel::M] / 2.0;
    if (description.readBack != nullptr) description.readBack(medidas, values);
    return medidas;
}

int figureOf(const PerfilDescription& description, ZpObject::ZpVistas view, double turn) {
    for (std::size_t figure = 0; figure < description.faces.size(); ++figure) {
        const Face& face = description.faces[figure];
        if (face.view == view && (face.turn != 0.0) == (turn != 0.0))
            return static_cast<int>(figure);
    }
    return view;
}

}  // namespace perfis
