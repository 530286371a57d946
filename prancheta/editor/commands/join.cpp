// SPDX-License-Identifier: MIT
// JOIN: lines in line become one line, arcs of one circle one arc, all else that touches at its
// ends a polyline.
#include <algorithm>
#include <cmath>

#include "prancheta/curves/crossings.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/join_parts.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

bool allSingle(const std::vector<JoinPart>& parts, bool round) {
    return std::all_of(parts.begin(), parts.end(), [&](const JoinPart& part) {
        const auto& chain = part.curve.segments();
        return chain.size() == 1 && chain.front().isRound() == round;
    });
}

/// Range of parameters of the first one that all together take; nothing when they are not in line.
std::optional<std::pair<double, double>> inLine(const std::vector<JoinPart>& parts, double near) {
    if (!allSingle(parts, false)) return {};
    const Segment& first = parts.front().curve.segments().front();
    const double size = first.u.length();
    double low = 0.0;
    double high = 1.0;
    for (const JoinPart& part : parts)
        for (const Vec2& p : {part.curve.start(), part.curve.end()}) {
            if (std::abs(cross(first.u, p - first.origin)) > near * size) return {};
            const double t = dot(p - first.origin, first.u) / (size * size);
            low = std::min(low, t);
            high = std::max(high, t);
        }
    return std::pair(low, high);
}

/// Arcs of one circle: the first one goes on counter-clockwise to the last one's end. A whole turn
/// is `high` - `low` = the turn over its sweep.
std::optional<std::pair<double, double>> onCircle(const std::vector<JoinPart>& parts, double near) {
    if (!allSingle(parts, true)) return {};
    const Segment& first = parts.front().curve.segments().front();
    const double turn = kTwoPi / std::abs(first.sweep);
    double high = 1.0;
    for (const JoinPart& part : parts) {
        const Segment& s = part.curve.segments().front();
        if (distance(s.origin, first.origin) > near || std::abs(s.radius() - first.radius()) > near)
            return {};
        const bool same = (cross(s.u, s.v) > 0.0) == (cross(first.u, first.v) > 0.0);
        double end = first.parameterOfAngle(first.angleTo(same ? s.at(1.0) : s.at(0.0)));
        const double start = first.parameterOfAngle(first.angleTo(same ? s.at(0.0) : s.at(1.0)));
        if (end < start - 1e-9) end += turn;
        if (&part != &parts.front()) high = std::max(high, end);
    }
    return std::pair(0.0, high >= turn - 1e-9 ? turn : high);
}

/// The first one takes the place of all.
bool growFirst(const CommandContext& context, const std::vector<JoinPart>& parts, double low,
               double high, bool whole) {
    Ids others;
    for (std::size_t i = 1; i < parts.size(); ++i) others.push_back(parts[i].id);
    if (whole) {
        std::unique_ptr<AcDbEntity> circle =
            entityOf(parts.front().curve.part(0.0, high), parts.front().height);
        const AcDbObjectPointer<AcDbEntity> first(parts.front().id, AcDb::kForRead);
        const AcDbObjectId id = addEntity(context, std::move(circle));
        const AcDbObjectPointer<AcDbEntity> added(id, AcDb::kForWrite);
        if (id.isNull() || added->setPropertiesFrom(first.object()) != Acad::eOk) return false;
        others.push_back(parts.front().id);
    } else if (!setEnds(context, {parts.front().id, parts.front().curve, false}, low, high)) {
        return false;
    }
    (void)eraseAll(context, others);
    return true;
}

bool makePolyline(const CommandContext& context, const std::vector<JoinPart>& parts,
                  const std::vector<Curve>& curves, const EndChain& chain) {
    std::size_t source = chain.links.front().curve;
    Ids gone;
    for (const EndChain::Link& link : chain.links) {
        source = std::min(source, link.curve);
        gone.push_back(parts[link.curve].id);
    }
    const AcDbObjectId id =
        addEntity(context, joinedPolyline(parts, curves, chain, parts[source].height));
    if (id.isNull()) return false;
    {
        const AcDbObjectPointer<AcDbEntity> from(parts[source].id, AcDb::kForRead);
        const AcDbObjectPointer<AcDbEntity> to(id, AcDb::kForWrite);
        if (from.openStatus() != Acad::eOk || to->setPropertiesFrom(from.object()) != Acad::eOk)
            return false;
    }
    (void)eraseAll(context, gone);
    return true;
}

/// How many were joined into how many.
std::pair<std::size_t, std::size_t> joinAll(const CommandContext& context,
                                            const std::vector<JoinPart>& parts) {
    const double near = nearOf(parts);
    if (const auto line = inLine(parts, near))
        return growFirst(context, parts, line->first, line->second, false)
                   ? std::pair(parts.size(), std::size_t{1})
                   : std::pair(std::size_t{0}, std::size_t{0});
    if (const auto arc = onCircle(parts, near)) {
        const double turn = kTwoPi / std::abs(parts.front().curve.segments().front().sweep);
        return growFirst(context, parts, arc->first, arc->second, arc->second >= turn)
                   ? std::pair(parts.size(), std::size_t{1})
                   : std::pair(std::size_t{0}, std::size_t{0});
    }
    std::vector<Curve> curves;
    for (const JoinPart& part : parts) curves.push_back(part.curve);
    std::pair<std::size_t, std::size_t> count;
    for (const EndChain& chain : endChains(curves, near)) {
        if (chain.links.size() < 2 || !makePolyline(context, parts, curves, chain)) continue;
        count.first += chain.links.size();
        ++count.second;
    }
    return count;
}

}  // namespace

CommandTask join(CommandContext context) {
    SelectOptions options;
    options.prompt = L"\nSelecione os objetos a unir: ";
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    std::vector<JoinPart> parts;
    for (const AcDbObjectId& id : chosen.ids)
        if (std::optional<JoinPart> part = joinPartOf(id)) parts.push_back(std::move(*part));
    if (!parts.empty())
        std::erase_if(parts, [&, height = parts.front().height](const JoinPart& part) {
            return std::abs(part.height - height) > 1e-6;
        });
    if (parts.size() < 2) {
        say(context,
            L"Para unir são precisos dois objetos abertos na mesma altura: linhas, arcos ou "
            L"polilinhas.");
        co_return CommandEnd::Done;
    }
    const auto [joined, into] = joinAll(context, parts);
    if (joined == 0)
        say(context,
            L"Os objetos não estão em linha nem no mesmo círculo, e as pontas não se tocam: nada "
            L"foi unido.");
    else
        say(context, counted(joined, L"objeto unido", L"objetos unidos") + L" em " +
                         std::to_wstring(into) + L".");
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
