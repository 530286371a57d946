// SPDX-License-Identifier: MIT
// ELLIPSE: by an axis and half of the other one, or by the centre; whole or an arc of it.
#include <cmath>

#include "dbents.h"
#include "prancheta/editor/commands/answer_bits.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kEllipseCommandWays[] = {{L"Arco", L"Arc"}, {L"Centro", L"Center"}};
constexpr Word kCentre[] = {{L"Centro", L"Center"}};
constexpr Word kRotation[] = {{L"Rotação", L"Rotation"}};
constexpr Word kIncluded[] = {{L"Incluso", L"Included"}};

/// An axis as it was given: half of it from the centre, and half the length of the other one.
struct Axes {
    AcGePoint3d centre;
    AcGeVector3d first;
    double second = 0.0;
};

/// Shorter axes, and such parts of the other one, are slips.
constexpr double kLeast = 1e-9;

using Made = std::unique_ptr<AcDbEntity>;

/// Parameters count from the first axis. Null where an axis is missing.
Made ellipseOf(const Axes& axes, double from = 0.0, double to = kTwoPi) {
    const double first = axes.first.length();
    if (!(first > kLeast) || !(axes.second > kLeast)) return nullptr;
    if (axes.second <= first)
        return std::make_unique<AcDbEllipse>(axes.centre, AcGeVector3d::kZAxis, axes.first,
                                             axes.second / first, from, to);
    const bool whole = to - from >= kTwoPi;
    const AcGeVector3d major =
        AcGeVector3d::kZAxis.crossProduct(axes.first) * (axes.second / first);
    const double back = whole ? 0.0 : kPi / 2.0;
    return std::make_unique<AcDbEllipse>(axes.centre, AcGeVector3d::kZAxis, major,
                                         first / axes.second, from - back, to - back);
}

/// Parameter of the point that is seen from the centre in this direction, from the first axis.
double paramOf(const Axes& axes, double angle) {
    const auto [s, c] = sineCosine(angle);
    return positiveAngle(std::atan2(s * axes.first.length(), c * axes.second));
}

/// `number` counts from the first axis, whether it was typed or shown.
Task<InputValue> askAngle(CommandContext context, std::wstring question, Axes axes, bool ends) {
    Prompt prompt(InputKind::Angle, question);
    prompt.from(axes.centre).required().absolute();
    if (ends) prompt.words(kIncluded);
    InputValue angle = co_await context.ask(prompt);
    if (angle.status == RTNORM && angle.byPoint)
        angle.number = directionOf(axes.centre, angle.point) -
                       directionOf(AcGePoint3d::kOrigin, AcGePoint3d::kOrigin + axes.first);
    co_return angle;
}

CommandEnd add(const CommandContext& context, Made made) {
    return addEntity(context, std::move(made)).isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

CommandTask addArc(CommandContext context, Axes axes) {
    const InputValue start = co_await askAngle(context, L"\nÂngulo inicial: ", axes, false);
    if (start.status != RTNORM) co_return endOf(start.status);
    const double from = paramOf(axes, start.number);
    InputValue end = co_await askAngle(context, L"\nÂngulo final ou [Incluso]: ", axes, true);
    if (end.status == RTKWORD) {
        end = co_await context.ask(
            Prompt(InputKind::Angle, L"\nÂngulo incluso: ").required().bits(kPositive));
        end.number += start.number;
    }
    if (end.status != RTNORM) co_return endOf(end.status);
    double to = paramOf(axes, end.number);
    if (to <= from + 1e-12) to += kTwoPi;
    co_return add(context, ellipseOf(axes, from, to));
}

Axes withSecond(const Axes& axes, const AcGePoint3d& to) {
    return {axes.centre, axes.first, axes.centre.distanceTo(to)};
}

/// Half the other axis, `number`.
Task<InputValue> askSecond(CommandContext context, Axes axes) {
    InputValue second = co_await context.ask(
        Prompt(InputKind::Distance, L"\nDistância até o outro eixo ou [Rotação]: ")
            .from(axes.centre)
            .words(kRotation)
            .required()
            .bits(kPositive)
            .showing(context,
                     [axes](const AcGePoint3d& to) { return ellipseOf(withSecond(axes, to)); }));
    if (second.status != RTKWORD) co_return second;
    for (;;) {
        second = co_await context.ask(
            Prompt(InputKind::Angle, L"\nRotação em volta do eixo maior: ").required());
        // A circle seen at a slant; seen from its edge it is a line.
        const double seen = std::abs(std::cos(second.number));
        if (second.status == RTNORM) second.number = axes.first.length() * seen;
        if (second.status != RTNORM || seen >= 0.01) co_return second;
        context.editor().complain(L"A rotação vai de 0 a 89,4 graus.", Complaint::Refused);
    }
}

/// The first axis; `status` RTCAN in `second` below 0 when a question was refused.
Task<Axes> askFirst(CommandContext context, InputValue first, bool byCentre) {
    Axes axes;
    axes.second = -1.0;
    if (byCentre)
        first = co_await context.ask(Prompt(InputKind::Point, L"\nCentro da elipse: ").required());
    if (first.status != RTNORM) co_return axes;
    for (;;) {
        const InputValue end = co_await context.ask(
            Prompt(InputKind::Point,
                   byCentre ? L"\nExtremidade do eixo: " : L"\nOutra extremidade do eixo: ")
                .from(first.point)
                .required());
        if (end.status != RTNORM) co_return axes;
        const AcGeVector3d along = end.point - first.point;
        if (along.length() > 2.0 * kLeast) {
            axes.centre = byCentre ? first.point : first.point + along / 2.0;
            axes.first = byCentre ? along : along / 2.0;
            axes.second = 0.0;
            co_return axes;
        }
        context.editor().complain(L"O eixo não tem comprimento: informe outro ponto.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask ellipse(CommandContext context) {
    InputValue first =
        co_await context.ask(Prompt(InputKind::Point, L"\nExtremidade do eixo ou [Arco/Centro]: ")
                                 .words(kEllipseCommandWays)
                                 .required());
    const bool arc = isWord(first, L"Arc");
    if (arc)
        first = co_await context.ask(
            Prompt(InputKind::Point, L"\nExtremidade do eixo do arco ou [Centro]: ")
                .words(kCentre)
                .required());
    const bool byCentre = isWord(first, L"Center");
    if (first.status == RTCAN) co_return CommandEnd::Cancelled;
    Axes axes = co_await askFirst(context, first, byCentre);
    if (axes.second < 0.0) co_return CommandEnd::Cancelled;
    while (!(axes.second > kLeast * std::max(1.0, axes.first.length()))) {
        if (axes.second > 0.0)
            context.editor().complain(L"O outro eixo é curto demais: informe outro.",
                                      Complaint::Refused);
        const InputValue second = co_await askSecond(context, axes);
        if (second.status != RTNORM) co_return endOf(second.status);
        axes.second = second.number;
    }
    if (!arc) co_return add(context, ellipseOf(axes));
    const CommandEnd end = co_await addArc(context, axes);
    co_return end;
}

}  // namespace prancheta::commands
