// SPDX-License-Identifier: MIT
// Command PERFILULAMINADO: rolled U.
#include <numbers>

#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

/// mm2, in the factors in which the trade has it.
double areaOf(const Medidas& m) { return m.m * 100.0 * 1.271848; }

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    const double turn = request.view == ZpObject::kVistaInferior ? std::numbers::pi : 0.0;
    return std::make_unique<ZpULaminado>(point, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                         m.b / 3.0, m.t, 0.0, turn, request.length, areaOf(m), m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpULaminado>(start, end, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                         m.b / 3.0, m.t, 0.0, areaOf(m), m.m);
}

/// Thickness of a flange at its toe: the mean one, which follows from the area, less half the fall
/// of the inner face. A section without mass is drawn with flanges as thick as its web.
double toeThickness(const Medidas& m) {
    if (m.m == 0.0 || m.b == m.t) return m.t;
    return (areaOf(m) - m.h * m.t) / (2.0 * (m.b - m.t)) - ZpULaminado::calcDeslocF(m.b, m.t);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.thickness(toeThickness(m));
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
    .valid = validHbt,
    .memberShift = uMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

}  // namespace

void perfilulaminado() { runCommand(kPerfilULaminado); }

}  // namespace perfis
