// SPDX-License-Identifier: MIT
// What the commands that cut work on.
#include "prancheta/editor/commands/cut.h"

#include <algorithm>

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/wanted.h"
#include "prancheta/entities/plane_curve.h"
#include "protocol/attach.h"
#include "protocol/length.h"

namespace prancheta::commands {

namespace {

using Reader = AcDbObjectPointer<AcDbEntity>;

const protocol::EntityLength* lengthOf(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::EntityLength>(entity, protocol::kEntityLengthClass);
}

/// The target, or in `whyNot` why there is none.
std::optional<CutTarget> find(AcDbObjectId id, Cuts cuts, std::wstring& whyNot) {
    const Reader entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) {
        whyNot = L"O objeto não pode ser aberto.";
        return {};
    }
    if (onLockedLayer(id)) {
        whyNot = lengthOf(*entity.object()) != nullptr
                     ? L"A peça está em uma camada bloqueada; desbloqueie-a para mudá-la."
                     : L"O objeto está em uma camada bloqueada.";
        return {};
    }
    const auto curveOf = cuts == Cuts::SplinesToo ? partableCurve : planeCurve;
    if (std::optional<Curve> curve = curveOf(*entity.object()))
        return CutTarget{id, std::move(*curve), false};
    const protocol::EntityLength* const length = lengthOf(*entity.object());
    if (length == nullptr) {
        whyNot =
            cuts == Cuts::SplinesToo
                ? L"Só linhas, arcos, círculos, elipses, polilinhas, splines e peças podem "
                  L"ser cortados."
                : L"Só linhas, arcos, círculos, elipses, polilinhas e peças podem ser cortados.";
        return {};
    }
    AcGePoint3d start;
    AcGePoint3d end;
    if (const ACHAR* const reason = length->axis(*entity.object(), start, end)) {
        whyNot = reason;
        return {};
    }
    if (seen(start) == seen(end)) {
        whyNot = L"A peça está de topo: vista de cima não tem comprimento.";
        return {};
    }
    return CutTarget{id, Curve(straight(seen(start), seen(end))), true};
}

/// What a module said; the text is the module's until it is given back.
void refuseFor(const CommandContext& context, ACHAR* message) {
    refuse(context, message != nullptr ? message : L"A peça não pode ser cortada aí.");
    if (message != nullptr) acutDelString(message);
}

/// Length of a bar's axis over its length in the plan is the module's matter: distances go along
/// the axis in space.
bool axisOf(AcDbObjectId id, const protocol::EntityLength*& length, double& size) {
    const Reader entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return false;
    length = lengthOf(*entity.object());
    AcGePoint3d start;
    AcGePoint3d end;
    if (length == nullptr || length->axis(*entity.object(), start, end) != nullptr) return false;
    size = start.distanceTo(end);
    return true;
}

bool setBarEnds(const CommandContext& context, AcDbObjectId id, double from, double to) {
    const protocol::EntityLength* length = nullptr;
    double size = 0.0;
    ACHAR* message = nullptr;
    if (axisOf(id, length, size) && length->setEnds(id, from * size, to * size, message))
        return true;
    refuseFor(context, message);
    return false;
}

Ids takeOutOfBar(const CommandContext& context, AcDbObjectId id, double from, double to) {
    const protocol::EntityLength* length = nullptr;
    double size = 0.0;
    ACHAR* message = nullptr;
    AcDbObjectId rest;
    if (axisOf(id, length, size) && length->takeOut(id, from * size, to * size, rest, message))
        return {id, rest};
    refuseFor(context, message);
    return {};
}

/// Beside the entity, with its properties; null when that fails.
AcDbObjectId addBeside(const AcDbEntity& entity, std::unique_ptr<AcDbEntity> part) {
    AcDbObjectId id;
    if (!part) return id;
    const AcDbObjectPointer<AcDbBlockTableRecord> owner(entity.blockId(), AcDb::kForWrite);
    if (owner.openStatus() != Acad::eOk || owner->appendAcDbEntity(id, part.get()) != Acad::eOk)
        return AcDbObjectId::kNull;
    (void)part.release()->close();  // the database owns it now
    return id;
}

Ids cannotBeCut(const CommandContext& context) {
    refuse(context, L"O objeto não pode ser cortado.");
    return {};
}

/// A circle gives place to an arc.
Ids openCircle(const CommandContext& context, AcDbEntity& circle, double from, double to) {
    const AcDbObjectId arc = addBeside(circle, curvePart(circle, from, to));
    if (arc.isNull() || circle.erase() != Acad::eOk) return cannotBeCut(context);
    return {arc};
}

}  // namespace

void refuse(const CommandContext& context, std::wstring_view why) {
    context.editor().complain(why, Complaint::Refused);
}

std::optional<CutTarget> cutTarget(const CommandContext& context, AcDbObjectId id, Cuts cuts) {
    std::wstring whyNot;
    std::optional<CutTarget> target = find(id, cuts, whyNot);
    if (!target) refuse(context, whyNot);
    return target;
}

bool canBeCut(AcDbObjectId id) { return cutTargetOrNone(id).has_value(); }
bool canBeParted(AcDbObjectId id) { return cutTargetOrNone(id, Cuts::SplinesToo).has_value(); }

AcDbObjectId pickedToCut(const CommandContext& context, const InputValue& picked) {
    return wantedAt(context.editor(), picked.entities.front(), picked.point, canBeCut);
}

std::optional<CutTarget> cutTargetOrNone(AcDbObjectId id, Cuts cuts) {
    std::wstring unsaid;
    return find(id, cuts, unsaid);
}

bool setEnds(const CommandContext& context, const CutTarget& target, double from, double to) {
    if (target.bar) return setBarEnds(context, target.id, from, to);
    const AcDbObjectPointer<AcDbEntity> entity(target.id, AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOk && keepCurvePart(*entity.object(), from, to) == Acad::eOk)
        return true;
    (void)cannotBeCut(context);
    return false;
}

Ids takeOut(const CommandContext& context, const CutTarget& target, double from, double to) {
    const double n = target.curve.count();
    const bool open = !target.curve.closed();
    if (open && from <= 0.0) return setEnds(context, target, to, n) ? Ids{target.id} : Ids{};
    if (open && to >= n) return setEnds(context, target, 0.0, from) ? Ids{target.id} : Ids{};
    if (target.bar) return takeOutOfBar(context, target.id, from, to);
    const AcDbObjectPointer<AcDbEntity> entity(target.id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return cannotBeCut(context);
    if (AcDbCircle::cast(entity.object()) != nullptr)
        return openCircle(context, *entity.object(), to, from + n);
    if (!open) {
        if (keepCurvePart(*entity.object(), to, from + n) != Acad::eOk) return cannotBeCut(context);
        return {target.id};
    }
    const AcDbObjectId rest = addBeside(*entity.object(), curvePart(*entity.object(), to, n));
    if (rest.isNull() || keepCurvePart(*entity.object(), 0.0, from) != Acad::eOk)
        return cannotBeCut(context);
    return {target.id, rest};
}

void showPart(const CutTarget& target, double from, double to, Picture& out) {
    constexpr Adesk::UInt16 kGoing = 1;  // red
    std::unique_ptr<AcDbEntity> part;
    if (target.bar) {
        part = entityOf(target.curve.part(from, to), 0.0);
    } else {
        const Reader entity(target.id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) part = curvePart(*entity.object(), from, to);
    }
    if (!part) return;
    (void)part->setColorIndex(kGoing);
    recordPicture(*part, out, kAcGiStandardDisplay, true);
}

}  // namespace prancheta::commands
