// SPDX-License-Identifier: MIT
// DIMLINEAR: a horizontal, vertical or rotated dimension of two points or of an object.
#include <algorithm>
#include <cmath>

#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kDimlinearWords[] = {
    {L"Horizontal", L"Horizontal"}, {L"Vertical", L"Vertical"}, {L"Rotacionado", L"Rotated"}};

enum class Axis { Horizontal, Vertical };

/// How far `value` lies beyond a range; 0 within.
double overshoot(double value, double a, double b) {
    return std::max({0.0, std::min(a, b) - value, value - std::max(a, b)});
}

/// By where the pointer stands outside the box of the origins, in the user's frame: above or below
/// horizontal, to the left or right vertical, in a corner by the larger overshoot.
Axis axisAt(const AcGePoint3d& pointer, const Ends& ends, Axis before) {
    const double x = overshoot(pointer.x, ends.first.x, ends.second.x);
    const double y = overshoot(pointer.y, ends.first.y, ends.second.y);
    if (x == y) return before;
    return y > x ? Axis::Horizontal : Axis::Vertical;
}

/// What is asked and shown until the line has its place.
struct Draft {
    Ends ends;
    AcGeMatrix3d toUser;
    double userX = 0.0;  ///< direction of the user's x, radians in the world
    Axis axis = Axis::Horizontal;
    std::optional<double> fixed;  ///< rotation that was said

    double rotationAt(const AcGePoint3d& pointer) {
        if (fixed) return *fixed;
        axis = axisAt(toUser * pointer, {toUser * ends.first, toUser * ends.second}, axis);
        return userX + (axis == Axis::Vertical ? kPi / 2.0 : 0.0);
    }
};

Task<int> takeOption(CommandContext context, InputValue option, std::shared_ptr<Draft> draft) {
    if (isWord(option, L"Horizontal")) {
        draft->fixed = draft->userX;
    } else if (isWord(option, L"Vertical")) {
        draft->fixed = draft->userX + kPi / 2.0;
    } else {
        const InputValue angle = co_await context.ask(
            Prompt(InputKind::Angle, L"\nÂngulo da linha de cota <0>: ").from(draft->ends.first));
        if (angle.status == RTCAN) co_return RTCAN;
        draft->fixed = draft->userX + (angle.status == RTNORM ? angle.number : 0.0);
    }
    co_return RTNORM;
}

}  // namespace

CommandTask dimlinear(CommandContext context) {
    const Measured measured = co_await askEnds(
        context, L"\nOrigem da primeira linha de extensão ou <selecione o objeto>: ",
        L"\nOrigem da segunda: ");
    if (measured.status != RTNORM) co_return endOf(measured.status);
    const auto draft = std::make_shared<Draft>();
    draft->ends = measured.ends;
    draft->toUser = context.editor().ucs().inverse();
    draft->userX = userTurn(context);
    Placing placing;
    placing.question =
        L"\nPosição da linha de cota ou [textoM/Texto/Ângulo/Horizontal/Vertical/Rotacionado]: ";
    placing.from = placing.trial = draft->ends.second;
    placing.make = [draft](const AcGePoint3d& line) {
        return std::make_unique<AcDbRotatedDimension>(draft->rotationAt(line), draft->ends.first,
                                                      draft->ends.second, line);
    };
    placing.more = kDimlinearWords;
    placing.takeMore = [context, draft](InputValue option) {
        return takeOption(context, std::move(option), draft);
    };
    co_return co_await placeDimension(context, std::move(placing));
}

}  // namespace prancheta::commands
