// SPDX-License-Identifier: MIT
// DIMEDIT and DIMTEDIT: text and extension lines of dimensions that are there.
#include <cmath>

#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/dimension_layout.h"

namespace prancheta::commands {

namespace {

constexpr Word kDimeditWords[] = {{L"Mover", L"Move"},
                                  {L"Voltar", L"Home"},
                                  {L"Novo", L"New"},
                                  {L"Girar", L"Rotate"},
                                  {L"Oblíquo", L"Oblique"}};
constexpr Word kDimeditPlaceWords[] = {{L"Voltar", L"Home"}, {L"Ângulo", L"Angle"}};

using Edit = std::function<Acad::ErrorStatus(AcDbDimension&)>;

Acad::ErrorStatus home(AcDbDimension& dimension) {
    const Acad::ErrorStatus es = dimension.useDefaultTextPosition();
    return es == Acad::eOk ? dimension.setTextRotation(0.0) : es;
}

/// Changes the dimensions among what is selected and says how many there were.
CommandTask editAll(CommandContext context, Edit edit) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    Ids dimensions;
    for (const AcDbObjectId id : chosen.ids)
        if (id.objectClass()->isDerivedFrom(AcDbDimension::desc())) dimensions.push_back(id);
    const std::size_t refused = changeEach(dimensions, [&](AcDbEntity& entity, std::size_t) {
                                    return edit(static_cast<AcDbDimension&>(entity));
                                }).size();
    say(context, counted(dimensions.size() - refused, L"cota alterada.", L"cotas alteradas."));
    if (refused > 0)
        say(context,
            counted(refused, L"cota não pôde ser alterada.", L"cotas não puderam ser alteradas."));
    co_return CommandEnd::Done;
}

Task<InputValue> askDimension(CommandContext context) {
    for (;;) {
        InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nSelecione a cota: "));
        if (picked.status == RTCAN || picked.status == RTNONE) co_return picked;
        if (!picked.entities.empty() &&
            picked.entities.front().objectClass()->isDerivedFrom(AcDbDimension::desc()))
            co_return picked;
        context.editor().complain(L"O objeto selecionado não é uma cota.", Complaint::Refused);
    }
}

/// The one dimension, changed; says when it could not be.
CommandEnd editOne(const CommandContext& context, AcDbObjectId id, const Edit& edit) {
    const bool refused = !changeEach({id}, [&](AcDbEntity& entity, std::size_t) {
                              return edit(static_cast<AcDbDimension&>(entity));
                          }).empty();
    if (refused) say(context, L"A cota não pôde ser alterada.");
    return refused ? CommandEnd::Failed : CommandEnd::Done;
}

/// Radians, in the world; Enter and 0, which ask for what is usual, stay 0.
Task<InputValue> askAngle(CommandContext context, std::wstring question) {
    InputValue angle = co_await context.ask(Prompt(InputKind::Angle, question));
    if (angle.status == RTNONE) angle.number = 0.0;
    if (angle.number != 0.0) angle.number += userTurn(context);
    co_return angle;
}

// Made outside of the commands: a temporary of a coroutine's call may be destroyed twice by g++ 12.
Edit turned(double angle) {
    return [angle](AcDbDimension& dimension) { return dimension.setTextRotation(angle); };
}

Edit reading(std::wstring text) {
    return [text = std::move(text)](AcDbDimension& dimension) {
        return dimension.setDimensionText(text.c_str());
    };
}

Edit movedTo(AcGePoint3d to) {
    return [to](AcDbDimension& dimension) { return dimension.moveText(to); };
}

Edit oblique(double angle) {
    return [angle](AcDbDimension& dimension) {
        auto* const linear = dynamic_cast<PranchetaLinearDimension*>(&dimension);
        if (linear == nullptr) return Acad::eNotApplicable;
        const AcGeVector3d along = linear->measuredAlong();
        return linear->setOblique(angle == 0.0 ? 0.0 : angle - std::atan2(along.y, along.x));
    };
}

std::function<void(const AcGePoint3d&, Picture&)> showsText(AcDbObjectId id) {
    return [id](const AcGePoint3d& to, Picture& out) {
        showEach(
            {id},
            [&](AcDbEntity& entity, std::size_t) {
                return static_cast<AcDbDimension&>(entity).moveText(to);
            },
            out);
    };
}

}  // namespace

CommandTask dimtedit(CommandContext context) {
    const InputValue picked = co_await askDimension(context);
    if (picked.status != RTNORM) co_return endOf(picked.status);
    const AcDbObjectId id = picked.entities.front();
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Point, L"\nNova posição do texto da cota ou [Voltar/Ângulo]: ")
            .words(kDimeditPlaceWords)
            .required()
            .preview(showsText(id)));
    if (isWord(answer, L"Home")) co_return editOne(context, id, home);
    if (isWord(answer, L"Angle")) {
        const InputValue angle = co_await askAngle(context, L"\nÂngulo do texto da cota: ");
        if (angle.status == RTCAN) co_return CommandEnd::Cancelled;
        co_return editOne(context, id, turned(angle.number));
    }
    if (answer.status != RTNORM) co_return endOf(answer.status);
    co_return editOne(context, id, movedTo(answer.point));
}

CommandTask dimedit(CommandContext context) {
    const InputValue option = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nEdição de cota [Mover/Voltar/Novo/Girar/Oblíquo] <Voltar>: ")
            .words(kDimeditWords));
    if (option.status == RTCAN) co_return CommandEnd::Cancelled;
    if (isWord(option, L"Move")) co_return co_await dimtedit(context);
    if (isWord(option, L"New")) {
        const InputValue text = co_await context.ask(
            Prompt(InputKind::Text, L"\nNovo texto da cota <medida>: ").wholeLine());
        if (text.status == RTCAN) co_return CommandEnd::Cancelled;
        const std::wstring said = text.status == RTNORM ? text.text : std::wstring();
        const Edit edit = reading(said);
        co_return co_await editAll(context, edit);
    }
    if (isWord(option, L"Rotate")) {
        const InputValue angle = co_await askAngle(context, L"\nÂngulo do texto da cota: ");
        if (angle.status == RTCAN) co_return CommandEnd::Cancelled;
        const Edit edit = turned(angle.number);
        co_return co_await editAll(context, edit);
    }
    if (isWord(option, L"Oblique")) {
        const InputValue angle = co_await askAngle(
            context, L"\nÂngulo das linhas de extensão (Enter: perpendiculares): ");
        if (angle.status == RTCAN) co_return CommandEnd::Cancelled;
        const Edit edit = oblique(angle.number);
        co_return co_await editAll(context, edit);
    }
    const Edit edit = home;
    co_return co_await editAll(context, edit);
}

}  // namespace prancheta::commands
