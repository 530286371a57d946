// SPDX-License-Identifier: MIT
// FILLET and CHAMFER: what they do alike.
#include "prancheta/editor/commands/corner.h"

#include <cmath>
#include <limits>

#include "prancheta/curves/crossings.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/editor/commands/polyline_corners.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/wanted.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

Segment withoutEnds(Segment s) {
    if (s.isRound()) {
        s.sweep = std::copysign(kTwoPi, s.sweep);
    } else {
        s.low = -std::numeric_limits<double>::infinity();
        s.high = std::numeric_limits<double>::infinity();
    }
    return s;
}

/// What trimTo() would keep: the far side from the corner, without one that of the pick.
std::optional<std::pair<double, double>> keptUpTo(const CornerSide& side, const Vec2& p,
                                                  const std::optional<Vec2>& corner) {
    const std::optional<double> t = parameterOf(side, p);
    if (!t) return {};
    const Curve& curve = side.target.curve;
    const std::optional<double> away =
        corner && !side.picked().isRound() ? parameterOf(side, *corner) : std::nullopt;
    const bool start = away ? *t < *away : curve.nearest(side.pick) < *t;
    const auto kept = start ? std::pair(0.0, *t) : std::pair(*t, curve.count());
    const double left = curve.lengthAt(kept.second) - curve.lengthAt(kept.first);
    return left > 8.0 * curve.tolerance() ? std::optional(kept) : std::nullopt;
}

bool trimTo(const CommandContext& context, const CornerSide& side, const Vec2& p,
            const std::optional<Vec2>& corner) {
    if (side.target.curve.closed()) return true;
    const auto kept = keptUpTo(side, p, corner);
    return kept && setEnds(context, side.target, kept->first, kept->second);
}

/// Both sides or none.
bool trimSides(const CommandContext& context, const CornerSide& first, const Vec2& atFirst,
               const CornerSide& second, const Vec2& atSecond, const std::optional<Vec2>& corner) {
    const auto fits = [&](const CornerSide& side, const Vec2& p) {
        return side.target.curve.closed() || keptUpTo(side, p, corner);
    };
    if (fits(first, atFirst) && fits(second, atSecond))
        return trimTo(context, first, atFirst, corner) && trimTo(context, second, atSecond, corner);
    refuse(context, L"O canto não cabe nos objetos: peça menos.");
    return false;
}

double heightOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    AcDbExtents box;
    const bool known = entity.openStatus() == Acad::eOk && entity->getGeomExtents(box) == Acad::eOk;
    return known ? box.minPoint().z : 0.0;
}

/// Nothing for what has no corner of that kind.
std::optional<CornerSide> sideAt(CutTarget target, const Vec2& pick) {
    const double at = target.curve.nearest(pick);
    const std::size_t last = target.curve.segments().size() - 1;
    const std::size_t segment = std::min(static_cast<std::size_t>(at), last);
    const Segment& picked = target.curve.segments()[segment];
    if (picked.isRound() && !picked.isCircular()) return {};
    return CornerSide{std::move(target), pick, segment};
}

std::optional<CornerSide> sideOf(const CommandContext& context, const InputValue& picked) {
    if (picked.entities.empty()) {
        refuse(context, L"Nenhum objeto aí.");
        return {};
    }
    std::optional<CutTarget> target = cutTarget(context, pickedToCut(context, picked));
    if (!target) return {};
    std::optional<CornerSide> side = sideAt(std::move(*target), seen(picked.point));
    if (!side) refuse(context, L"Um arco visto de lado não pode ser concordado.");
    return side;
}

/// What lies between the two sides: on their layer when it is one, else on the current one.
bool addBetween(const CommandContext& context, const CornerSide& first, const CornerSide& second,
                const Curve& curve) {
    const AcDbObjectId id = addEntity(context, entityOf(curve, heightOf(first.target.id)));
    if (id.isNull()) return false;
    const AcDbObjectPointer<AcDbEntity> one(first.target.id, AcDb::kForRead);
    const AcDbObjectPointer<AcDbEntity> other(second.target.id, AcDb::kForRead);
    const AcDbObjectPointer<AcDbEntity> added(id, AcDb::kForWrite);
    if (one.openStatus() == Acad::eOk && other.openStatus() == Acad::eOk &&
        added.openStatus() == Acad::eOk && one->layerId() == other->layerId())
        (void)added->setPropertiesFrom(one.object());
    return true;
}

bool makePlanned(const CommandContext& context, const CornerMaker& maker, const CornerSide& first,
                 const CornerSide& second) {
    const wchar_t* whyNot = L"";
    const std::optional<CornerPlan> plan = maker.plan(first, second, whyNot);
    if (!plan) {
        refuse(context, whyNot);
        return false;
    }
    const bool trimmed =
        !trimsSides(context) ||
        trimSides(context, first, plan->atFirst, second, plan->atSecond, meetingOf(first, second));
    return trimmed && addBetween(context, first, second, plan->between);
}

/// What a second pick there would put between the two.
void showPlanned(const CommandContext& context, const CornerMaker& maker, const CornerSide& first,
                 const AcGePoint3d& at, Picture& out) {
    const AcDbObjectId id = entityAt(context.editor(), at, canBeCut);
    std::optional<CutTarget> target = id.isNull() ? std::nullopt : cutTargetOrNone(id);
    if (!target || id == first.target.id || maker.sharp()) return;
    const std::optional<CornerSide> second = sideAt(std::move(*target), seen(at));
    const wchar_t* whyNot = L"";
    const auto plan = second ? maker.plan(first, *second, whyNot) : std::nullopt;
    const auto shown = plan ? entityOf(plan->between, heightOf(first.target.id)) : nullptr;
    if (shown) recordPicture(*shown, out, kAcGiStandardDisplay, true);
}

