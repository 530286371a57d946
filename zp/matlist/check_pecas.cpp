// SPDX-License-Identifier: MIT
// A check's part on where pieces and plates stand, and on pieces without a mark.
#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <unordered_map>

#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/follow.h"
#include "zp/objects/cortes.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

constexpr double kPi = std::numbers::pi;
/// Bars that lie less over each other touch, mm.
constexpr double kTouching = 1.0;
/// Plates nearer than this are one, mm.
constexpr double kSameChapa = 1.0;
/// Directions nearer than this are one, radians.
constexpr double kSameDirection = 1e-6;

/// A place in a grid, with what else tells things apart.
using GridCell = std::array<long long, 6>;
struct GridCellHash {
    std::size_t operator()(const GridCell& cell) const {
        std::size_t hash = 0;
        for (const long long v : cell) hash = hash * 1099511628211U ^ std::hash<long long>()(v);
        return hash;
    }
};
/// Calls back with a cell and its eight neighbours in the first two places.
template <class Visit>
void eachNear(GridCell cell, Visit visit) {
    for (int i = -1; i <= 1; ++i)
        for (int k = -1; k <= 1; ++k) {
            GridCell other = cell;
            other[0] += i;
            other[1] += k;
            visit(other);
        }
}

long long block(const AcDbEntity& entity) { return entity.ownerId().asOldId(); }

/// Plates of a bar that are seen along its whole length.
struct Travejada {
    const ZpObject& barra;
    std::vector<AcDbObjectId> chapas;
};

void checkMarcasOfChapas(Survey& survey, const Travejada& t) {
    if (t.chapas.empty()) return;
    const auto listed = [&](AcDbObjectId id) { return !survey.book.rowOf(id).isNull(); };
    const auto marked = [&](AcDbObjectId id) { return !survey.book.marcasOf(id).empty(); };
    const auto stray = std::ranges::find_if_not(t.chapas, listed);
    if (stray != t.chapas.end())
        survey.fault(Fault::PecaWithoutMarca, {*stray, t.barra.objectId()}, {}, middleOf(t.barra),
                     L"chapas da peça " + survey.marcaOf(t.barra.objectId()) +
                         L" fora da lista de material.",
                     L"Ponha-as na lista com MARCAS Agrupar.");
    else if (std::ranges::none_of(t.chapas, marked))
        survey.fault(Fault::PecaWithoutMarca, {t.chapas.front(), t.barra.objectId()},
                     survey.marcaOf(t.chapas.front()), middleOf(t.barra),
                     L"as chapas da peça " + survey.marcaOf(t.barra.objectId()) +
                         L" não têm marca desenhada.",
                     L"Desenhe-a com MARCAS Agrupar.");
}

/// A section view is never asked for a mark, nor a further view of a listed member.
void checkMarcaOfBarra(Survey& survey, const ZpObject& barra) {
    const AcDbObjectId id = barra.objectId();
    if (Access::of(barra).inSecao()) return;
    const bool marked = !survey.book.marcasOf(id).empty();
    if (survey.book.rowOf(id).isNull()) {
        if (!marked)
            survey.fault(
                Fault::PecaWithoutMarca, {id}, {}, middleOf(barra),
                L"a peça " + wordsOf(barra) + L" não tem marca.", L"Marque-a com MARCAS Agrupar.",
                survey.lists.empty() ? protocol::Severity::Hint : protocol::Severity::Fault);
        return;
    }
    if (!marked && member::of(barra).count > 0)
        survey.fault(Fault::PecaWithoutMarca, {id}, survey.marcaOf(id), middleOf(barra),
                     L"a peça " + wordsOf(barra) + L" está na lista sem marca desenhada.",
                     L"Desenhe-a com MARCAS Agrupar.");
    if (marked) checkMarcasOfChapas(survey, {barra, edit::chapasOf(barra)});
}

/// Members whose plates lie at both flanges; a view on these shows one plane for both.
bool hasTwoPlanes(secao::Kind kind) {
    using enum secao::Kind;
    return kind == IDobrado || kind == CaixaDobrado || kind == DoisULaminado || kind == UULaminado;
}

/// A plate that an oblique end of its bar cuts; one that is seen flat may lie at any depth.
void checkBeforeCut(Survey& survey, const ZpObject& barra, const ZpObject& chapa,
                    const secao::Bounds& box, double slack) {
    const Peca& p = Access::of(barra);
    const bool flat = chapa.vista() != ZpObject::kVistaSecao;
    // From the left, too, those of both flanges are drawn flat: their heights are not shown.
    const bool shown = !flat || p.vista != ZpObject::kVistaEsquerda || !hasTwoPlanes(p.kind);
    if (!cortes::oblique(p) || p.inSecao() || !shown) return;
    const double half = 0.5 * Access::of(chapa).comprimento;
    const auto reach = [&](std::size_t end) {
        return flat ? std::min(cortes::edgeAt(p, end, box.y0), cortes::edgeAt(p, end, box.y1))
                    : cortes::reachOver(p, end, {box.y0, -half}, {box.y1, half}).least;
    };
    if (box.x0 >= -reach(cortes::kStart) - slack &&
        box.x1 <= p.comprimento + reach(cortes::kEnd) + slack)
        return;
    survey.fault(Fault::ChapaOutside, {chapa.objectId(), barra.objectId()},
                 survey.marcaOf(chapa.objectId()), middleOf(chapa),
                 L"a chapa passa do corte da ponta da peça que ela trava.",
                 L"Mova a chapa, ou mude o corte ou o travejamento.");
}

