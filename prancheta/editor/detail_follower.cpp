// SPDX-License-Identifier: MIT
// Details follow what the steps of a session change.
#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "dbsymtb.h"
#include "dbviewport.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/detail_copy.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {

namespace {

using Boxes = std::vector<Box2d>;

/// Numbers of a file.
bool isNear(double a, double b) { return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a)); }
bool isNear(const Box2d& a, const Box2d& b) {
    return isNear(a.left, b.left) && isNear(a.bottom, b.bottom) && isNear(a.right, b.right) &&
           isNear(a.top, b.top);
}

bool stands(AcDbObjectId id) { return id.isResident() && !id.isErased(); }

/// When the detail was inserted more than once, another insertion stands in for an erased one.
void findHead(AcDbDatabase& database, Detail& detail) {
    const AcDbObjectId other = insertionOf(database, detail.block);
    if (other.isNull()) return;
    detail.head = other;
    (void)keepDetail(database, detail);  // its record is there
}

/// Somewhere in the drawing, also within other blocks. O(entities).
bool isInserted(const AcDbDatabase& database, AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    if (table.openStatus() != Acad::eOk) return true;
    const auto shows = [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
        return insertion.openStatus() == Acad::eOk && insertion->blockTableRecord() == block;
    };
    return std::ranges::any_of(ObjectAccess::records(*table.object()), [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForRead);
        return record.openStatus() == Acad::eOk &&
               std::ranges::any_of(ObjectAccess::entities(*record.object()), shows);
    });
}

void eraseParts(Editor& editor, const Detail& detail) {
    std::vector<AcDbObjectId> parts{detail.outline, detail.mark, detail.label, detail.border,
                                    recordOf(editor.database(), detail)};
    if (stands(detail.block) && !isInserted(editor.database(), detail.block))
        parts.push_back(detail.block);
    std::vector<AcDbObjectId> erased;
    for (const AcDbObjectId id : parts) {
        const AcDbObjectPointer<AcDbObject> part(id, AcDb::kForWrite);
        if (part.openStatus() == Acad::eOk && part->erase() == Acad::eOk) erased.push_back(id);
    }
    editor.lastErased().tookAlong(detail.head, erased);
}

Curve borderOf(const Detail& detail) {
    const AcDbObjectPointer<AcDbEntity> outline(detail.outline, AcDb::kForRead);
    return outline.openStatus() == Acad::eOk ? detailBorder(*outline.object()) : Curve();
}

/// The content of the block, anew.
void redraw(Editor& editor, const Detail& detail, const Curve& border) {
    AcDbDatabase& database = editor.database();
    const double unit = drawingScale(database);
    const double factor = unit / detail.scale;
    NewEntities content = detailCopy(editor, border, factor);
    const AcDbObjectId layer = database.core().ensureLayer(kDetailLayer);
    const Box2d& box = border.box();
    {
        const AcDbObjectPointer<AcDbEntity> outline(detail.outline, AcDb::kForRead);
        AcDbEntity* frame = nullptr;
        const AcGeVector3d middle((box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0, 0.0);
        if (outline->getTransformedCopy(
                AcGeMatrix3d::scaling(factor) * AcGeMatrix3d::translation(-middle), frame) ==
            Acad::eOk)
            content.emplace_back(frame);
    }
    const AcGePoint3d below(0.0, -box.height() / 2.0 * factor - kDetailGap * unit, 0.0);
    content.push_back(
        detailLabelText(database, detailLabel(detail.letter, detail.scale), below, unit));
    for (std::size_t i = content.size() - 2; i < content.size(); ++i)
        (void)content[i]->setLayer(layer);
    const AcDbObjectPointer<AcDbBlockTableRecord> block(detail.block, AcDb::kForWrite);
    if (block.openStatus() != Acad::eOk) return;
    for (const AcDbObjectId id : std::vector(ObjectAccess::entities(*block.object())))
        if (const AcDbObjectPointer<AcDbEntity> former(id, AcDb::kForWrite);
            former.openStatus() == Acad::eOk)
            (void)former->erase();
    for (std::unique_ptr<AcDbEntity>& entity : content) {
        AcDbObjectId id;
        if (block->appendAcDbEntity(id, entity.get()) == Acad::eOk) (void)entity.release()->close();
    }
}

/// A point; empty for what is no text.
Box2d placeOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
    if (text.openStatus() != Acad::eOk) return {};
    const AcGePoint3d p = text->position();
    return {p.x, p.y, p.x, p.y};
}

