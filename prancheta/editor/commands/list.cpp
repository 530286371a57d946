// SPDX-License-Identifier: MIT
// LIST and DIST: what the drawing says of objects and points.
#include <cmath>

#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/listing.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

CommandTask list(CommandContext context) {
    const Selection chosen = co_await selectToRead(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    for (const AcDbObjectId id : chosen.ids) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) continue;
        entity->list();
        const Detail detail = detailShownBy(context.database(), id);
        if (!detail.letter.empty())
            listText(L"detalhe", detail.letter + L", escala " + paperScaleText(detail.scale));
        say(context, L"");
    }
    co_return CommandEnd::Done;
}

CommandTask dist(CommandContext context) {
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o primeiro ponto: ").required());
    if (first.status != RTNORM) co_return endOf(first.status);
    const InputValue second = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o segundo ponto: ").from(first.point).required());
    if (second.status != RTNORM) co_return endOf(second.status);

    const AcGeMatrix3d toUser = context.editor().ucs().inverse();
    const AcGeVector3d delta = toUser * (second.point - first.point);
    const double inPlane = std::hypot(delta.x, delta.y);
    const double direction = inPlane > 0.0 ? positiveAngle(std::atan2(delta.y, delta.x)) : 0.0;
    say(context, L"Distância = " + toldLength(delta.length()) + L",  Ângulo no plano XY = " +
                     directionText(direction) + L",  Ângulo a partir do plano XY = " +
                     turnText(context, std::atan2(delta.z, inPlane)));
    say(context, L"Delta X = " + toldLength(delta.x) + L",  Delta Y = " + toldLength(delta.y) +
                     L",  Delta Z = " + toldLength(delta.z));
    context.editor().variables().force(L"DISTANCE", delta.length());
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
