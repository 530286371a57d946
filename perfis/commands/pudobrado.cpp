// SPDX-License-Identifier: MIT
// Command perfilu: cold-formed plain U.
#include <numbers>

#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kPi = std::numbers::pi;

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    const double turn = request.view == ZpObject::kVistaInferior ? kPi : 0.0;
    return std::make_unique<ZpUDobrado>(point, request.view, m.h, m.b, m.b, m.t, m.t, kPi / 2,
                                        kPi / 2, request.length, turn, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpUDobrado>(start, end, request.view, m.h, m.b, m.b, m.t, m.t, kPi / 2,
                                        kPi / 2, 0.0, 0.0);
}

const ProfileDescription kPerfilU = {
    .dialog = L"pu_geracao",
    .list = L"pu.lst",
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = rowOfHbta,
    .slides = L"pu",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kUInsertions,
    .wrong = wrongHbt,
    .memberShift = uMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
};

}  // namespace

std::unique_ptr<ProfileRun> pudobrado() { return std::make_unique<ProfileRun>(kPerfilU); }

}  // namespace perfis