/// The step moved the text itself, alone or with what it belongs to.
bool wasMoved(AcDbObjectId text, const Box2d& last) {
    const Box2d now = placeOf(text);
    return !last.empty() && !now.empty() && !isNear(now, last);
}

/// False when both stand where they stood.
bool learnTexts(Detail& detail) {
    const auto learn = [](Box2d& last, const Box2d& now) {
        if (now.empty() || (!last.empty() && isNear(now, last))) return false;
        last = now;
        return true;
    };
    const bool letter = learn(detail.letterAt, placeOf(detail.mark));
    return learn(detail.labelAt, placeOf(detail.label)) || letter;
}

/// The letter goes along with the region, from wherever the user put it, unless it went itself.
void moveLetter(const Detail& detail, const Curve& border, double formerUnit, double unit) {
    const bool went = wasMoved(detail.mark, detail.letterAt);
    const AcDbObjectPointer<AcDbText> mark(detail.mark, AcDb::kForWrite);
    if (mark.openStatus() != Acad::eOk) return;
    const bool round = border.segments().front().isRound();
    const AcGePoint3d former = letterPlace(detail.region, round, kDetailText * formerUnit);
    const AcGePoint3d now = letterPlace(border.box(), round, kDetailText * unit);
    if (!went) (void)mark->transformBy(AcGeMatrix3d::translation(now - former));  // a text takes it
    (void)mark->setHeight(mark->height() * unit / formerUnit);
}

/// The size that the user gave to the insertion goes into the scale of the detail, unless the
/// region grew with it; the insertion is as large as its block again. True when it was not. A line
/// for the user in `told` when the detail cannot have that size.
bool takeSize(const AcDbDatabase& database, Detail& detail, const Box2d& region,
              std::wstring& told) {
    AcGeVector3d size;
    {
        const AcDbObjectPointer<AcDbBlockReference> head(detail.head, AcDb::kForRead);
        if (head.openStatus() != Acad::eOk) return false;
        size = head->scaleFactors();
    }
    const double by = std::abs(size.x);
    const bool even = isNear(by, std::abs(size.y));
    if (even && isNear(by, 1.0)) return false;
    const AcDbObjectPointer<AcDbBlockReference> head(detail.head, AcDb::kForWrite);
    if (head.openStatus() != Acad::eOk) return false;
    const auto sign = [](double s) { return std::copysign(1.0, s); };
    (void)head->setScaleFactors({sign(size.x), sign(size.y), sign(size.z)});  // none is 0
    const bool withRegion = even && isNear(region.width(), detail.region.width() * by);
    const bool alone = insertionOf(database, detail.block, detail.head).isNull();
    if (even && alone && !withRegion)
        detail.scale /= by;
    else if (!withRegion)
        told = L"\nO detalhe " + detail.letter + L" fica na escala " +
               paperScaleText(detail.scale) +
               (even ? L": há cópias dele.\n" : L": as escalas em X e Y são diferentes.\n");
    return true;
}

/// A line for the user.
std::wstring followCopy(Editor& editor, Detail detail, const Curve& border, const Boxes& changed) {
    AcDbDatabase& database = editor.database();
    const double unit = drawingScale(database);
    std::wstring told;
    const bool sized = takeSize(database, detail, border.box(), told);
    const bool resized =
        sized || !isNear(detail.drawnFor, unit) || !isNear(detail.region, border.box());
    const auto touches = [&](const Box2d& box) { return box.meets(border.box()); };
    if (resized || std::ranges::any_of(changed, touches)) redraw(editor, detail, border);
    if (resized) {
        moveLetter(detail, border, detail.drawnFor > 0.0 ? detail.drawnFor : unit, unit);
        detail.drawnFor = unit;
        detail.region = border.box();
    }
    if (learnTexts(detail) || resized) (void)keepDetail(database, detail);  // its record is there
    return told;
}

