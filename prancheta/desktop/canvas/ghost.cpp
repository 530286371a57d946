// SPDX-License-Identifier: MIT
// What the answer that the pointer stands for would draw.
#include "prancheta/desktop/canvas/ghost.h"

#include <cmath>

#include "prancheta/database/entity_picture.h"
#include "prancheta/database/user_system.h"
#include "prancheta/plot/painter.h"

namespace prancheta::desktop {
namespace {

/// More than this follows the pointer as boxes, and still more as one box.
constexpr std::size_t kMostPrimitives = 4000;
constexpr std::size_t kMostBoxes = 2000;

void addBox(Picture& picture, const Box2d& box) {
    if (box.empty()) return;
    const AcGePoint3d corners[] = {{box.left, box.bottom, 0.0},
                                   {box.right, box.bottom, 0.0},
                                   {box.right, box.top, 0.0},
                                   {box.left, box.top, 0.0},
                                   {box.left, box.bottom, 0.0}};
    picture.addPolyline({}, corners);
}

Picture boxesOf(DisplayList& display, const std::vector<AcDbObjectId>& ids) {
    Picture boxes;
    Box2d all;
    for (const AcDbObjectId& id : ids) {
        const Box2d box = boxOf(display.picture(id).reach());
        all.add(box);
        if (ids.size() <= kMostBoxes) addBox(boxes, box);
    }
    if (ids.size() > kMostBoxes) addBox(boxes, all);
    return boxes;
}

bool changesSelection(const InputRequest& request) {
    return request.moving || request.rotating || request.transforming;
}

/// `turn`: of the user's X axis, from which turning angles are read.
AcGeMatrix3d change(const InputRequest& request, const AcGePoint3d& pointer, double turn) {
    if (request.transforming) return request.transforming(pointer);
    if (!request.base) return AcGeMatrix3d::kIdentity;
    const AcGeVector3d reach = pointer - *request.base;
    if (request.moving) return AcGeMatrix3d::translation(reach);
    return AcGeMatrix3d::rotation(std::atan2(reach.y, reach.x) - turn, AcGeVector3d::kZAxis,
                                  *request.base);
}

}  // namespace

void Ghost::clear() { m_selection.clear(); }

void Ghost::prepare(Editor& editor, const InputRequest& request) {
    m_selection.clear();
    if (!changesSelection(request)) return;
    DisplayList& display = editor.display();
    for (const AcDbObjectId& id : request.selection.ids()) {
        m_selection.append(display.picture(id));
        if (m_selection.size() <= kMostPrimitives) continue;
        m_selection = boxesOf(display, request.selection.ids());
        return;
    }
}

void Ghost::paint(QPainter& painter, Editor& editor, const InputRequest& request,
                  const AcGePoint3d& pointer, bool shift, const Viewport& viewport,
                  const Look& look) {
    PicturePainter::Settings settings;
    settings.toDevice = viewport.transform();
    settings.devicePerMillimetre = look.pixelsPerMillimetre;
    settings.darkGround = look.palette.dark;
    settings.ground = look.palette.ground;
    settings.lineWeights = look.lineWeights;
    if (changesSelection(request) && !m_selection.empty()) {
        PicturePainter::Settings moved = settings;
        moved.toDevice = flat(change(request, pointer, turnOf(editor.ucs()))) * settings.toDevice;
        PicturePainter(painter, editor.appearances(), moved).paint(m_selection);
    }
    Picture drawn;
    if (request.dragged != nullptr)
        recordPicture(*request.dragged, drawn, kAcGiStandardDisplay, true);
    const auto& preview = shift && request.shiftPreview ? request.shiftPreview : request.preview;
    if (preview) preview(pointer, drawn);
    if (!drawn.empty()) PicturePainter(painter, editor.appearances(), settings).paint(drawn);
}

}  // namespace prancheta::desktop
