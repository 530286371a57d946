// SPDX-License-Identifier: MIT
// RECTANG: a rectangle by two corners, by its area or by its sides; corners cut or rounded.
#include <algorithm>
#include <cmath>

#include "prancheta/editor/commands/answer_bits.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/shapes.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::commands {

namespace {

constexpr Word kStyleWords[] = {
    {L"Chanfro", L"Chamfer"}, {L"aRredondar", L"Fillet"}, {L"Largura", L"Width"}};
constexpr Word kSizeWords[] = {
    {L"Área", L"Area"}, {L"Dimensões", L"Dimensions"}, {L"Rotação", L"Rotation"}};
constexpr Word kRectangSideWords[] = {{L"Comprimento", L"Length"}, {L"Largura", L"Width"}};

/// What is cut off a corner: so much of the side that arrives there and of the one that leaves.
struct Cut {
    double arriving = 0.0;
    double leaving = 0.0;
    double bulge = 0.0;  ///< of a corner passed counter-clockwise
    double area = 0.0;   ///< of all four corners
};

// Trivial: a lambda inside a co_await expression takes nothing else without harm (g++ 12).
struct Style {
    Cut cut;
    double lineWidth = 0.0;
};

Cut cutOf(const Memory& kept) {
    const double r = kept.rectangleRadius;
    if (r > 0.0) return {r, r, bulgeOfSweep(kPi / 2.0), (4.0 - kPi) * r * r};
    const double a = kept.chamferFirst;
    const double b = kept.chamferSecond;
    return {a, b, 0.0, 2.0 * a * b};
}

Style styleOf(const CommandContext& context) {
    return {cutOf(memory(context)), memory(context).rectangleLineWidth};
}

/// A rectangle's first corner, and its sides as vectors of unit length.
struct Frame {
    AcGePoint3d corner;
    AcGeVector3d along;
    AcGeVector3d across;
};

Frame frameAt(const CommandContext& context, const AcGePoint3d& corner) {
    const AcGeMatrix3d axes =
        context.editor().ucs() *
        AcGeMatrix3d::rotation(memory(context).rectangleTurn, AcGeVector3d::kZAxis);
    return {corner, axes * AcGeVector3d::kXAxis, axes * AcGeVector3d::kYAxis};
}

bool fits(const Cut& cut, double length, double width) {
    return cut.arriving + cut.leaving <=
           std::min(std::abs(length), std::abs(width)) * (1.0 + 1e-12);
}

/// Sides in drawing units, negative to the left of the corner or below it. Null for none;
/// corners that cannot be cut stay sharp.
std::unique_ptr<AcDbEntity> rectangle(const Frame& frame, double length, double width,
                                      const Style& style) {
    if (std::abs(length) < 1e-9 || std::abs(width) < 1e-9) return nullptr;
    const Cut cut = fits(style.cut, length, width) ? style.cut : Cut();
    const AcGeVector3d sides[] = {frame.along * length, frame.across * width};
    const double sense = length * width > 0.0 ? 1.0 : -1.0;
    std::vector<ShapeCorner> corners;
    AcGePoint3d at = frame.corner;
    for (int i = 0; i < 4; ++i) {
        const AcGeVector3d leaving = sides[i % 2] * (i < 2 ? 1.0 : -1.0);
        const AcGeVector3d arriving = sides[(i + 1) % 2] * (i == 1 || i == 2 ? 1.0 : -1.0);
        if (cut.arriving > 0.0)
            corners.push_back({at - arriving.normal() * cut.arriving, cut.bulge * sense});
        corners.push_back({at + leaving.normal() * cut.leaving});
        at += leaving;
    }
    return closedPolyline(corners, style.lineWidth);
}

std::unique_ptr<AcDbEntity> rectangleTo(const Frame& frame, const AcGePoint3d& to,
                                        const Style& style) {
    const AcGeVector3d diagonal = to - frame.corner;
    return rectangle(frame, diagonal.dotProduct(frame.along), diagonal.dotProduct(frame.across),
                     style);
}

/// `status` RTCAN after Esc.
Task<InputValue> askStyle(CommandContext context, InputValue word) {
    Memory& kept = memory(context);
    if (isWord(word, L"Width"))
        co_return co_await askKept(context, InputKind::Distance, L"Largura da linha", RSG_NONEG,
                                   kept.rectangleLineWidth);
    if (isWord(word, L"Fillet"))
        co_return co_await askKept(context, InputKind::Distance, L"Raio do arredondamento",
                                   RSG_NONEG, kept.rectangleRadius);
    const InputValue first =
        co_await askKept(context, InputKind::Distance, L"Primeira distância do chanfro", RSG_NONEG,
                         kept.chamferFirst);
    if (first.status != RTNORM) co_return first;
    kept.chamferSecond = kept.chamferFirst;
    kept.rectangleRadius = 0.0;
    co_return co_await askKept(context, InputKind::Distance, L"Segunda distância do chanfro",
                               RSG_NONEG, kept.chamferSecond);
}

/// What was set for another rectangle still holds: it is told.
void tellStyle(const CommandContext& context) {
    const Memory& kept = memory(context);
    std::wstring style;
    const auto add = [&](const wchar_t* what, double value) {
        if (value != 0.0) style += std::wstring(L"  ") + what + L"=" + lengthText(value);
    };
    if (kept.rectangleRadius == 0.0) {
        add(L"Chanfro", kept.chamferFirst);
        add(L"e", kept.chamferSecond);
    }
    add(L"Arredondamento", kept.rectangleRadius);
    add(L"Largura", kept.rectangleLineWidth);
    if (kept.rectangleTurn != 0.0) style += L"  Rotação=" + turnText(context, kept.rectangleTurn);
    if (!style.empty()) say(context, L"Modos atuais do retângulo:" + style);
}

/// Length and width, `point.x` and `point.y`, from an area and one of them.
Task<InputValue> askByArea(CommandContext context) {
    Memory& kept = memory(context);
    InputValue answer = co_await askKept(context, InputKind::Real, L"Área do retângulo", kPositive,
                                         kept.rectangleArea);
    if (answer.status != RTNORM) co_return answer;
    const InputValue by = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nCalcular por [Comprimento/Largura] <Comprimento>: ")
            .words(kRectangSideWords));
    if (by.status == RTCAN) co_return by;
    const bool byWidth = isWord(by, L"Width");
    double& known = byWidth ? kept.rectangleWidth : kept.rectangleLength;
    double& other = byWidth ? kept.rectangleLength : kept.rectangleWidth;
    answer = co_await askKept(context, InputKind::Distance,
                              byWidth ? L"Largura do retângulo" : L"Comprimento do retângulo",
                              kPositive, known);
    other = (kept.rectangleArea + cutOf(kept).area) / known;
    // The area is that of what is drawn.
    if (!fits(cutOf(kept), known, other)) other = kept.rectangleArea / known;
    answer.point = {kept.rectangleLength, kept.rectangleWidth, 0.0};
    co_return answer;
}