void checkInside(Survey& survey, const ZpObject& barra, const ZpObject& chapa) {
    const Peca& p = Access::of(barra);
    const secao::Bounds whole = p.picture();
    const secao::Bounds box = edit::boxIn(p.frame(), chapa);
    const double slack = kSameCheckedPlace + 1e-6 * p.comprimento;
    const bool beside = box.x0 > whole.x1 + slack || box.x1 < whole.x0 - slack ||
                        box.y0 > whole.y1 + slack || box.y1 < whole.y0 - slack;
    const bool beyond = !p.inSecao() && (box.x0 < -slack || box.x1 > p.comprimento + slack);
    if (!beside && !beyond) return checkBeforeCut(survey, barra, chapa, box, slack);
    survey.fault(Fault::ChapaOutside, {chapa.objectId(), barra.objectId()},
                 survey.marcaOf(chapa.objectId()), middleOf(chapa),
                 beside ? L"a chapa não encosta na peça que ela trava."
                        : L"a chapa passa do fim da peça que ela trava.",
                 L"Mova a chapa, ou refaça o travejamento com EDITAPERFIL.");
}

void checkPlanes(Survey& survey, const Travejada& t) {
    if (!showsOnePlane(survey.book, t.barra)) return;
    survey.fault(Fault::OnePlaneOfTwo, {t.chapas.front(), t.barra.objectId()},
                 survey.marcaOf(t.chapas.front()), middleOf(t.barra),
                 L"a vista mostra um plano de chapas; a peça tem dois.",
                 L"Acerte a quantidade com MARCAS Contar.");
}

/// Plates at one place, told of all but the oldest. Cells as large as the tolerance.
void checkCoinciding(Survey& survey) {
    std::unordered_map<GridCell, std::vector<AcDbObjectId>, GridCellHash> cells;
    for (const AcDbObjectId& id : survey.chapas) {
        const AcDbObjectPointer<ZpObject> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr) continue;
        const Peca& p = Access::of(*chapa.object());
        const AcGePoint3d place = middleOf(*chapa.object());
        const GridCell cell{std::llround(place.x / kSameChapa),
                            std::llround(place.y / kSameChapa),
                            block(*chapa.object()),
                            p.vista,
                            std::llround(p.angle / kSameDirection),
                            std::llround(place.z / kSameChapa)};
        AcDbObjectId other;
        eachNear(cell, [&](const GridCell& near) {
            const auto there = cells.find(near);
            if (there == cells.end() || !other.isNull()) return;
            for (const AcDbObjectId& candidate : there->second) {
                const AcDbObjectPointer<ZpObject> opened(candidate, AcDb::kForRead);
                if (opened.object() != nullptr &&
                    middleOf(*opened.object()).distanceTo(place) < kSameChapa &&
                    member::same(*opened.object(), *chapa.object())) {
                    other = candidate;
                    return;
                }
            }
        });
        // Others at this place are compared with the first one alone.
        if (other.isNull())
            cells[cell].push_back(id);
        else if (member::of(*chapa.object()).count > 0)
            survey.fault(Fault::ChapasCoincide, {id, other}, survey.marcaOf(id), place,
                         L"duas chapas no mesmo lugar; a lista pede uma a mais.",
                         L"Apague uma delas.");
    }
}

/// A bar on its axis: the direction within half a turn, the distance of the axis from the origin,
/// and where the bar begins and ends on it.
struct Axis {
    AcDbObjectId id;
    double angle = 0.0;
    double offset = 0.0;
    double from = 0.0;
    double to = 0.0;
};

Axis axisOf(const ZpObject& barra) {
    const Peca& p = Access::of(barra);
    Axis axis{barra.objectId(), std::fmod(p.angle, kPi), 0.0, 0.0, 0.0};
    if (axis.angle > kPi - kSameDirection) axis.angle -= kPi;
    const AcGeVector3d along = direction(axis.angle);
    const AcGeVector3d start = p.start.asVector();
    axis.offset = along.x * start.y - along.y * start.x;
    const auto [from, to] =
        std::minmax({along.dotProduct(start), along.dotProduct(p.end().asVector())});
    axis.from = from;
    axis.to = to;
    return axis;
}

