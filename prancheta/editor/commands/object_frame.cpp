// SPDX-License-Identifier: MIT
// The plane frame that an object suggests.
#include "prancheta/editor/commands/object_frame.h"

#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "dbmtext.h"
#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/entities/text_layout.h"
#include "protocol/attach.h"
#include "protocol/length.h"

namespace prancheta::commands {

namespace {

ObjectFrame fromNearerEnd(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& pick) {
    const auto away = [&pick](const AcGePoint3d& p) {
        return std::hypot(p.x - pick.x, p.y - pick.y);
    };
    return away(b) < away(a) ? ObjectFrame{b, a - b} : ObjectFrame{a, b - a};
}

ObjectFrame ofCurve(const Curve& curve, const AcGePoint3d& pick) {
    const auto inSpace = [](const Vec2& p) { return AcGePoint3d(p.x, p.y, 0.0); };
    const std::size_t last = curve.segments().size() - 1;
    const double at = std::floor(curve.nearest({pick.x, pick.y}));
    const Segment& picked = curve.segments()[std::min(static_cast<std::size_t>(at), last)];
    const ObjectFrame chord = fromNearerEnd(inSpace(picked.at(0.0)), inSpace(picked.at(1.0)), pick);
    if (last > 0 || !picked.isRound()) return chord;
    const AcGePoint3d centre = inSpace(picked.origin);
    return {centre, (picked.isWhole() ? pick : chord.origin) - centre};
}

ObjectFrame turned(const AcGePoint3d& origin, double rotation) {
    const auto [s, c] = sineCosine(rotation);
    return {origin, {c, s, 0.0}};
}

}  // namespace

std::optional<ObjectFrame> frameOfObject(AcDbObjectId id, const AcGePoint3d& pick,
                                         std::wstring& whyNot) {
    const AcDbObjectPointer<AcDbEntity> opened(id, AcDb::kForRead);
    whyNot = L"O objeto não tem uma direção: indique a origem e um ponto no eixo X.";
    if (opened.openStatus() != Acad::eOk) return {};
    const AcDbEntity& entity = *opened.object();
    if (const std::optional<Curve> curve = planeCurve(entity); curve && !curve->empty())
        return ofCurve(*curve, pick);
    if (const auto* text = dynamic_cast<const AcDbText*>(&entity))
        return ObjectFrame{text->position(), placeOf(*text).direction};
    if (const auto* paragraph = dynamic_cast<const AcDbMText*>(&entity))
        return turned(paragraph->location(), paragraph->rotation());
    if (const auto* insertion = dynamic_cast<const AcDbBlockReference*>(&entity))
        return turned(insertion->position(), insertion->rotation());
    if (const auto* endless = dynamic_cast<const EndlessLine*>(&entity))
        return ObjectFrame{endless->basePoint(), endless->unitDir()};
    if (const std::optional<LinearModel> dimension = linearModel(id))
        return turned(dimension->first, dimension->rotation);
    const auto* const bar =
        protocol::extensionOf<protocol::EntityLength>(entity, protocol::kEntityLengthClass);
    AcGePoint3d start;
    AcGePoint3d end;
    if (bar == nullptr) return {};
    if (bar->axis(entity, start, end) != nullptr) {
        whyNot = L"Uma seção não tem um eixo no plano: indique a origem e um ponto no eixo X.";
        return {};
    }
    return fromNearerEnd(start, end, pick);
}

std::optional<AcGeMatrix3d> systemAlong(const AcGePoint3d& origin, const AcGeVector3d& along) {
    constexpr double kShortest = 1e-9;  // what points and ends of lines have as rounding
    const double length = std::hypot(along.x, along.y);
    if (length < kShortest) return {};
    AcGeMatrix3d system;
    system.setCoordSystem({origin.x, origin.y, 0.0}, {along.x / length, along.y / length, 0.0},
                          {-along.y / length, along.x / length, 0.0}, AcGeVector3d::kZAxis);
    return system;
}

}  // namespace prancheta::commands
