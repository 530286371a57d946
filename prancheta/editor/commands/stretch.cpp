// SPDX-License-Identifier: MIT
// STRETCH: moves what lies in a crossing frame, and what hangs on it goes along.
#include <algorithm>
#include <memory>

#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/displacement.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"

namespace prancheta::commands {

namespace {

/// What becomes of the selected: some move, of others the stretch points with these indices.
struct Work {
    Ids moved;
    Ids stretched;
    std::vector<AcDbIntArray> points;  ///< one for each of the stretched
};

bool boxIsInside(const std::vector<AcGePoint3d>& frame, const Box2d& box) {
    const std::vector<AcGePoint3d> corners =
        cornersBetween({box.left, box.bottom, 0.0}, {box.right, box.top, 0.0});
    return !box.empty() && std::all_of(corners.begin(), corners.end(),
                                       [&](const AcGePoint3d& p) { return isInside(frame, p); });
}

/// What has no points of its own moves when all of it lies in the frame.
void take(const Editor& editor, AcDbObjectId id, const std::vector<AcGePoint3d>& frame,
          Work& work) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    AcGePoint3dArray points;
    AcDbIntArray modes;
    AcDbIntArray ids;
    if (entity.openStatus() != Acad::eOk ||
        entity->getStretchPoints(points, modes, ids) != Acad::eOk || points.isEmpty()) {
        if (boxIsInside(frame, boxOf(editor.display().picture(id).extents())))
            work.moved.push_back(id);
        return;
    }
    AcDbIntArray inside;
    for (int i = 0; i < points.length(); ++i)
        if (isInside(frame, points[i])) inside.append(i);
    if (inside.length() == points.length()) {
        work.moved.push_back(id);
    } else if (!inside.isEmpty()) {
        work.stretched.push_back(id);
        work.points.push_back(std::move(inside));
    }
}

Work workOn(const Editor& editor, const Selection& chosen) {
    Work work;
    auto crossed = chosen.crossed.begin();  // in the order of all
    for (const AcDbObjectId& id : chosen.ids) {
        if (crossed == chosen.crossed.end() || *crossed != id) {
            work.moved.push_back(id);
        } else {
            ++crossed;
            take(editor, id, chosen.crossing, work);
        }
    }
    return work;
}

Change stretching(std::shared_ptr<const Work> work, const AcGeVector3d& by) {
    return [work = std::move(work), by](AcDbEntity& entity, std::size_t place) {
        return entity.moveStretchPointsAt(work->points[place], by);
    };
}

}  // namespace

CommandTask stretch(CommandContext context) {
    SelectOptions options;
    options.prompt = L"\nSelecione objetos por uma janela de cruzamento: ";
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const auto work = std::make_shared<const Work>(workOn(context.editor(), chosen));
    if (work->moved.empty() && work->stretched.empty()) {
        say(context, L"Nenhum vértice está dentro da janela: não há o que esticar.");
        co_return CommandEnd::Done;
    }
    const ShowsDisplacement shows = [work](Prompt& prompt, const AcGePoint3d& base) {
        prompt.moving(work->moved).preview([work, base](const AcGePoint3d& to, Picture& out) {
            showEach(work->stretched, stretching(work, to - base), out);
        });
    };
    const InputValue by = co_await askBaseAndSecond(context, shows);
    if (by.status == RTCAN) co_return CommandEnd::Cancelled;
    transformAll(context, work->moved, AcGeMatrix3d::translation(by.point.asVector()));
    tellNotStretched(context,
                     changeEach(work->stretched, stretching(work, by.point.asVector())).size());
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
