// SPDX-License-Identifier: MIT
// DIMANGULAR: of two lines, an arc, a circle and a second point, or a vertex and two points.
#include <cmath>

#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

/// What is measured, before the arc has its place: two lines, or a vertex and two points.
struct Sides {
    int status = RTCAN;
    bool lines = false;
    AcGePoint3d points[4];
};

std::unique_ptr<AcDbDimension> dimensionAt(const Sides& sides, const AcGePoint3d& arc) {
    const AcGePoint3d(&p)[4] = sides.points;
    if (sides.lines)
        return std::make_unique<AcDb2LineAngularDimension>(p[0], p[1], p[2], p[3], arc);
    return std::make_unique<AcDb3PointAngularDimension>(p[0], p[1], p[2], arc);
}

bool isStraight(const Edge& edge) { return !edge.isArc(); }

bool parallel(const Edge& a, const Edge& b) {
    const AcGeVector3d u = a.b - a.a;
    const AcGeVector3d v = b.b - b.a;
    return std::abs(u.x * v.y - u.y * v.x) <= 1e-9 * u.length() * v.length();
}

/// Asked until there is a point; RTCAN after Esc.
Task<InputValue> askPoint(CommandContext context, std::wstring question, AcGePoint3d from) {
    co_return co_await context.ask(Prompt(InputKind::Point, question).from(from).required());
}

Task<Sides> askVertex(CommandContext context) {
    Sides sides;
    const InputValue vertex =
        co_await context.ask(Prompt(InputKind::Point, L"\nVértice do ângulo: ").required());
    sides.status = vertex.status;
    if (vertex.status != RTNORM) co_return sides;
    sides.points[0] = vertex.point;
    const wchar_t* const questions[] = {L"\nPrimeiro ponto do ângulo: ",
                                        L"\nSegundo ponto do ângulo: "};
    for (int i = 0; i < 2; ++i)
        for (;;) {
            const InputValue point = co_await askPoint(context, questions[i], vertex.point);
            sides.status = point.status;
            if (point.status != RTNORM) co_return sides;
            sides.points[i + 1] = point.point;
            if (planeDistance(point.point, vertex.point) > 1e-9) break;
            context.editor().complain(L"O ponto está no vértice.", Complaint::Refused);
        }
    co_return sides;
}

Task<Sides> askSides(CommandContext context) {
    const PickedEdge first =
        co_await askEdge(context, L"\nSelecione o arco, o círculo, a linha ou <vértice>: ", anyEdge,
                         L"O objeto selecionado não pode ser cotado.");
    if (first.status == RTNONE) co_return co_await askVertex(context);
    Sides sides;
    sides.status = first.status;
    if (first.status != RTNORM) co_return sides;
    if (first.edge.isArc()) {
        sides.points[0] = first.edge.center;
        sides.points[1] = first.edge.a;
        sides.points[2] = first.edge.b;
        if (!first.edge.isCircle()) co_return sides;
        sides.points[1] = nearestOn(first.edge, first.pick);
        const InputValue second =
            co_await askPoint(context, L"\nSegundo ponto do ângulo: ", first.edge.center);
        sides.status = second.status;
        sides.points[2] = nearestOn(first.edge, second.point);
        co_return sides;
    }
    for (;;) {
        const PickedEdge second =
            co_await askEdge(context, L"\nSelecione a segunda linha: ", isStraight,
                             L"Selecione uma linha, um trecho reto ou uma aresta.");
        sides.status = second.status;
        if (second.status != RTNORM) co_return sides;
        if (!parallel(first.edge, second.edge)) {
            sides.lines = true;
            const AcGePoint3d ends[] = {first.edge.a, first.edge.b, second.edge.a, second.edge.b};
            std::copy(std::begin(ends), std::end(ends), sides.points);
            co_return sides;
        }
        context.editor().complain(L"As linhas são paralelas: não há ângulo a cotar.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask dimangular(CommandContext context) {
    const Sides sides = co_await askSides(context);
    if (sides.status != RTNORM) co_return endOf(sides.status);
    Placing placing;
    placing.question = L"\nPosição do arco da linha de cota ou [textoM/Texto/Ângulo]: ";
    placing.trial = sides.points[1];
    placing.make = [sides](const AcGePoint3d& arc) { return dimensionAt(sides, arc); };
    co_return co_await placeDimension(context, std::move(placing));
}

}  // namespace prancheta::commands
