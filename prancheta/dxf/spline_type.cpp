// SPDX-License-Identifier: MIT
// Splines in files: lists of knots, weights and points, each after its count.
#include "prancheta/dxf/spline_type.h"

#include <algorithm>

#include "dbspline.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/spline_curve.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta::dxf {
namespace {

/// No group has it: all groups of the type are taken as they stand.
constexpr int kNoCode = -1;
constexpr Field kSpline[] = {marker("AcDbSpline"), {kNoCode, Meaning::Ordered}};

enum Count { kKnots = 72, kControl = 73, kFit = 74 };

bool suitsSpline(const Values& v, const Tags&) {
    constexpr int kKnown[] = {210, 220, 230, 70, 71, 72, 73, 74, 42, 43, 44, 12, 22,
                              32,  13,  23,  33, 40, 41, 10, 20, 30, 11, 21, 31};
    return std::ranges::all_of(v.ordered, [&](const RawTag& tag) {
        return std::ranges::find(kKnown, tag.code) != std::end(kKnown);
    });
}

/// Null for what is no curve, and for counts that lie: that stays as it is.
std::unique_ptr<AcDbEntity> makeSpline(const Values& v) {
    const RawTags& tags = v.ordered;
    SplineData data = splineOf(tags);
    const auto counted = [&](Count code, std::size_t size) {
        return findWhole(tags, code, 0) == static_cast<int>(size);
    };
    const bool told = counted(kKnots, data.knots.size()) &&
                      counted(kControl, data.control.size()) && counted(kFit, data.fit.size());
    auto spline = std::make_unique<AcDbSpline>();
    if (!told || spline->setData(std::move(data)) != Acad::eOk) return nullptr;
    return spline;
}

class Groups {
public:
    void number(int code, double value) { m_tags.push_back({code, numberText(value)}); }
    void whole(int code, std::size_t value) { m_tags.push_back({code, std::to_string(value)}); }
    void point(int code, const AcGePoint3d& p) {
        number(code, p.x);
        number(code + 10, p.y);
        number(code + 20, p.z);
    }
    void vector(int code, const AcGeVector3d& v) {
        if (!v.isZeroLength()) point(code, AcGePoint3d::kOrigin + v);
    }
    RawTags take() { return std::move(m_tags); }

private:
    RawTags m_tags;
};

void takeSpline(const AcDbEntity& entity, Values& v) {
    const SplineData& data = static_cast<const AcDbSpline&>(entity).data();
    Groups out;
    out.vector(210, data.normal);
    out.whole(70, static_cast<std::size_t>(data.flags));
    out.whole(71, static_cast<std::size_t>(data.degree));
    out.whole(kKnots, data.knots.size());
    out.whole(kControl, data.control.size());
    out.whole(kFit, data.fit.size());
    for (int i = 0; i < 3; ++i)
        if (data.tolerances[i] >= 0.0) out.number(42 + i, data.tolerances[i]);
    for (int i = 0; i < 2; ++i) out.vector(12 + i, data.tangents[i]);
    for (const double knot : data.knots) out.number(40, knot);
    for (const double weight : data.weights) out.number(41, weight);
    for (const AcGePoint3d& p : data.control) out.point(10, p);
    for (const AcGePoint3d& p : data.fit) out.point(11, p);
    v.ordered = out.take();
}

}  // namespace

EntityType splineType() {
    return {"SPLINE", &AcDbSpline::desc, kSpline, suitsSpline, makeSpline, takeSpline};
}

}  // namespace prancheta::dxf
