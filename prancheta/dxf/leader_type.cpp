// SPDX-License-Identifier: MIT
// Leaders in files.
#include "prancheta/dxf/leader_type.h"

#include "dblead.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr Field kLeader[] = {marker("AcDbLeader"),
                             {3, DimStyle, 0},
                             {71, Integer, 0, false, 1.0},
                             {72, Integer, 1},
                             {73, Integer, 2, false, 3.0},
                             {74, Integer, 3, false, 1.0},
                             {75, Integer, 4},
                             defaultField(40, 0.0),
                             defaultField(41, 0.0),
                             {76, Integer, 5},
                             {10, Places},
                             {340, Reference, 1},
                             {210, Normal},
                             {211, Point, 0},
                             defaultField(212, 0.0),
                             defaultField(222, 0.0),
                             defaultField(232, 0.0),
                             {213, Point, 1}};

bool suitsLeader(const Values& v, const Tags&) {
    return v.vertices.size() >= 2 && (v.integers[1] == 0 || v.integers[1] == 1) &&
           v.integers[2] >= 0 && v.integers[2] <= 3;
}

std::unique_ptr<AcDbEntity> makeLeader(const Values& v) {
    auto leader = std::make_unique<AcDbLeader>();
    for (const FieldVertex& p : v.vertices) (void)leader->appendVertex({p.x, p.y, p.z});
    (void)leader->setNormal(v.normal);
    (void)leader->setHorizontalDirection(v.points[0].asVector());  // x where there is none
    (void)leader->setHasArrowHead(v.integers[0] != 0);
    (void)leader->setSplined(v.integers[1] == 1);
    const auto hook = v.integers[3] != 0 ? AcDbLeader::Hook::Along : AcDbLeader::Hook::Against;
    (void)leader->setHook(v.integers[4] != 0 ? hook : AcDbLeader::Hook::None);
    (void)leader->setDimensionStyle(v.ids[0]);
    (void)leader->setFiledAnnotation(v.ids[1], static_cast<AcDbLeader::AnnoType>(v.integers[2]),
                                     v.points[1].asVector());
    return leader;
}

void takeLeader(const AcDbEntity& entity, Values& v) {
    const auto& leader = static_cast<const AcDbLeader&>(entity);
    v.vertices.clear();
    for (int i = 0; i < leader.numVertices(); ++i) {
        const AcGePoint3d p = leader.vertexAt(i);
        v.vertices.push_back({.x = p.x, .y = p.y, .z = p.z});
    }
    v.normal = leader.normal();
    v.points[0] = AcGePoint3d::kOrigin + leader.horizontalDirection();
    v.points[1] = AcGePoint3d::kOrigin + leader.annotationOffset();
    v.integers[0] = leader.hasArrowHead() ? 1 : 0;
    v.integers[1] = leader.isSplined() ? 1 : 0;
    v.integers[2] = leader.annoType();
    v.integers[3] = leader.hookRunsAlong() ? 1 : 0;
    v.integers[4] = leader.hasHookLine() ? 1 : 0;
    v.integers[5] = leader.numVertices();
    v.ids[0] = leader.dimensionStyle();
    v.ids[1] =
        leader.annoType() == AcDbLeader::kNoAnno ? AcDbObjectId::kNull : leader.annotationObjId();
}

}  // namespace

EntityType leaderType() {
    return {"LEADER", &AcDbLeader::desc, kLeader, suitsLeader, makeLeader, takeLeader};
}

}  // namespace prancheta::dxf