bool makeOne(const CommandContext& context, const CornerMaker& maker, const CornerSide& first,
             const CornerSide& second, bool sharp) {
    if (first.target.id == second.target.id)
        return cutCornerBetween(context, maker, first, second.segment);
    for (const CornerSide* const side : {&first, &second})
        if (side->target.curve.closed() && side->target.curve.segments().size() > 1) {
            refuse(context, L"Uma polilinha fechada só tem canto entre seus próprios segmentos.");
            return false;
        }
    const bool bars = first.target.bar || second.target.bar;
    if (bars && !sharp && !maker.sharp()) {
        refuse(context,
               L"Uma peça vai até o canto, mas não é arredondada nem chanfrada: use 0, ou Shift "
               L"ao escolher o segundo objeto.");
        return false;
    }
    if (!sharp && !maker.sharp()) return makePlanned(context, maker, first, second);
    const std::optional<Vec2> corner = meetingOf(first, second);
    const auto straight = [](const CornerSide& side) {
        return !side.target.curve.segments()[side.segment].isRound();
    };
    // Parallel lines are joined whatever the radius is.
    if (!corner && !sharp && !bars && straight(first) && straight(second))
        return makePlanned(context, maker, first, second);
    if (!corner) {
        refuse(context, L"Os objetos não se encontram: não há canto.");
        return false;
    }
    return trimSides(context, first, *corner, second, *corner, {});
}

Task<int> askTrimMode(CommandContext context) {
    static constexpr Word kModes[] = {{L"Aparar", L"Trim"}, {L"Não", L"No"}};
    const InputValue mode = co_await context.ask(
        Prompt(InputKind::Keyword, std::wstring(L"\nLados: [Aparar/Não aparar] <") +
                                       (trimsSides(context) ? L"Aparar" : L"Não aparar") + L">: ")
            .words(kModes));
    if (mode.status == RTKWORD)
        context.editor().variables().force(L"TRIMMODE", short{mode.text == L"Trim"});
    co_return mode.status;
}

Task<int> askPolyline(CommandContext context, const CornerMaker& maker) {
    const InputValue picked =
        co_await context.ask(Prompt(InputKind::Entity, L"\nSelecione a polilinha: ").required());
    if (picked.status == RTCAN) co_return RTCAN;
    if (const std::optional<CornerSide> side = sideOf(context, picked))
        (void)cutAllCorners(context, maker, side->target.id);
    co_return RTNORM;
}

/// The other object for one that was picked; RTCAN ends the command.
Task<int> askSecond(CommandContext context, const CornerMaker& maker, const CornerSide& first) {
    for (;;) {
        Prompt prompt(InputKind::Entity, L"\nSegundo objeto (Shift: canto): ");
        prompt.required().preview([context, &maker, &first](const AcGePoint3d& at, Picture& out) {
            showPlanned(context, maker, first, at, out);
        });
        const InputValue picked = co_await context.ask(prompt);
        if (picked.status == RTCAN) co_return RTCAN;
        const std::optional<CornerSide> second = sideOf(context, picked);
        if (second && makeOne(context, maker, first, *second, picked.removes)) co_return RTNORM;
    }
}

}  // namespace

bool trimsSides(const CommandContext& context) {
    return context.database().core().variables().number(L"TRIMMODE") != 0;
}

std::optional<double> parameterOf(const CornerSide& side, const Vec2& p) {
    const Segment& s = side.picked();
    double t = 0.0;
    if (s.isRound()) {
        const double turn = kTwoPi / std::abs(s.sweep);
        t = s.parameterOfAngle(s.angleTo(p));
        if (t > 1.0 && turn - t < t - 1.0) t -= turn;
    } else {
        t = dot(p - s.origin, s.u) / dot(s.u, s.u);
    }
    const bool first = side.segment == 0;
    const bool last = side.segment + 1 == side.target.curve.segments().size();
    if ((t < -1e-9 && !first) || (t > 1.0 + 1e-9 && !last)) return {};
    return static_cast<double>(side.segment) + t;
}

std::optional<Vec2> meetingOf(const CornerSide& first, const CornerSide& second) {
    std::vector<Meeting> all;
    appendMeetings(withoutEnds(first.picked()), withoutEnds(second.picked()), all);
    std::optional<Vec2> best;
    double least = std::numeric_limits<double>::infinity();
    for (const Meeting& m : all) {
        const double miss = distance(m.point, first.pick) + distance(m.point, second.pick);
        if (!(miss < least)) continue;
        least = miss;
        best = m.point;
    }
    return best;
}

CommandTask makeCorners(CommandContext context, CornerMaker& maker) {
    say(context, maker.settings(context));
    UndoSteps steps(context.database().core().undo());
    bool many = false;
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, maker.prompt()).words(maker.words()));
        if (picked.status == RTNONE || picked.status == RTCAN) co_return endOf(picked.status);
        int status = RTNORM;
        if (picked.status == RTKWORD) {
            if (picked.text == L"Undo" && !steps.undo()) say(context, L"Nada a desfazer.");
            if (picked.text == L"Multiple") many = true;
            if (picked.text == L"Trim") status = co_await askTrimMode(context);
            if (picked.text == L"Polyline") {
                status = co_await askPolyline(context, maker);
                if (!many) co_return endOf(status);
            }
            if (status != RTCAN) status = co_await maker.take(context, picked.text);
        } else if (const std::optional<CornerSide> first = sideOf(context, picked)) {
            status = co_await askSecond(context, maker, *first);
            if (!many) co_return endOf(status);
        }
        if (status == RTCAN) co_return many ? CommandEnd::Done : CommandEnd::Cancelled;
        steps.next();
    }
}

}  // namespace prancheta::commands