Task<InputValue> askSides(CommandContext context) {
    Memory& kept = memory(context);
    InputValue answer = co_await askKept(context, InputKind::Distance, L"Comprimento do retângulo",
                                         kPositive, kept.rectangleLength);
    if (answer.status != RTNORM) co_return answer;
    answer = co_await askKept(context, InputKind::Distance, L"Largura do retângulo", kPositive,
                              kept.rectangleWidth);
    answer.point = {kept.rectangleLength, kept.rectangleWidth, 0.0};
    co_return answer;
}

Task<InputValue> askTurn(CommandContext context, AcGePoint3d corner) {
    static constexpr Word kPoints[] = {{L"Pontos", L"Points"}};
    Memory& kept = memory(context);
    InputValue turn = co_await context.ask(
        Prompt(InputKind::Angle,
               L"\nÂngulo de rotação ou [Pontos] <" + directionText(kept.rectangleTurn) + L">: ")
            .from(corner)
            .words(kPoints)
            .absolute());
    if (turn.status == RTKWORD) {
        const InputValue from =
            co_await context.ask(Prompt(InputKind::Point, L"\nPrimeiro ponto: ").required());
        if (from.status != RTNORM) co_return from;
        turn = co_await context.ask(
            Prompt(InputKind::Angle, L"\nSegundo ponto: ").from(from.point).absolute().required());
    }
    if (turn.status == RTNORM) kept.rectangleTurn = turn.number;
    co_return turn;
}

