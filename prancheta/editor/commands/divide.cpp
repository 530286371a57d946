// SPDX-License-Identifier: MIT
// DIVIDE, MEASURE: points or blocks along a curve.
#include <cmath>

#include "dbents.h"
#include "prancheta/editor/commands/answer_bits.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/path.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kBlock[] = {{L"Bloco", L"Block"}};

/// What is set along the curve: points while there is no block.
struct Mark {
    AcDbObjectId block;
    bool aligned = true;
};

AcDbObjectId addMark(const CommandContext& context, const Mark& mark, const Path::Place& at) {
    if (mark.block.isNull()) return addEntity(context, std::make_unique<AcDbPoint>(at.place));
    auto reference = std::make_unique<AcDbBlockReference>(at.place, mark.block);
    if (mark.aligned)
        (void)reference->setRotation(std::atan2(at.along.y, at.along.x));  // a new one takes any
    return addEntity(context, std::move(reference));
}

CommandEnd addMarks(const CommandContext& context, const Path& path, const Mark& mark, double first,
                    double step, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (addMark(context, mark, path.at(first + step * static_cast<double>(i))).isNull())
            return CommandEnd::Failed;
    say(context, counted(count, mark.block.isNull() ? L"ponto." : L"bloco.",
                         mark.block.isNull() ? L"pontos." : L"blocos."));
    return CommandEnd::Done;
}

/// Begins at the end that is nearer to the pick.
Task<std::optional<Path>> askPath(CommandContext context, std::wstring question) {
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, question).required());
        if (picked.status == RTCAN) co_return std::nullopt;
        if (!picked.entities.empty()) {
            std::optional<Path> path = Path::of(picked.entities.front());
            if (path &&
                path->end().distanceTo(picked.point) < path->start().distanceTo(picked.point))
                path->reverse();
            if (path) co_return path;
        }
        context.editor().complain(
            L"Selecione uma linha, um arco, um círculo, uma elipse ou uma polilinha.",
            Complaint::Refused);
    }
}

/// `status` RTCAN in `number` below 0 after Esc.
Task<bool> askBlock(CommandContext context, Mark& mark) {
    for (;;) {
        const InputValue name = co_await context.ask(
            Prompt(InputKind::Text, L"\nNome do bloco: ").required().wholeLine());
        if (name.status == RTCAN) co_return false;
        mark.block = blockNamed(context, name.text);
        if (!mark.block.isNull()) break;
        context.editor().complain(L"Não há um bloco com esse nome.", Complaint::Refused);
    }
    const InputValue aligned =
        co_await askYesNo(context, L"\nAlinhar o bloco com o objeto?", Choice::Yes);
    mark.aligned = aligned.number != 0.0;
    co_return aligned.status != RTCAN;
}

/// A number of this kind, asked again behind the option Bloco.
Task<InputValue> askNumber(CommandContext context, InputKind kind, std::wstring question,
                           Mark& mark) {
    const InputValue answer = co_await context.ask(
        Prompt(kind, L"\n" + question + L" ou [Bloco]: ").words(kBlock).required().bits(kPositive));
    if (answer.status != RTKWORD) co_return answer;
    InputValue none;
    none.status = RTCAN;
    const bool known = co_await askBlock(context, mark);
    if (!known) co_return none;
    co_return co_await context.ask(
        Prompt(kind, L"\n" + question + L": ").required().bits(kPositive));
}

bool tooMany(const CommandContext& context, double count) {
    constexpr double kMost = 32767.0;
    if (count <= kMost) return false;
    context.editor().complain(L"Seriam mais de 32767 pontos: informe um trecho maior.",
                              Complaint::Refused);
    return true;
}

}  // namespace

CommandTask divide(CommandContext context) {
    const std::optional<Path> path = co_await askPath(context, L"\nObjeto a dividir: ");
    if (!path) co_return CommandEnd::Cancelled;
    Mark mark;
    for (;;) {
        const InputValue parts =
            co_await askNumber(context, InputKind::Integer, L"Número de partes", mark);
        if (parts.status != RTNORM) co_return endOf(parts.status);
        if (parts.number >= 2.0) {
            const double step = path->length() / parts.number;
            const std::size_t count = static_cast<std::size_t>(parts.number);
            co_return addMarks(context, *path, mark, path->closed() ? 0.0 : step, step,
                               path->closed() ? count : count - 1);
        }
        context.editor().complain(L"Requer um inteiro entre 2 e 32767.", Complaint::Refused);
    }
}

CommandTask measure(CommandContext context) {
    const std::optional<Path> path = co_await askPath(context, L"\nObjeto a medir: ");
    if (!path) co_return CommandEnd::Cancelled;
    Mark mark;
    for (;;) {
        const InputValue step =
            co_await askNumber(context, InputKind::Distance, L"Comprimento do trecho", mark);
        if (step.status != RTNORM) co_return endOf(step.status);
        // The end has none: there the object itself ends.
        const double count = std::ceil(path->length() / step.number - 1e-9) - 1.0;
        if (count < 1.0)
            context.editor().complain(
                L"O objeto tem " + toldLength(path->length()) + L": o trecho não cabe nele.",
                Complaint::Refused);
        else if (!tooMany(context, count))
            co_return addMarks(context, *path, mark, step.number, step.number,
                               static_cast<std::size_t>(count));
    }
}

}  // namespace prancheta::commands
