// SPDX-License-Identifier: MIT
// DIMALIGNED: an aligned dimension of two points or of an object.
#include <algorithm>
#include <cmath>

#include "dbdim.h"
#include "dbpl.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kLineWords[] = {{L"Texto", L"Text"}};

struct Ends {
    AcGePoint3d first;
    AcGePoint3d second;
};

double distanceToSegment(const AcGePoint3d& p, const Ends& ends) {
    const AcGeVector3d along = ends.second - ends.first;
    const double length2 = along.lengthSqrd();
    const double at = length2 > 0.0 ? (p - ends.first).dotProduct(along) / length2 : 0.0;
    return p.distanceTo(ends.first + along * std::clamp(at, 0.0, 1.0));
}

/// The segment whose chord is nearest to the pick.
std::optional<Ends> segmentAt(const AcDbPolyline& polyline, const AcGePoint3d& pick) {
    const unsigned int corners = polyline.numVerts();
    const unsigned int segments = polyline.isClosed() ? corners : corners - (corners > 0 ? 1 : 0);
    std::optional<Ends> nearest;
    for (unsigned int i = 0; i < segments; ++i) {
        Ends ends;
        if (polyline.getPointAt(i, ends.first) != Acad::eOk ||
            polyline.getPointAt((i + 1) % corners, ends.second) != Acad::eOk)
            continue;
        if (!nearest || distanceToSegment(pick, ends) < distanceToSegment(pick, *nearest))
            nearest = ends;
    }
    return nearest;
}

AcGePoint3d onArc(const AcDbArc& arc, double angle) {
    const AcGeVector3d flat(std::cos(angle) * arc.radius(), std::sin(angle) * arc.radius(), 0.0);
    return arc.center() + planeToWorld(arc.normal()) * flat;
}

/// What a picked object offers to be measured; nothing for one without ends. A circle gives the
/// diameter through the pick.
std::optional<Ends> endsOf(AcDbObjectId id, const AcGePoint3d& pick) {
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return std::nullopt;
    if (const AcDbLine* line = AcDbLine::cast(entity.object()))
        return Ends{line->startPoint(), line->endPoint()};
    if (const AcDbArc* arc = AcDbArc::cast(entity.object()))
        return Ends{onArc(*arc, arc->startAngle()), onArc(*arc, arc->endAngle())};
    if (const AcDbPolyline* polyline = AcDbPolyline::cast(entity.object()))
        return segmentAt(*polyline, pick);
    if (const AcDbCircle* circle = AcDbCircle::cast(entity.object())) {
        // An object that was named instead of picked may have its centre where the pick would be.
        const AcGeVector3d towards = pick - circle->center();
        const AcGeVector3d radius =
            (towards.isZeroLength() ? AcGeVector3d::kXAxis : towards.normal()) * circle->radius();
        return Ends{circle->center() - radius, circle->center() + radius};
    }
    return std::nullopt;
}

struct Measured {
    int status = RTCAN;
    Ends ends;
};

Task<Measured> askObject(CommandContext context) {
    Measured measured;
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nSelecione o objeto a cotar: "));
        measured.status = picked.status;
        if (picked.status == RTCAN || picked.status == RTNONE) co_return measured;
        if (picked.status != RTNORM || picked.entities.empty()) continue;
        if (const std::optional<Ends> ends = endsOf(picked.entities.front(), picked.point)) {
            measured.ends = *ends;
            co_return measured;
        }
        say(context, L"O objeto selecionado não pode ser cotado.");
    }
}

Task<Measured> askEnds(CommandContext context) {
    Measured measured;
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point,
               L"\nEspecifique a origem da primeira linha de extensão ou <selecionar objeto>: "));
    if (first.status == RTNONE) {
        measured = co_await askObject(context);
        co_return measured;
    }
    measured.status = first.status;
    if (first.status != RTNORM) co_return measured;
    const InputValue second = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique a origem da segunda linha de extensão: ")
            .from(first.point)
            .required());
    measured.status = second.status;
    measured.ends = {first.point, second.point};
    co_return measured;
}

std::wstring shownText(const CommandContext& context, const Ends& ends, const std::wstring& text) {
    AcDbAlignedDimension trial(ends.first, ends.second, ends.second, text.c_str(),
                               context.database().dimstyle());
    return trial.shownText();
}

std::unique_ptr<AcDbEntity> dimensionAt(const CommandContext& context, const Ends& ends,
                                        const AcGePoint3d& line, const std::wstring& text) {
    auto dimension = std::make_unique<AcDbAlignedDimension>(
        ends.first, ends.second, line, text.c_str(), context.database().dimstyle());
    const double scale = context.database().dimscale();
    if (dimension->dimscale() != scale) (void)dimension->setDimscale(scale);
    return dimension;
}

}  // namespace

CommandTask dimaligned(CommandContext context) {
    const Measured measured = co_await askEnds(context);
    if (measured.status != RTNORM) co_return endOf(measured.status);
    const Ends ends = measured.ends;
    std::wstring text;
    for (;;) {
        Prompt place(InputKind::Point,
                     L"\nEspecifique a localização da linha de cota ou [Texto]: ");
        place.from(ends.second).words(kLineWords).required();
        place.showing(context, [context, ends, text](const AcGePoint3d& line) {
            return dimensionAt(context, ends, line, text);
        });
        const InputValue answer = co_await context.ask(place);
        if (answer.status == RTKWORD) {
            const InputValue typed = co_await context.ask(
                Prompt(InputKind::Text,
                       L"\nDigite o texto da cota <" + shownText(context, ends, L"") + L">: ")
                    .wholeLine());
            if (typed.status == RTCAN) co_return CommandEnd::Cancelled;
            text = typed.status == RTNORM ? typed.text : L"";
            continue;
        }
        if (answer.status != RTNORM) co_return endOf(answer.status);
        const AcDbObjectId id = addEntity(context, dimensionAt(context, ends, answer.point, text));
        if (id.isNull()) co_return CommandEnd::Failed;
        say(context, L"Texto da cota = " + shownText(context, ends, text));
        co_return CommandEnd::Done;
    }
}

}  // namespace prancheta::commands
