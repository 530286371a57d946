// SPDX-License-Identifier: MIT
// OFFSET: what lies beside an object, at a distance or through a point.
#include "prancheta/curves/offset.h"

#include <algorithm>
#include <cmath>

#include "prancheta/curves/region.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/edges.h"
#include "prancheta/editor/commands/outline.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/entities/polyline_vertices.h"

namespace prancheta::commands {

namespace {

constexpr Word kSettings[] = {
    {L"Através", L"Through"}, {L"aPagar", L"Erase"}, {L"Camada", L"Layer"}};
constexpr Word kObjectWords[] = {{L"Sair", L"Exit"}, {L"Desfazer", L"Undo"}};
constexpr Word kOffsetSideWords[] = {
    {L"Sair", L"Exit"}, {L"Múltiplo", L"Multiple"}, {L"Desfazer", L"Undo"}};

struct Settings {
    double distance = 0.0;  ///< 0: through a point
    bool erases = false;
    bool currentLayer = false;
};

/// What is moved aside, and what its copies take from it.
struct Source {
    AcDbObjectId id;
    Curve curve;
    double height = 0.0;
    std::optional<SegmentWidth> width;  ///< of a polyline, the same all along
    bool polyline = false;
};

std::optional<Source> sourceOf(const CommandContext& context, AcDbObjectId id) {
    const std::optional<Curve> outline =
        outlineOf(context.editor().display().picture(id));  // an open entity would draw nothing
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk || !hasEdges(*entity.object())) return {};
    Source source;
    source.id = id;
    AcDbExtents box;
    if (entity->getGeomExtents(box) == Acad::eOk) source.height = box.minPoint().z;
    std::optional<Curve> curve = planeCurve(*entity.object());
    // Beside an ellipse lies what is drawn beside its arcs.
    if (curve && !canOffset(*curve)) curve.reset();
    source.polyline = !curve;
    if (const auto* const polyline = AcDbPolyline::cast(entity.object())) {
        const std::vector<PolylineVertex> all = verticesOf(*polyline);
        const double width = all.front().startWidth;
        const bool even = std::all_of(all.begin(), all.end(), [&](const PolylineVertex& v) {
            return v.startWidth == width && v.endWidth == width;
        });
        source.polyline = true;
        if (even) source.width = {width, width};
    }
    if (!curve && !outline) return {};
    source.curve = curve ? *curve : *outline;
    return canOffset(source.curve) ? std::optional(std::move(source)) : std::nullopt;
}

/// Whether a point lies left of the curve; in a corner by both of its sides.
bool isLeft(const Curve& curve, const Vec2& p) {
    if (curve.closed()) {
        const bool inside = insideOddly(std::span(&curve, 1), p);
        return inside == (curve.area() > 0.0);
    }
    const double t = curve.nearest(p);
    const double step = 1e-6;
    const Vec2 along =
        curve.tangent(std::max(0.0, t - step)) + curve.tangent(std::min(curve.count(), t + step));
    return cross(along, p - curve.at(t)) > 0.0;
}

double missOf(const Curve& curve, const Vec2& p) { return distance(curve.at(curve.nearest(p)), p); }

/// Curves beside the source on the side of `p`.
std::vector<Curve> beside(const Source& source, const Settings& settings, const Vec2& p) {
    const double aside = settings.distance > 0.0 ? settings.distance : missOf(source.curve, p);
    return offset(source.curve, isLeft(source.curve, p) ? aside : -aside);
}

std::unique_ptr<AcDbEntity> entityBeside(const Source& source, const Curve& curve) {
    if (!source.polyline) return entityOf(curve, source.height);
    const std::vector<SegmentWidth> widths(source.width ? curve.segments().size() : 0,
                                           source.width.value_or(SegmentWidth{0.0, 0.0}));
    return polylineOf(curve, source.height, widths);
}

/// The new objects; empty, after telling why, when there are none.
Ids drawBeside(const CommandContext& context, const Source& source, const Settings& settings,
               const Vec2& p) {
    if (missOf(source.curve, p) <= source.curve.tolerance()) {
        refuse(context, L"O ponto está sobre o objeto: indique um lado.");
        return {};
    }
    Ids drawn;
    for (const Curve& curve : beside(source, settings, p)) {
        const AcDbObjectId id = addEntity(context, entityBeside(source, curve));
        if (id.isNull()) return {};
        drawn.push_back(id);
        const AcDbObjectPointer<AcDbEntity> from(source.id, AcDb::kForRead);
        const AcDbObjectPointer<AcDbEntity> to(id, AcDb::kForWrite);
        if (from.openStatus() != Acad::eOk) continue;
        const AcDbObjectId layer = to->layerId();
        (void)to->setPropertiesFrom(from.object());
        if (settings.currentLayer) (void)to->setLayer(layer);
    }
    if (drawn.empty())
        refuse(context, L"A essa distância não resta nada desse lado: nada foi desenhado.");
    return drawn;
}

Prompt sidePrompt(const CommandContext& context, const Source& source, const Settings& settings) {
    Prompt prompt(InputKind::Point,
                  settings.distance > 0.0
                      ? L"\nPonto no lado a deslocar ou [Sair/Múltiplo/Desfazer]: "
                      : L"\nPonto por onde passar ou [Sair/Múltiplo/Desfazer]: ");
    AcDbDatabase* const database = &context.database();
    prompt.words(kOffsetSideWords)
        .preview([source, settings, database](const AcGePoint3d& at, Picture& out) {
            for (const Curve& curve : beside(source, settings, seen(at)))
                if (const auto entity = entityBeside(source, curve)) {
                    entity->setDatabaseDefaults(database);
                    recordPicture(*entity, out, kAcGiStandardDisplay, true);
                }
        });
    return prompt;
}

Task<int> askSetting(CommandContext context, Settings& settings, std::wstring word) {
    if (word == L"Through") {
        settings.distance = 0.0;
        co_return RTNONE;
    }
    if (word == L"Erase") {
        const InputValue answer =
            co_await askYesNo(context, L"\nApagar o objeto de origem?", Choice::No);
        settings.erases = answer.number != 0.0;
        co_return answer.status;
    }
    static constexpr Word kLayers[] = {{L"Atual", L"Current"}, {L"Origem", L"Source"}};
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nCamada das cópias [Atual/Origem] <Origem>: ")
            .words(kLayers));
    settings.currentLayer = isWord(answer, L"Current");
    co_return answer.status;
}

