// SPDX-License-Identifier: MIT
// PLINE: one polyline of lines and arcs.
#include <cmath>

#include "dbpl.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/pline_draft.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kLineWords[] = {
    {L"Arco", L"Arc"},           {L"Fechar", L"Close"},  {L"Meialargura", L"Halfwidth"},
    {L"Comprimento", L"Length"}, {L"Desfazer", L"Undo"}, {L"Largura", L"Width"},
};
constexpr Word kArcWords[] = {
    {L"Ângulo", L"Angle"},      {L"CEntro", L"CEnter"},         {L"Fechar", L"CLose"},
    {L"DIreção", L"Direction"}, {L"Meialargura", L"Halfwidth"}, {L"LInha", L"Line"},
    {L"Raio", L"Radius"},       {L"Segundo", L"Second"},        {L"Desfazer", L"Undo"},
    {L"LArgura", L"Width"},
};

enum class Mode { Line, Arc };

/// The next segment alone; null where there is none.
std::unique_ptr<AcDbEntity> segmentTo(const CommandContext& context, Mode mode,
                                      const AcGePoint3d& from, double direction,
                                      const AcGePoint3d& to) {
    const Memory& kept = memory(context);
    double bulge = 0.0;
    if (mode == Mode::Arc) bulge = bulgeByDirection(from, to, direction).value_or(0.0);
    auto segment = std::make_unique<AcDbPolyline>();
    (void)segment->setElevation(from.z);  // a new entity takes any value
    (void)segment->addVertexAt(0, AcGePoint2d(from.x, from.y), bulge, kept.plineStartWidth,
                               kept.plineEndWidth);
    (void)segment->addVertexAt(1, AcGePoint2d(to.x, to.y));
    return segment;
}

/// "[A/B/C]" of the words offered; closing needs two segments of lines, or one before an arc.
Prompt nextSegment(const CommandContext& context, const PlineDraft& draft, Mode mode) {
    const bool closable = draft.segments() > (mode == Mode::Line ? 1u : 0u);
    const std::span<const Word> all =
        mode == Mode::Line ? std::span<const Word>(kLineWords) : std::span<const Word>(kArcWords);
    std::wstring text = mode == Mode::Line ? L"\nEspecifique o próximo ponto ou"
                                           : L"\nEspecifique a extremidade do arco ou";
    wchar_t separator = L'[';
    std::vector<Word> offered;
    for (const Word& word : all) {
        if (!closable && std::wstring_view(word.local) == L"Fechar") continue;
        text += separator == L'[' ? L" " : L"";
        text += separator;
        text += word.local;
        separator = L'/';
        offered.push_back(word);
    }
    Prompt prompt(InputKind::Point, text + L"]: ");
    prompt.from(draft.end()).words(offered);
    prompt.showing(context, [context, mode, from = draft.end(),
                             direction = draft.endDirection()](const AcGePoint3d& to) {
        return segmentTo(context, mode, from, direction, to);
    });
    return prompt;
}

Task<InputValue> askWidths(CommandContext context, bool half) {
    Memory& kept = memory(context);
    const double parts = half ? 0.5 : 1.0;
    const std::wstring what = half ? L" meia largura" : L" largura";
    InputValue width = co_await context.ask(
        Prompt(InputKind::Distance, L"\nEspecifique a" + what + L" inicial <" +
                                        lengthText(kept.plineStartWidth * parts) + L">: ")
            .bits(RSG_NONEG));
    if (width.status == RTCAN) co_return width;
    if (width.status == RTNORM) kept.plineStartWidth = width.number / parts;
    width = co_await context.ask(
        Prompt(InputKind::Distance, L"\nEspecifique a" + what + L" final <" +
                                        lengthText(kept.plineStartWidth * parts) + L">: ")
            .bits(RSG_NONEG));
    if (width.status == RTCAN) co_return width;
    kept.plineEndWidth = width.status == RTNORM ? width.number / parts : kept.plineStartWidth;
    co_return width;
}

/// One segment of a taper; what follows it is as wide as its end.
void afterSegment(Memory& kept) { kept.plineStartWidth = kept.plineEndWidth; }

Task<InputValue> askLength(CommandContext context, AcGePoint3d from, double direction) {
    InputValue length =
        co_await context.ask(Prompt(InputKind::Distance, L"\nEspecifique o comprimento da linha: ")
                                 .from(from)
                                 .required());
    if (length.status == RTNORM)
        length.point =
            from + AcGeVector3d(std::cos(direction), std::sin(direction), 0.0) * length.number;
    co_return length;
}

bool closeDraft(const CommandContext& context, PlineDraft& draft, Mode mode) {
    const Memory& kept = memory(context);
    double bulge = 0.0;
    if (mode == Mode::Arc) {
        const std::optional<double> back =
            bulgeByDirection(draft.end(), draft.start(), draft.endDirection());
        if (!back) {
            say(context, L"Não existe um arco assim.");
            return false;
        }
        bulge = *back;
    }
    if (!draft.close(bulge, kept.plineStartWidth, kept.plineEndWidth)) return false;
    keepLastAngle(context, endDirectionOf(draft.end(), draft.start(), bulge));
    return true;
}

}  // namespace

CommandTask pline(CommandContext context) {
    Memory& kept = memory(context);
    InputValue answer = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto inicial: ").required());
    if (answer.status != RTNORM) co_return endOf(answer.status);
    say(context, L"A largura de linha atual é " + toldLength(kept.plineStartWidth));

    PlineDraft draft(context, answer.point);
    Mode mode = Mode::Line;
    for (;;) {
        answer = co_await context.ask(nextSegment(context, draft, mode));
        if (isWord(answer, L"Arc") || isWord(answer, L"Line")) {
            mode = isWord(answer, L"Arc") ? Mode::Arc : Mode::Line;
            continue;
        }
        if (isWord(answer, L"Undo")) {
            if (draft.removeLast())
                context.editor().setLastPoint(draft.end());
            else
                say(context, L"Todos os segmentos já foram desfeitos.");
            continue;
        }
        if (isWord(answer, L"Width") || isWord(answer, L"Halfwidth")) {
            answer = co_await askWidths(context, isWord(answer, L"Halfwidth"));
            if (answer.status == RTCAN) break;
            continue;
        }
        if (isWord(answer, L"Close") || isWord(answer, L"CLose")) {
            if (closeDraft(context, draft, mode)) co_return CommandEnd::Done;
            continue;
        }
        if (answer.status == RTNONE || answer.status == RTCAN) break;
        if (isWord(answer, L"Length"))
            answer = co_await askLength(context, draft.end(), draft.endDirection());
        else if (mode == Mode::Arc)
            answer = co_await plineArc(context, draft.end(), draft.endDirection(), answer);
        else
            answer.number = 0.0;
        if (answer.status == RTCAN) break;
        if (answer.status != RTNORM) continue;
        const double bulge = mode == Mode::Arc ? answer.number : 0.0;
        if (!draft.add(answer.point, bulge, kept.plineStartWidth, kept.plineEndWidth))
            co_return CommandEnd::Failed;
        context.editor().setLastPoint(draft.end());
        afterSegment(kept);
    }
    if (draft.segments() == 0) co_return endOf(answer.status);
    keepLastAngle(context, draft.endDirection());
    // Esc only ends the polyline: what is drawn stays.
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
