// SPDX-License-Identifier: MIT
// The hatch in files.
#include "prancheta/dxf/hatch_type.h"

#include "prancheta/entities/hatch_tags.h"

namespace prancheta::dxf {
namespace {

/// From here on the groups of a gradient, which the class does not hold.
constexpr int kGradient = 450;

constexpr Field kHatch[] = {marker("AcDbHatch"), {kGradient, Meaning::Ordered}};

bool suitsHatch(const Values&, const Tags&) { return true; }

std::unique_ptr<AcDbEntity> makeHatch(const Values& v) {
    auto hatch = std::make_unique<AcDbHatch>();
    if (!readHatch(v.ordered, v.references, *hatch)) return nullptr;
    return hatch;
}

void takeHatch(const AcDbEntity& entity, Values& v) {
    v.ordered = hatchTags(static_cast<const AcDbHatch&>(entity));
}

}  // namespace

EntityType hatchType() {
    return {"HATCH", &AcDbHatch::desc, kHatch, suitsHatch, makeHatch, takeHatch};
}

}  // namespace prancheta::dxf