CommandEnd add(const CommandContext& context, const Frame& frame, double length, double width) {
    const Memory& kept = memory(context);
    if (!fits(cutOf(kept), length, width))
        say(context, kept.rectangleRadius > 0.0
                         ? L"O arredondamento não cabe no retângulo: os cantos ficam vivos."
                         : L"O chanfro não cabe no retângulo: os cantos ficam vivos.");
    const AcDbObjectId id = addEntity(context, rectangle(frame, length, width, styleOf(context)));
    return id.isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

/// The sides are known: a point tells on which side of the first corner the rectangle lies.
CommandTask askSide(CommandContext context, AcGePoint3d corner, AcGePoint3d size) {
    const Frame frame = frameAt(context, corner);
    const auto sized = [frame, size](const AcGePoint3d& to) {
        const AcGeVector3d reach = to - frame.corner;
        return AcGeVector3d(reach.dotProduct(frame.along) < 0.0 ? -size.x : size.x,
                            reach.dotProduct(frame.across) < 0.0 ? -size.y : size.y, 0.0);
    };
    const InputValue side = co_await context.ask(
        Prompt(InputKind::Point, L"\nLado do canto oposto: ")
            .required()
            .showing(context, [frame, sized, style = styleOf(context)](const AcGePoint3d& to) {
                return rectangle(frame, sized(to).x, sized(to).y, style);
            }));
    if (side.status != RTNORM) co_return endOf(side.status);
    const AcGeVector3d sides = sized(side.point);
    co_return add(context, frame, sides.x, sides.y);
}

CommandTask askOpposite(CommandContext context, AcGePoint3d corner) {
    for (;;) {
        const Frame frame = frameAt(context, corner);
        const InputValue opposite = co_await context.ask(
            Prompt(InputKind::Point, L"\nCanto oposto ou [Área/Dimensões/Rotação]: ")
                .from(corner)
                .anywhere()
                .required()
                .words(kSizeWords)
                .showing(context, [frame, style = styleOf(context)](const AcGePoint3d& to) {
                    return rectangleTo(frame, to, style);
                }));
        if (isWord(opposite, L"Rotation")) {
            const InputValue turn = co_await askTurn(context, corner);
            if (turn.status == RTCAN) co_return CommandEnd::Cancelled;
            continue;
        }
        if (opposite.status == RTKWORD) {
            InputValue size;
            if (isWord(opposite, L"Area"))
                size = co_await askByArea(context);
            else
                size = co_await askSides(context);
            if (size.status != RTNORM) co_return endOf(size.status);
            const CommandEnd end = co_await askSide(context, corner, size.point);
            co_return end;
        }
        if (opposite.status != RTNORM) co_return endOf(opposite.status);
        const AcGeVector3d diagonal = opposite.point - corner;
        const double length = diagonal.dotProduct(frame.along);
        const double width = diagonal.dotProduct(frame.across);
        if (std::abs(length) >= 1e-9 && std::abs(width) >= 1e-9)
            co_return add(context, frame, length, width);
        context.editor().complain(
            L"O retângulo não teria área: informe um canto fora dos lados do primeiro.",
            Complaint::Refused);
    }
}

}  // namespace

CommandTask rectang(CommandContext context) {
    tellStyle(context);
    for (;;) {
        const InputValue first = co_await context.ask(
            Prompt(InputKind::Point, L"\nPrimeiro canto ou [Chanfro/aRredondar/Largura]: ")
                .words(kStyleWords)
                .required());
        if (first.status == RTKWORD) {
            const InputValue style = co_await askStyle(context, first);
            if (style.status == RTCAN) co_return CommandEnd::Cancelled;
            continue;
        }
        if (first.status != RTNORM) co_return endOf(first.status);
        const CommandEnd end = co_await askOpposite(context, first.point);
        co_return end;
    }
}

}  // namespace prancheta::commands
