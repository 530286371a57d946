// SPDX-License-Identifier: MIT
// POLYGON: regular polygons by centre and radius or by one side.
#include <cmath>

#include "prancheta/editor/commands/answer_bits.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/shapes.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kSideWord[] = {{L"Lado", L"Edge"}};
constexpr Word kRoundWords[] = {{L"Inscrito", L"Inscribed"}, {L"Circunscrito", L"Circumscribed"}};

/// Counter-clockwise from the corner at `arm` from the centre; null for no arm.
std::unique_ptr<AcDbEntity> polygonWith(const AcGePoint3d& centre, const AcGeVector3d& arm,
                                        int sides) {
    if (arm.isZeroLength()) return nullptr;
    std::vector<ShapeCorner> corners;
    corners.reserve(static_cast<std::size_t>(sides));
    for (int i = 0; i < sides; ++i)
        corners.push_back(
            {centre + AcGeMatrix3d::rotation(kTwoPi * i / sides, AcGeVector3d::kZAxis) * arm});
    return closedPolyline(corners);
}

/// Where a corner stands when `to` is one, or the middle of a side.
AcGeVector3d armTo(const AcGeVector3d& to, int sides, bool around) {
    if (!around) return to;
    return AcGeMatrix3d::rotation(kPi / sides, AcGeVector3d::kZAxis) * to / std::cos(kPi / sides);
}

/// The polygon lies to the left of its first side.
std::unique_ptr<AcDbEntity> polygonOn(const AcGePoint3d& a, const AcGePoint3d& b, int sides) {
    const AcGeVector3d half = (b - a) / 2.0;
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(half) / std::tan(kPi / sides);
    return polygonWith(a + half + up, -half - up, sides);
}

CommandEnd add(const CommandContext& context, std::unique_ptr<AcDbEntity> made) {
    return addEntity(context, std::move(made)).isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

CommandTask bySide(CommandContext context, int sides) {
    const InputValue a = co_await context.ask(
        Prompt(InputKind::Point, L"\nPrimeira extremidade do lado: ").required());
    if (a.status != RTNORM) co_return endOf(a.status);
    Prompt second(InputKind::Point, L"\nSegunda extremidade do lado: ");
    second.from(a.point).required().showing(
        context, [at = a.point, sides](const AcGePoint3d& to) { return polygonOn(at, to, sides); });
    for (;;) {
        const InputValue b = co_await context.ask(second);
        if (b.status != RTNORM) co_return endOf(b.status);
        if (std::unique_ptr<AcDbEntity> made = polygonOn(a.point, b.point, sides))
            co_return add(context, std::move(made));
        context.editor().complain(L"O lado não tem comprimento: informe outro ponto.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask polygon(CommandContext context) {
    Memory& kept = memory(context);
    for (double wanted = kept.polygonSides;;) {
        const InputValue count =
            co_await askKept(context, InputKind::Integer, L"Número de lados", kPositive, wanted);
        if (count.status != RTNORM) co_return endOf(count.status);
        if (wanted >= 3.0 && wanted <= 1024.0) {
            kept.polygonSides = wanted;
            break;
        }
        wanted = kept.polygonSides;
        context.editor().complain(L"Requer um inteiro entre 3 e 1024.", Complaint::Refused);
    }
    const int sides = static_cast<int>(kept.polygonSides);
    const InputValue centre = co_await context.ask(
        Prompt(InputKind::Point, L"\nCentro do polígono ou [Lado]: ").words(kSideWord).required());
    if (centre.status == RTKWORD) {
        const CommandEnd end = co_await bySide(context, sides);
        co_return end;
    }
    if (centre.status != RTNORM) co_return endOf(centre.status);
    const InputValue round = co_await context.ask(
        Prompt(InputKind::Keyword, L"\n[Inscrito/Circunscrito] no círculo <" +
                                       std::wstring(kRoundWords[kept.polygonAround].local) + L">: ")
            .words(kRoundWords));
    if (round.status == RTCAN) co_return CommandEnd::Cancelled;
    if (round.status == RTKWORD) kept.polygonAround = isWord(round, L"Circumscribed");

    const bool around = kept.polygonAround;
    const InputValue radius = co_await context.ask(
        Prompt(InputKind::Distance, L"\nRaio do círculo: ")
            .from(centre.point)
            .required()
            .bits(kPositive)
            .showing(context, [at = centre.point, sides, around](const AcGePoint3d& to) {
                return polygonWith(at, armTo(to - at, sides, around), sides);
            }));
    if (radius.status != RTNORM) co_return endOf(radius.status);
    // A typed radius lays a side along the X axis, below the centre.
    const AcGeVector3d down = context.editor().ucs() * AcGeVector3d(0.0, -radius.number, 0.0);
    const AcGeVector3d arm = radius.byPoint
                                 ? armTo(radius.point - centre.point, sides, around)
                                 : armTo(around ? down : down * std::cos(kPi / sides), sides, true);
    co_return add(context, polygonWith(centre.point, arm, sides));
}

}  // namespace prancheta::commands