/// Bars on one line, each told when it begins before the one that reaches furthest so far ends.
void checkLine(Survey& survey, std::vector<Axis>& line) {
    std::ranges::sort(line, {}, &Axis::from);
    const Axis* furthest = nullptr;
    for (const Axis& axis : line) {
        const double over = furthest != nullptr ? std::min(axis.to, furthest->to) - axis.from : 0.0;
        if (over > kTouching && std::abs(axis.offset - furthest->offset) <= kTouching) {
            const std::wstring other = survey.marcaOf(furthest->id);
            const AcGeVector3d along = direction(axis.angle);
            const AcGeVector3d across(-along.y, along.x, 0.0);
            survey.fault(
                Fault::BarsOverlap, {axis.id, furthest->id}, survey.marcaOf(axis.id),
                AcGePoint3d::kOrigin + along * (axis.from + 0.5 * over) + across * axis.offset,
                L"a peça e " + (other.empty() ? L"outra" : other) +
                    L" se sobrepõem ao longo do eixo por " + texts::withComma(over, 1) + L" mm.",
                L"Encurte ou mova uma delas.");
        }
        if (furthest == nullptr || axis.to > furthest->to) furthest = &axis;
    }
}

}  // namespace

bool showsOnePlane(Book& book, const ZpObject& barra) {
    const Peca& p = Access::of(barra);
    const std::vector<AcDbObjectId> chapas = edit::chapasOf(barra);
    if (chapas.empty() || p.inSecao() || !hasTwoPlanes(p.kind) || member::of(barra).count == 0)
        return false;
    long long counted = 0;
    double lowest = 1e300;
    double highest = -1e300;
    for (const AcDbObjectId& id : chapas) {
        const AcDbObjectPointer<ZpObject> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr || book.rowOf(id).isNull()) return false;
        counted += member::of(*chapa.object()).count;
        const double y = p.frame().toLocal(Access::of(*chapa.object()).start).y;
        lowest = std::min(lowest, y);
        highest = std::max(highest, y);
    }
    // One plane that stands for two is right where its plates count for both.
    return highest - lowest <= kSameChapa && counted < 2 * static_cast<long long>(chapas.size());
}

void checkPecasWithoutMarca(Survey& survey) {
    for (const AcDbObjectId& id : survey.pecas) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        if (!peca->isKindOf(ZpChapa::desc())) {
            checkMarcaOfBarra(survey, *peca.object());
        } else if (!survey.lists.empty() && edit::ownerOf(*peca.object()).isNull() &&
                   survey.book.rowOf(id).isNull() && survey.book.marcasOf(id).empty()) {
            survey.fault(Fault::PecaWithoutMarca, {id}, {}, middleOf(*peca.object()),
                         L"a chapa " + wordsOf(*peca.object()) + L" não tem marca.",
                         L"Marque-a com MARCAS Agrupar.");
        }
    }
}

void checkChapas(Survey& survey) {
    for (const AcDbObjectId& id : survey.pecas) {
        const AcDbObjectPointer<ZpObject> barra(id, AcDb::kForRead);
        if (barra.object() == nullptr || barra->isKindOf(ZpChapa::desc())) continue;
        const Travejada travejada{*barra.object(), edit::chapasOf(*barra.object())};
        for (const AcDbObjectId& chapa : travejada.chapas) {
            const AcDbObjectPointer<ZpObject> opened(chapa, AcDb::kForRead);
            if (opened.object() != nullptr) checkInside(survey, travejada.barra, *opened.object());
        }
        checkPlanes(survey, travejada);
    }
    checkCoinciding(survey);
}

/// Bars by their lines: those whose cells touch are one line. O(n log n).
void checkAxes(Survey& survey) {
    std::unordered_map<GridCell, std::size_t, GridCellHash> lineOf;
    std::vector<std::vector<Axis>> lines;
    for (const AcDbObjectId& id : survey.pecas) {
        const AcDbObjectPointer<ZpObject> barra(id, AcDb::kForRead);
        if (barra.object() == nullptr || barra->isKindOf(ZpChapa::desc()) ||
            Access::of(*barra.object()).inSecao())
            continue;
        const Axis axis = axisOf(*barra.object());
        const GridCell cell{std::llround(axis.angle / kSameDirection),
                            std::llround(axis.offset / kTouching),
                            block(*barra.object()),
                            std::llround(Access::of(*barra.object()).start.z / kTouching),
                            0,
                            0};
        std::size_t line = lines.size();
        eachNear(cell, [&](const GridCell& near) {
            if (const auto known = lineOf.find(near); known != lineOf.end()) line = known->second;
        });
        if (line == lines.size()) lines.emplace_back();
        lineOf.try_emplace(cell, line);
        lines[line].push_back(axis);
    }
    for (std::vector<Axis>& line : lines) checkLine(survey, line);
}

}  // namespace zp::matlist