/// The viewport shows the region, as large as its scale makes it; the circle that clips it lies
/// where it lies.
void fitViewport(AcDbViewport& viewport, const Detail& detail, const Curve& border, bool moved) {
    const double scale = viewport.customScale();
    const Box2d& box = border.box();
    const AcDbObjectPointer<AcDbCircle> circle(detail.border, AcDb::kForWrite);
    const bool round = circle.openStatus() == Acad::eOk;
    if (round && !moved) (void)viewport.setCenterPoint(circle->center());
    // Open for write, sizes above 0.
    (void)viewport.setViewTarget(AcGePoint3d::kOrigin);
    (void)viewport.setViewCenter({(box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0});
    (void)viewport.setWidth(box.width() * scale);
    (void)viewport.setHeight(box.height() * scale);
    (void)viewport.setCustomScale(scale);
    if (!round) return;
    (void)circle->setCenter(viewport.centerPoint());
    (void)circle->setRadius(box.width() * scale / 2.0);
}

/// The label keeps its place below the frame, and says the scale.
void moveLabel(const Detail& detail, const Box2d& frame) {
    const bool went = wasMoved(detail.label, detail.labelAt);
    const AcDbObjectPointer<AcDbText> label(detail.label, AcDb::kForWrite);
    if (label.openStatus() != Acad::eOk) return;
    const AcGeVector3d by((frame.left + frame.right - detail.frame.left - detail.frame.right) / 2.0,
                          frame.bottom - detail.frame.bottom, 0.0);
    if (!went) (void)label->transformBy(AcGeMatrix3d::translation(by));
    (void)label->setTextString(detailLabel(detail.letter, detail.scale).c_str());
}

bool isApart(const AcDbViewport& viewport, AcDbObjectId border) {
    const AcDbObjectPointer<AcDbCircle> circle(border, AcDb::kForRead);
    return circle.openStatus() == Acad::eOk && !circle->center().isEqualTo(viewport.centerPoint());
}

void followOnSheet(Editor& editor, Detail detail, const Curve& border) {
    const AcDbViewport& shown = *viewportOf(detail.head);
    const bool moved = !isNear(frameOf(shown), detail.frame);
    const double unit = drawingScale(editor.database());
    const bool resized = !isNear(detail.drawnFor, unit) || !isNear(detail.region, border.box());
    if (!moved && !resized && !isApart(shown, detail.border) &&
        isNear(1.0 / shown.customScale(), detail.scale)) {
        if (learnTexts(detail)) (void)keepDetail(editor.database(), detail);  // its record is there
        return;
    }
    {
        const AcDbObjectPointer<AcDbViewport> viewport(detail.head, AcDb::kForWrite);
        if (viewport.openStatus() != Acad::eOk) return;
        fitViewport(*viewport.object(), detail, border, moved);
    }
    detail.scale = 1.0 / shown.customScale();
    moveLabel(detail, frameOf(shown));
    moveLetter(detail, border, detail.drawnFor, unit);
    detail.frame = frameOf(shown);
    detail.drawnFor = unit;
    detail.region = border.box();
    (void)learnTexts(detail);
    (void)keepDetail(editor.database(), detail);  // its record is there
}

/// Lines for the user.
std::wstring followOne(Editor& editor, Detail detail, const Boxes& changed) {
    using State = Detail::State;
    AcDbDatabase& database = editor.database();
    if (detail.state == State::Parts) return {};
    if (!stands(detail.head) && stands(detail.outline) && !detail.onSheet())
        findHead(database, detail);
    if (!stands(detail.head)) {
        eraseParts(editor, detail);
        return {};
    }
    const Curve border = borderOf(detail);
    const State state = border.empty() ? State::Still : State::Live;
    if (state != detail.state) {
        detail.state = state;
        (void)keepDetail(database, detail);  // its record is there
        if (state == State::Still)
            return L"\nA marca do detalhe " + detail.letter +
                   (stands(detail.outline) ? L" está aberta" : L" foi apagada") +
                   L": o detalhe fica como está.\n";
    }
    if (state == State::Live && viewportOf(detail.head) != nullptr)
        followOnSheet(editor, detail, border);
    if (state == State::Live && !detail.onSheet())
        return followCopy(editor, detail, border, changed);
    return {};
}

}  // namespace

std::wstring DetailFollower::follow(Editor& editor) {
    const std::vector<Detail> details = detailsOf(editor.database());
    if (details.empty()) return {};
    DisplayList& model = editor.displayOf(editor.database().core().modelSpaceId());
    const Boxes changed = model.changedSince(m_seen);
    std::wstring told;
    for (const Detail& detail : details) told += followOne(editor, detail, changed);
    m_seen = model.revision();
    return told;
}

void DetailFollower::forget(Editor& editor) {
    if (detailsOf(editor.database()).empty()) return;
    m_seen = editor.displayOf(editor.database().core().modelSpaceId()).revision();
}

}  // namespace prancheta
