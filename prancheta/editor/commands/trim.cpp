// SPDX-License-Identifier: MIT
// TRIM and EXTEND: what is picked goes up to the nearest edges, or goes on to the nearest one.
// Shift makes either the other.
#include <algorithm>
#include <limits>

#include "dbents.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/edges.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/wanted.h"

namespace prancheta::commands {

namespace {

constexpr Word kTrimWords[] = {{L"corTe", L"cuTting"},       {L"Cerca", L"Fence"},
                               {L"cruZamento", L"Crossing"}, {L"Aresta", L"Edge"},
                               {L"aPagar", L"eRase"},        {L"Desfazer", L"Undo"}};

enum class Way { Trim, Extend };

Way other(Way way) { return way == Way::Trim ? Way::Extend : Way::Trim; }

bool edgesGoOn(const Editor& editor) {
    return editor.database().core().variables().number(L"EDGEMODE") != 0;
}

/// From parameter to parameter: what TRIM takes away.
struct Range {
    double from = 0.0;
    double to = 0.0;
};

std::optional<Range> partAt(const Editor& editor, const CuttingEdges& edges,
                            const CutTarget& target, const Vec2& pick) {
    const double at = target.curve.nearest(pick);
    const auto [before, behind] =
        edges.around(editor, target.curve, at, target.id, edgesGoOn(editor));
    if (!before && !behind) return {};
    return Range{before.value_or(0.0), behind.value_or(target.curve.count())};
}

/// What EXTEND makes of the object: the end nearer to the pick goes on.
std::optional<Range> extendedAt(const Editor& editor, const CuttingEdges& edges,
                                const CutTarget& target, const Vec2& pick) {
    const Curve& curve = target.curve;
    const bool start = curve.lengthAt(curve.nearest(pick)) < curve.length() / 2.0;
    const auto on = extensionOf(curve, start ? CurveEnd::Start : CurveEnd::End);
    if (!on) return {};
    const auto edge = edges.around(editor, on->curve, 0.0, target.id, edgesGoOn(editor)).behind;
    if (!edge) return {};
    const double t = on->parameter(*edge);
    return start ? Range{t, curve.count()} : Range{0.0, t};
}

Cuts cutsOf(Way way) { return way == Way::Trim ? Cuts::SplinesToo : Cuts::NoSplines; }

/// What remains of the object, or its new parts; empty when nothing was done and the reason told.
Ids cutAt(const CommandContext& context, CuttingEdges& edges, AcDbObjectId id, const Vec2& pick,
          Way way) {
    const std::optional<CutTarget> target = cutTarget(context, id, cutsOf(way));
    if (!target) return {};
    if (way == Way::Extend) {
        if (target->curve.closed()) {
            refuse(context, L"Um objeto fechado não tem ponta a estender.");
            return {};
        }
        const auto range = extendedAt(context.editor(), edges, *target, pick);
        if (!range) refuse(context, L"O objeto não alcança uma aresta.");
        return range && setEnds(context, *target, range->from, range->to) ? Ids{id} : Ids{};
    }
    const auto range = partAt(context.editor(), edges, *target, pick);
    if (!range) {
        refuse(context, L"O objeto não cruza uma aresta de corte.");
        return {};
    }
    Ids parts = takeOut(context, *target, range->from, range->to);
    edges.follow(id, parts);
    return parts;
}

void showCut(const Editor& editor, const CuttingEdges& edges, Way way, const AcGePoint3d& at,
             Picture& out) {
    const AcDbObjectId id = entityAt(editor, at, canBeParted);
    const std::optional<CutTarget> target =
        id.isNull() ? std::nullopt : cutTargetOrNone(id, cutsOf(way));
    if (!target) return;
    if (way == Way::Trim) {
        if (const auto range = partAt(editor, edges, *target, seen(at)))
            showPart(*target, range->from, range->to, out);
    } else if (const auto range = extendedAt(editor, edges, *target, seen(at))) {
        const double n = target->curve.count();
        if (range->to > n) showPart(*target, n, range->to, out);
        if (range->from < 0.0) showPart(*target, range->from, 0.0, out);
    }
}

/// Cuts what a line of points crosses, at every crossing; an object that it only holds, where it is
/// nearest to the first point. What was cut off is looked at again at the next crossing.
std::size_t cutAlong(const CommandContext& context, CuttingEdges& edges, const Ids& found,
                     const std::vector<AcGePoint3d>& points, Way way) {
    std::vector<Segment> chain;
    for (std::size_t i = 1; i < points.size(); ++i)
        chain.push_back(straight(seen(points[i - 1]), seen(points[i])));
    const Curve fence(std::move(chain), false);
    std::size_t done = 0;
    for (const AcDbObjectId& id : found) {
        const std::optional<CutTarget> target = cutTargetOrNone(id, cutsOf(way));
        if (!target) continue;
        // Chords of a part of a spline are others than those of the whole.
        constexpr double kOfSplines = 4e-5;
        const Box2d& box = target->curve.box();
        const double slack = canBeCut(id) ? 64.0 * target->curve.tolerance()
                                          : kOfSplines * (box.width() + box.height());
        std::vector<Vec2> picks;
        for (const Meeting& m : meetingsOf(target->curve, fence)) picks.push_back(m.point);
        if (picks.empty()) picks.push_back(target->curve.at(target->curve.nearest(fence.start())));
        Ids parts{id};
        for (const Vec2& pick : picks) {
            const auto holds = std::find_if(parts.begin(), parts.end(), [&](AcDbObjectId part) {
                const auto now = cutTargetOrNone(part, cutsOf(way));
                return now && distance(now->curve.at(now->curve.nearest(pick)), pick) <= slack;
            });
            if (holds == parts.end()) continue;
            const Ids left = cutAt(context, edges, *holds, pick, way);
            if (left.empty()) continue;
            ++done;
            parts.erase(holds);
            parts.insert(parts.end(), left.begin(), left.end());
        }
    }
    return done;
}

struct Points {
    int status = RTNORM;
    std::vector<AcGePoint3d> all;
};

Task<Points> askFence(CommandContext context) {
    Points points;
    for (;;) {
        Prompt prompt(InputKind::Point, points.all.empty()
                                            ? L"\nEspecifique o primeiro ponto da cerca: "
                                            : L"\nEspecifique o próximo ponto da cerca: ");
        if (points.all.empty())
            prompt.required();
        else
            prompt.from(points.all.back());
        const InputValue value = co_await context.ask(prompt);
        points.status = value.status;
        if (value.status != RTNORM) break;
        points.all.push_back(value.point);
    }
    co_return points;
}

Task<Points> askCrossing(CommandContext context) {
    Points points;
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o primeiro canto: ").required());
    points.status = first.status;
    if (first.status != RTNORM) co_return points;
    const InputValue opposite = co_await context.ask(
        Prompt(InputKind::Corner, L"\nEspecifique o canto oposto: ").from(first.point).required());
    points.status = opposite.status;
    points.all = cornersBetween(first.point, opposite.point);
    points.all.push_back(first.point);
    co_return points;
}

Task<int> cutMany(CommandContext context, CuttingEdges& edges, bool byFence, Way way) {
    Points points;
    if (byFence)
        points = co_await askFence(context);
    else
        points = co_await askCrossing(context);
    if (points.status == RTCAN) co_return RTCAN;
    if (points.all.size() < 2) co_return RTNONE;
    const Editor& editor = context.editor();
    const Ids found = byFence ? entitiesOnFence(editor, points.all)
                              : entitiesCrossing(editor, points.all[0], points.all[2]);
    if (found.empty()) refuse(context, L"Nenhum objeto aí.");
    const auto locked = static_cast<std::size_t>(std::ranges::count_if(found, onLockedLayer));
    if (locked > 0)
        say(context, counted(locked, L"objeto está em uma camada bloqueada.",
                             L"objetos estão em uma camada bloqueada."));
    co_return cutAlong(context, edges, found, points.all, way) > 0 ? RTNORM : RTNONE;
}

Task<int> askEdgeMode(CommandContext context) {
    static constexpr Word kModes[] = {{L"Estender", L"Extend"}, {L"Não", L"No"}};
    const bool on = edgesGoOn(context.editor());
    const InputValue mode = co_await context.ask(
        Prompt(InputKind::Keyword, std::wstring(L"\nArestas: [Estender/Não estender] <") +
                                       (on ? L"Estender" : L"Não estender") + L">: ")
            .words(kModes));
    if (mode.status == RTKWORD)
        context.editor().variables().force(L"EDGEMODE", short{mode.text == L"Extend"});
    co_return mode.status;
}

Task<Selection> askEdges(CommandContext context, bool usePickfirst) {
    SelectOptions options;
    options.prompt = L"\nSelecione as arestas de corte ou <todas>: ";
    options.dropLocked = false;
    options.usePickfirst = usePickfirst;
    co_return co_await selectObjects(context, options);
}

/// One answer that is a word; RTCAN ends the command.
Task<int> takeWord(CommandContext context, CuttingEdges& edges, UndoSteps& steps, std::wstring word,
                   Way way) {
    if (word == L"Undo") {
        if (!steps.undo()) say(context, L"Nada a desfazer.");
        co_return RTNORM;
    }
    if (word == L"Edge") co_return co_await askEdgeMode(context);
    if (word == L"cuTting") {
        const Selection chosen = co_await askEdges(context, false);
        if (chosen.status != RTCAN) edges.choose(chosen.ids);
        co_return chosen.status;
    }
    if (word == L"eRase") {
        SelectOptions options;
        options.usePickfirst = false;
        const Selection chosen = co_await selectObjects(context, options);
        eraseForOops(context, chosen.ids);
        co_return chosen.status;
    }
    co_return co_await cutMany(context, edges, word == L"Fence", way);
}

/// Good as long as the edges.
std::function<void(const AcGePoint3d&, Picture&)> previewOf(const CommandContext& context,
                                                            const CuttingEdges& edges, Way way) {
    return [&editor = context.editor(), &edges, way](const AcGePoint3d& at, Picture& out) {
        showCut(editor, edges, way, at, out);
    };
}

CommandTask cutWhatIsPicked(CommandContext context, Way way) {
    const Selection chosen = co_await askEdges(context, true);
    if (chosen.status == RTCAN) co_return CommandEnd::Cancelled;
    CuttingEdges edges(chosen.ids);
    UndoSteps steps(context.database().core().undo());
    const std::wstring what =
        way == Way::Trim ? L"aparar (Shift: estender)" : L"estender (Shift: aparar)";
    for (;;) {
        Prompt prompt(InputKind::Entity,
                      L"\nSelecione o objeto a " + what +
                          L" ou [arestas de corTe/Cerca/cruZamento/Aresta/aPagar/Desfazer]: ");
        prompt.words(kTrimWords)
            .preview(previewOf(context, edges, way))
            .shiftPreview(previewOf(context, edges, other(way)));
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTNONE || answer.status == RTCAN) break;
        if (answer.status == RTKWORD) {
            if (co_await takeWord(context, edges, steps, answer.text, way) == RTCAN) break;
        } else if (answer.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
        } else {
            (void)cutAt(context, edges, pickedToCut(context, answer), seen(answer.point),
                        answer.removes ? other(way) : way);
        }
        steps.next();
    }
    // Esc only ends the picking: what was cut stays.
    co_return CommandEnd::Done;
}

}  // namespace

CommandTask trimObjects(CommandContext context) { return cutWhatIsPicked(context, Way::Trim); }
CommandTask extendObjects(CommandContext context) { return cutWhatIsPicked(context, Way::Extend); }

}  // namespace prancheta::commands