/// RTCAN when the user gave up.
Task<int> askDistance(CommandContext context, Settings& settings) {
    const double last = context.editor().database().core().variables().real(L"OFFSETDIST");
    settings.distance = std::max(0.0, last);
    for (;;) {
        const std::wstring shown =
            settings.distance > 0.0 ? lengthText(settings.distance) : L"Através";
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Distance,
                   L"\nDistância de deslocamento ou [Através/aPagar/Camada] <" + shown + L">: ")
                .words(kSettings)
                .bits(RSG_NOZERO | RSG_NONEG));
        if (answer.status == RTCAN) co_return RTCAN;
        if (answer.status == RTNORM) settings.distance = answer.number;
        if (answer.status == RTKWORD) {
            const int status = co_await askSetting(context, settings, answer.text);
            if (status == RTCAN) co_return RTCAN;
            if (answer.text != L"Through") continue;
        }
        context.editor().variables().force(L"OFFSETDIST",
                                           settings.distance > 0.0 ? settings.distance : -1.0);
        co_return RTNORM;
    }
}

/// One object, moved aside once or, asked for, again and again. RTCAN and RTNONE end the command.
Task<int> offsetOne(CommandContext context, Settings settings, Source source, UndoSteps& steps) {
    bool many = false;
    for (;;) {
        const InputValue side = co_await context.ask(sidePrompt(context, source, settings));
        if (side.status == RTCAN || isWord(side, L"Exit")) co_return RTCAN;
        if (side.status == RTNONE) co_return RTNORM;
        if (isWord(side, L"Multiple")) {
            many = true;
            continue;
        }
        if (isWord(side, L"Undo")) {
            if (!steps.undo()) say(context, L"Nada a desfazer.");
            co_return RTNORM;
        }
        const Ids drawn = drawBeside(context, source, settings, seen(side.point));
        if (drawn.empty()) continue;
        if (settings.erases) (void)eraseAll(context, {source.id});
        steps.next();
        std::optional<Source> next =
            many && drawn.size() == 1 ? sourceOf(context, drawn.front()) : std::nullopt;
        if (!next) co_return RTNORM;
        source = std::move(*next);
    }
}

}  // namespace

CommandTask offsetCurve(CommandContext context) {
    Settings settings;
    if (co_await askDistance(context, settings) == RTCAN) co_return CommandEnd::Cancelled;
    UndoSteps steps(context.database().core().undo());
    for (;;) {
        const InputValue picked = co_await context.ask(
            Prompt(InputKind::Entity,
                   L"\nSelecione o objeto a deslocar ou [Sair/Desfazer] <Sair>: ")
                .words(kObjectWords));
        if (isWord(picked, L"Undo")) {
            if (!steps.undo()) say(context, L"Nada a desfazer.");
            continue;
        }
        if (picked.status != RTNORM && picked.status != RTERROR) break;
        if (picked.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
            continue;
        }
        const AcDbObjectId id = picked.entities.front();
        if (settings.erases && onLockedLayer(id)) {
            refuse(context, L"O objeto está em uma camada bloqueada.");
            continue;
        }
        std::optional<Source> source = sourceOf(context, id);
        if (!source) {
            refuse(context,
                   L"Só linhas, arcos, círculos, polilinhas e contornos fechados de peças podem "
                   L"ser deslocados.");
            continue;
        }
        if (co_await offsetOne(context, settings, std::move(*source), steps) == RTCAN) break;
    }
    co_return CommandEnd::Done;  // Esc only ends the picking: what was drawn stays
}

}  // namespace prancheta::commands
