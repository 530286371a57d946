// SPDX-License-Identifier: MIT
// What a detail shows in the model.
#include "prancheta/editor/detail_copy.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "dbdim.h"
#include "dblead.h"
#include "prancheta/curves/region.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/display/annotations.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/picture_clip.h"
#include "prancheta/entities/picture_entities.h"

namespace prancheta {

namespace {

struct Frame {
    const Curve& border;
    AcGeMatrix3d toCopy;
    double factor;

    bool has(const AcGePoint3d& p) const { return insideOddly({&border, 1}, {p.x, p.y}); }
    bool hasAll(std::span<const AcGePoint3d> points) const {
        return std::ranges::all_of(points, [&](const AcGePoint3d& p) { return has(p); });
    }
};

AcGePoint3d middleOf(const Box2d& box) {
    return {(box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0, 0.0};
}

void take(const Picture& picture, NewEntities& out) {
    AcDbVoidPtrArray made;
    appendEntities(picture, made);
    for (void* const each : made) out.emplace_back(static_cast<AcDbEntity*>(each));
}

std::unique_ptr<AcDbEntity> scaledCopy(const AcDbEntity& entity, const Frame& frame) {
    AcDbEntity* copy = nullptr;
    if (entity.getTransformedCopy(frame.toCopy, copy) != Acad::eOk) return nullptr;
    return std::unique_ptr<AcDbEntity>(copy);
}

/// What only holds for the original: to what it is tied, and what modules know of it.
void forgetTies(AcDbDimension& copy) {
    RawTags kept;
    bool style = false;
    if (const ObjectExtra* const extra = ObjectAccess::extra(copy))
        for (const RawTagView& tag : extra->xdata) {
            if (tag.code == 1001) style = tag.value == "ACAD";
            if (style) kept.push_back({tag.code, std::string(tag.value)});
        }
    ObjectExtra only;
    only.xdata = kept;
    ObjectAccess::makeExtra(copy) = std::move(only);
}

void addDimension(const AcDbDimension& dimension, const Frame& frame, NewEntities& out) {
    if (!frame.hasAll(dimension.definitionPoints())) return;
    std::unique_ptr<AcDbEntity> made = scaledCopy(dimension, frame);
    if (made == nullptr) return;
    auto& copy = static_cast<AcDbDimension&>(*made);
    const AcDbDimStyleValues style = styleValues(dimension);
    (void)copy.setDimscale(style.dimscale);  // not resident, and above 0
    forgetTies(copy);
    const double factor = style.dimlfac != 0.0 ? std::abs(style.dimlfac) : 1.0;
    if (!copy.isAngular()) setLengthFactor(copy, factor / frame.factor);
    out.push_back(std::move(made));
}

bool isInside(const AcDbLeader& leader, const Frame& frame) {
    for (int i = 0; i < leader.numVertices(); ++i)
        if (!frame.has(leader.vertexAt(i))) return false;
    return true;
}

/// A leader and its note come together or not at all.
bool comesAlone(const AcDbEntity& entity, const Frame& frame) {
    if (const AcDbLeader* const leader = noteLeader(entity)) return !isInside(*leader, frame);
    const auto* const leader = AcDbLeader::cast(&entity);
    const AcDbStub* const stub = leader != nullptr ? leader->annotationObjId() : AcDbObjectId();
    AcDbEntity* const note =
        stub != nullptr && !stub->erased ? AcDbEntity::cast(stub->object) : nullptr;
    if (note == nullptr) return false;
    const Picture picture = pictureOf(*note);
    return insideOf(picture, frame.border).size() != picture.size();
}

void addEntity(const AcDbEntity& entity, const Picture& picture, const Frame& frame,
               NewEntities& out) {
    if (comesAlone(entity, frame)) return;
    if (const auto* const dimension = AcDbDimension::cast(&entity))
        return addDimension(*dimension, frame, out);
    if (const auto* const leader = AcDbLeader::cast(&entity)) {
        if (!isInside(*leader, frame)) return;
        if (const std::unique_ptr<AcDbEntity> copy = scaledCopy(entity, frame))
            take(pictureOf(*copy), out);
        return;
    }
    Picture inside = insideOf(picture, frame.border);
    if (!isAnnotation(entity)) {
        inside.transform(frame.toCopy);
    } else {
        if (inside.size() != picture.size()) return;
        const AcGePoint3d anchor = annotationAnchor(entity, picture);
        inside.transform(AcGeMatrix3d::translation(frame.toCopy * anchor - anchor));
    }
    take(inside, out);
}

}  // namespace

NewEntities detailCopy(Editor& editor, const Curve& border, double factor) {
    AcDbDatabase& database = editor.database();
    const AcGePoint3d middle = middleOf(border.box());
    const Frame frame{border,
                      AcGeMatrix3d::scaling(factor) * AcGeMatrix3d::translation(-middle.asVector()),
                      factor};
    std::unordered_set<AcDbStub*> ofDetails;
    for (const Detail& detail : detailsOf(database))
        for (const AcDbObjectId id : {detail.outline, detail.mark, detail.block})
            ofDetails.insert(id);
    NewEntities copies;
    DisplayList& model = editor.displayOf(database.core().modelSpaceId());
    for (const DisplayList::Item& item : model.find(border.box())) {
        const AcDbObjectPointer<AcDbEntity> entity(item.id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || ofDetails.contains(item.id)) continue;
        const auto* const insertion = AcDbBlockReference::cast(entity.object());
        if (insertion != nullptr && ofDetails.contains(insertion->blockTableRecord())) continue;
        addEntity(*entity.object(), model.picture(item.id), frame, copies);
    }
    return copies;
}

}  // namespace prancheta
