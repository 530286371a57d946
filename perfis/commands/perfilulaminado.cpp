// SPDX-License-Identifier: MIT
// Command PERFILULAMINADO: rolled U.
#include <numbers>

#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    const double turn = request.view == ZpObject::kVistaInferior ? std::numbers::pi : 0.0;
    return std::make_unique<ZpULaminado>(point, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                         m.b / 3.0, m.t, 0.0, turn, request.length, rolledUArea(m),
                                         m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpULaminado>(start, end, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                         m.b / 3.0, m.t, 0.0, rolledUArea(m), m.m);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.thickness(rolledUToe(m));
}

const ProfileDescription kPerfilULaminado = {
    .dialog = L"pulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pulam",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kUInsertions,
    .wrong = wrongHbt,
    .memberShift = uMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

}  // namespace

std::unique_ptr<ProfileRun> perfilulaminado() {
    return std::make_unique<ProfileRun>(kPerfilULaminado);
}

}  // namespace perfis
