// SPDX-License-Identifier: MIT
// DETALHE: a region of the model at a scale of its own, with its mark and its label.
#include "dbpl.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/detail_parts.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/sheet_command.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/typed_input.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr Word kShapes[] = {{L"Círculo", L"Circle"}};
constexpr std::size_t kMostLetters = 8;

/// From where the user points to the model: on a sheet through the viewport that lies there.
struct Sight {
    AcGeMatrix3d toModel;
    double scale = 1.0;  ///< units of the model for one of what is pointed at
};

/// False, after saying why, where a sheet shows no model.
bool sightAt(const CommandContext& context, const AcGePoint3d& at, Sight& sight) {
    const Spaces& spaces = context.editor().spaces();
    if (!spaces.drawsOnPaper()) return true;
    const AcDbViewport* const viewport = viewportOf(spaces.viewportAt(at));
    if (viewport == nullptr) {
        context.editor().complain(
            L"Aí a folha não mostra o modelo; indique a região dentro de uma janela.",
            Complaint::Refused);
        return false;
    }
    sight = {viewport->modelToSheet().inverse(), 1.0 / viewport->customScale()};
    return true;
}

std::unique_ptr<AcDbEntity> rectangle(const AcGePoint3d& a, const AcGePoint3d& b) {
    auto outline = std::make_unique<AcDbPolyline>();
    unsigned index = 0;
    for (const AcGePoint2d corner : {AcGePoint2d(a.x, a.y), {b.x, a.y}, {b.x, b.y}, {a.x, b.y}})
        (void)outline->addVertexAt(index++, corner);
    (void)outline->setClosed(true);
    return outline;
}

std::unique_ptr<AcDbEntity> circle(const AcGePoint3d& center, double radius) {
    return std::make_unique<AcDbCircle>(AcGePoint3d(center.x, center.y, 0.0), AcGeVector3d::kZAxis,
                                        radius);
}

/// The outline in the model; null after Esc.
using Outline = std::unique_ptr<AcDbEntity>;

Task<Outline> askCircle(CommandContext context) {
    for (;;) {
        const InputValue center =
            co_await context.ask(Prompt(InputKind::Point, L"\nCentro da região: ").required());
        if (center.status != RTNORM) co_return Outline();
        Sight sight;
        if (!sightAt(context, center.point, sight)) continue;
        const InputValue radius =
            co_await context.ask(Prompt(InputKind::Distance, L"\nRaio: ")
                                     .required()
                                     .bits(RSG_NOZERO | RSG_NONEG)
                                     .from(center.point)
                                     .showing(context, [at = center.point](const AcGePoint3d& p) {
                                         return circle(at, at.distanceTo(p));
                                     }));
        if (radius.status != RTNORM) co_return Outline();
        co_return circle(sight.toModel * center.point, radius.number * sight.scale);
    }
}

Task<Outline> askOutline(CommandContext context) {
    for (;;) {
        const InputValue first = co_await context.ask(
            Prompt(InputKind::Point, L"\nPrimeiro canto da região ou [Círculo]: ")
                .words(kShapes)
                .required());
        if (first.status == RTKWORD) {
            Outline round = co_await askCircle(context);
            co_return round;
        }
        if (first.status != RTNORM) co_return Outline();
        Sight sight;
        if (!sightAt(context, first.point, sight)) continue;
        const InputValue second = co_await context.ask(
            Prompt(InputKind::Corner, L"\nCanto oposto: ").from(first.point).required());
        if (second.status != RTNORM) co_return Outline();
        Outline made = rectangle(sight.toModel * first.point, sight.toModel * second.point);
        if (!detailBorder(*made).empty()) co_return made;
        context.editor().complain(L"A região precisa de largura e altura.", Complaint::Refused);
    }
}

/// With something in it.
Task<Outline> askRegion(CommandContext context) {
    for (;;) {
        Outline outline = co_await askOutline(context);
        if (outline == nullptr) co_return outline;
        if (showsSomething(context, detailBorder(*outline))) co_return outline;
        context.editor().complain(L"Nada na região.", Complaint::Refused);
    }
}

/// Empty after Esc.
Task<std::wstring> askLetter(CommandContext context) {
    const std::wstring usual = freeLetter(context.database());
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, L"\nLetra <" + usual + L">: "));
        if (answer.status == RTCAN) co_return std::wstring();
        std::wstring letter = upperCase(trim(answer.text));
        if (letter.empty()) letter = usual;
        if (letter.size() > kMostLetters)
            context.editor().complain(L"Requer uma letra ou um nome de até 8 caracteres.",
                                      Complaint::Refused);
        else if (isLetterInUse(context.database(), letter))
            context.editor().complain(L"Já há o detalhe " + letter + L".", Complaint::Refused);
        else
            co_return letter;
    }
}

}  // namespace

CommandTask detalhe(CommandContext context) {
    DetailOrder order;
    order.outline = co_await askRegion(context);
    if (order.outline == nullptr) co_return CommandEnd::Cancelled;
    context.editor().spaces().leave();
    double& usual = memory(context).detailScale;
    const InputValue scale = co_await askSheetScale(context, usual);
    if (scale.status == RTCAN) co_return CommandEnd::Cancelled;
    order.scale = usual = scale.number;
    order.letter = co_await askLetter(context);
    if (order.letter.empty()) co_return CommandEnd::Cancelled;
    const double factor = sizeOnScreen(context, order.scale);
    const InputValue place =
        co_await context.ask(Prompt(InputKind::Point, L"\nCentro do detalhe: ")
                                 .required()
                                 .showing(context, [&order, factor](const AcGePoint3d& at) {
                                     return outlineAt(*order.outline, at, factor);
                                 }));
    if (place.status != RTNORM) co_return endOf(place.status);
    order.place = place.point;
    co_return drawDetail(context, std::move(order));
}

}  // namespace prancheta::commands
