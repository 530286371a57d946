// SPDX-License-Identifier: MIT
// HATCH: hatches the area around a point, or the outlines of objects.
#include <memory>

#include "prancheta/database/draw_order.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/hatch_boundary.h"
#include "prancheta/editor/hatch_follower.h"
#include "prancheta/entities/hatch_lines.h"
#include "prancheta/entities/hatch_patterns.h"
#include "prancheta/entities/listing.h"

namespace prancheta::commands {

namespace {

constexpr Word kHatchWords[] = {
    {L"Propriedades", L"Properties"}, {L"Selecionar", L"Select"}, {L"Desfazer", L"Undo"}};
constexpr Word kPropertyWords[] = {{L"Padrão", L"Pattern"},
                                   {L"Escala", L"Scale"},
                                   {L"Ângulo", L"Angle"},
                                   {L"aSsociativa", L"aSsociative"}};

using Made = std::unique_ptr<AcDbHatch>;

const HatchPattern& currentPattern(const CommandContext& context) {
    const HatchPattern* const pattern = hatchPattern(context.editor().variables().text(L"HPNAME"));
    return pattern != nullptr ? *pattern : hatchPatterns()[0];
}

Made hatchOf(const CommandContext& context, std::vector<HatchLoop> loops) {
    const SystemVariables& variables = context.editor().variables();
    auto hatch = std::make_unique<AcDbHatch>();
    setPattern(*hatch, currentPattern(context), variables.real(L"HPSCALE"),
               variables.real(L"HPANG") + userTurn(context));
    const bool associative = variables.number(L"HPASSOC") != 0;
    if (!associative)
        for (HatchLoop& loop : loops) loop.sources.clear();
    (void)hatch->setAssociative(associative);
    (void)hatch->setLoops(std::move(loops));
    return hatch;
}

bool isTooDense(const AcDbHatch& hatch) {
    const auto ignore = [](const AcGePoint2d&, const AcGePoint2d&) {};
    return !hatch.isSolidFill() && !patternStrokes(filledOutlines(hatch), hatch.families(), ignore);
}

/// The edges of all objects, made anew when something changed since.
class Edges {
public:
    const HatchBoundary& of(DisplayList& display) {
        const std::uint64_t revision = display.revision();
        if (!m_boundary || m_revision != revision) {
            m_boundary = std::make_unique<HatchBoundary>(display);
            m_revision = revision;
        }
        return *m_boundary;
    }

private:
    std::unique_ptr<HatchBoundary> m_boundary;
    std::uint64_t m_revision = 0;
};

/// As HPDRAWORDER asks: usually behind what it fills, so that the boundary is seen whole.
void putInOrder(const CommandContext& context, AcDbObjectId hatch, const Ids& boundary) {
    constexpr DrawPlace kPlaces[] = {DrawPlace::Back, DrawPlace::Front, DrawPlace::Under,
                                     DrawPlace::Above};
    const int order = context.editor().variables().number(L"HPDRAWORDER");
    if (order == 0) return;
    (void)moveInDrawOrder(context.database().currentSpaceId(), {hatch}, kPlaces[order - 1],
                          boundary);  // refused, it stays on top
}

/// Null, after saying why.
AcDbObjectId add(const CommandContext& context, std::vector<HatchLoop> loops,
                 std::vector<AcGePoint2d> seeds) {
    Editor& editor = context.editor();
    Ids boundary;
    for (const HatchLoop& loop : loops)
        boundary.insert(boundary.end(), loop.sources.begin(), loop.sources.end());
    Made hatch = hatchOf(context, std::move(loops));
    (void)hatch->setSeeds(std::move(seeds));
    if (isTooDense(*hatch)) {
        editor.complain(
            L"O padrão é denso demais para esta área: aumente a escala "
            L"(Propriedades, Escala).",
            Complaint::Refused);
        return {};
    }
    double area = 0.0;
    (void)hatch->getArea(area);
    const AcDbObjectId id = addEntity(context, std::move(hatch));
    if (id.isNull()) return {};
    putInOrder(context, id, boundary);
    const AcDbObjectPointer<AcDbHatch> added(id, AcDb::kForRead);
    if (added->associative()) tieToSources(*added.object());
    say(context, L"Área = " + commaText(area, 2));
    return id;
}

/// As fine as it is small.
std::wstring gapText(double width) { return commaText(width, width < 0.1 ? 4 : 1); }

void tellOpen(const CommandContext& context, const HatchBoundary& boundary, const AcGePoint3d& at) {
    const std::optional<BoundaryFinder::Gap> gap = boundary.gapAround(at);
    if (!gap)
        return context.editor().complain(L"Nenhum contorno fechado em volta deste ponto.",
                                         Complaint::Refused);
    const AcGePoint3d where =
        context.editor().ucs().inverse() * AcGePoint3d(gap->at.x, gap->at.y, 0.0);
    context.editor().complain(L"O contorno não está fechado: a maior abertura, " +
                                  gapText(gap->width) + L" mm, está em " + fixedText(where.x, 1) +
                                  L"," + fixedText(where.y, 1) + L".",
                              Complaint::Refused);
}

Task<int> askPattern(CommandContext context) {
    std::wstring names;
    for (const HatchPattern& p : hatchPatterns())
        names += (names.empty() ? L"" : L", ") + std::wstring(p.name) + L" (" + p.use + L")";
    say(context, L"Padrões: " + names + L".");
    for (;;) {
        const InputValue answer = co_await context.ask(Prompt(
            InputKind::Text, L"\nPadrão <" + std::wstring(currentPattern(context).name) + L">: "));
        if (answer.status != RTNORM || answer.text.empty())
            co_return answer.status == RTCAN ? RTCAN : RTNORM;
        if (const HatchPattern* const pattern = hatchPattern(answer.text)) {
            (void)context.editor().variables().set(L"HPNAME", std::wstring(pattern->name));
            co_return RTNORM;
        }
        context.editor().complain(L"Não existe o padrão \"" + answer.text + L"\".",
                                  Complaint::Refused);
    }
}

Task<int> askNumber(CommandContext context, const wchar_t* variable, InputKind kind,
                    std::wstring question, int bits) {
    double kept = context.editor().variables().real(variable);
    const InputValue answer = co_await askKept(context, kind, question, bits, kept);
    if (answer.status == RTNORM) (void)context.editor().variables().set(variable, kept);
    co_return answer.status;
}

Task<int> askProperty(CommandContext context) {
    const SystemVariables& variables = context.editor().variables();
    const bool associative = variables.number(L"HPASSOC") != 0;
    say(context, L"Padrão = " + std::wstring(currentPattern(context).name) + L"  Escala = " +
                     toldLength(variables.real(L"HPSCALE")) + L"  Ângulo = " +
                     turnText(context, variables.real(L"HPANG")) + L"  Associativa = " +
                     (associative ? L"Sim" : L"Não"));
    const InputValue which =
        co_await context.ask(Prompt(InputKind::Keyword, L"\n[Padrão/Escala/Ângulo/aSsociativa]: ")
                                 .words(kPropertyWords));
    if (isWord(which, L"Pattern")) {
        const int status = co_await askPattern(context);
        co_return status;
    }
    if (isWord(which, L"Scale")) {
        const int status = co_await askNumber(context, L"HPSCALE", InputKind::Real, L"Escala",
                                              RSG_NOZERO | RSG_NONEG);
        co_return status;
    }
    if (isWord(which, L"Angle")) {
        const int status = co_await askNumber(context, L"HPANG", InputKind::Angle, L"Ângulo", 0);
        co_return status;
    }
    if (!isWord(which, L"aSsociative")) co_return which.status == RTCAN ? RTCAN : RTNORM;
    const InputValue yes =
        co_await askYesNo(context, L"\nAssociativa?", associative ? Choice::Yes : Choice::No);
    if (yes.status != RTCAN)
        (void)context.editor().variables().set(L"HPASSOC", static_cast<short>(yes.number));
    co_return yes.status == RTCAN ? RTCAN : RTNORM;
}

/// The outlines of objects as one hatch.
AcDbObjectId hatchObjects(const CommandContext& context, const Ids& ids) {
    const HatchBoundary boundary(context.editor().display(), ids);
    std::vector<HatchLoop> loops = boundary.outlines();
    if (!loops.empty()) return add(context, std::move(loops), {});
    context.editor().complain(L"Nenhum dos objetos selecionados fecha uma área.",
                              Complaint::Refused);
    return {};
}

}  // namespace

CommandTask hatch(CommandContext context) {
    Editor& editor = context.editor();
    Ids made;
    if (!editor.selection().empty()) {
        const Selection chosen = co_await selectToRead(context);
        if (chosen.status == RTNORM) (void)hatchObjects(context, chosen.ids);
        co_return CommandEnd::Done;
    }
    const auto edges = std::make_shared<Edges>();
    for (;;) {
        Prompt prompt(InputKind::Point, L"\nPonto interno ou [Propriedades/Selecionar/Desfazer]: ");
        prompt.words(kHatchWords);
        prompt.showing(context, [context, edges](const AcGePoint3d& at) -> Made {
            std::vector<HatchLoop> loops = edges->of(context.editor().display()).around(at);
            return loops.empty() ? nullptr : hatchOf(context, std::move(loops));
        });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTCAN || answer.status == RTNONE) co_return endOf(answer.status);
        if (isWord(answer, L"Properties")) {
            const int status = co_await askProperty(context);
            if (status == RTCAN) co_return CommandEnd::Cancelled;
        } else if (isWord(answer, L"Select")) {
            const Selection chosen = co_await selectToRead(context);
            if (chosen.status == RTCAN) co_return CommandEnd::Cancelled;
            const AcDbObjectId id =
                chosen.ids.empty() ? AcDbObjectId() : hatchObjects(context, chosen.ids);
            if (!id.isNull()) made.push_back(id);
        } else if (isWord(answer, L"Undo")) {
            if (made.empty()) {
                say(context, L"Nada a desfazer.");
                continue;
            }
            (void)eraseAll(context, {made.back()});
            made.pop_back();
        } else {
            const HatchBoundary& boundary = edges->of(editor.display());
            std::vector<HatchLoop> loops = boundary.around(answer.point);
            if (loops.empty()) {
                tellOpen(context, boundary, answer.point);
                continue;
            }
            const AcDbObjectId id =
                add(context, std::move(loops), {{answer.point.x, answer.point.y}});
            if (!id.isNull()) made.push_back(id);
        }
    }
}

}  // namespace prancheta::commands
