// SPDX-License-Identifier: MIT
// Pictures: appending primitives and reading them back.
#include "prancheta/graphics/picture.h"

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/picture_recorder.h"

namespace prancheta {

namespace {

bool finite(const AcGePoint3d& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}
bool finite(const AcGeVector3d& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}
bool finite(std::span<const AcGePoint3d> points) {
    return std::all_of(points.begin(), points.end(),
                       [](const AcGePoint3d& p) { return finite(p); });
}

/// Numbers of the kinds that have some, in the order in which they are stored.
enum CurveNumber { kNormal = 0, kRadius = 3, kStart = 4, kSweep = 7 };
enum TextNumber { kDirection = 3, kHeight = 6, kWidthFactor = 7, kOblique = 8 };

AcGeVector3d vectorAt(std::span<const double> numbers, std::size_t i) {
    return {numbers[i], numbers[i + 1], numbers[i + 2]};
}

/// z for anything that is no direction; never pointing below the plane.
AcGeVector3d upward(const AcGeVector3d& normal, bool& turned) {
    turned = false;
    if (!finite(normal) || normal.isZeroLength()) return AcGeVector3d::kZAxis;
    const AcGeVector3d n = normal.normal();
    turned = n.z < 0.0;
    return turned ? AcGeVector3d(0.0 - n.x, 0.0 - n.y, 0.0 - n.z) : n;
}

}  // namespace

PrimitiveKind PrimitiveView::kind() const { return m_picture->m_primitives[m_index].kind; }

std::uint32_t PrimitiveView::traitsIndex() const { return m_picture->m_primitives[m_index].traits; }

const PictureTraits& PrimitiveView::traits() const { return m_picture->m_traits[traitsIndex()]; }

std::span<const AcGePoint3d> PrimitiveView::points() const {
    return m_picture->pointsOf(m_picture->m_primitives[m_index]);
}

std::span<const double> PrimitiveView::numbers() const {
    return m_picture->numbersOf(m_picture->m_primitives[m_index]);
}

std::span<const double> PrimitiveView::bulges() const { return numbers().subspan(3); }

bool PrimitiveView::closed() const { return m_picture->m_primitives[m_index].closed; }

AcGePoint3d PrimitiveView::center() const { return points()[0]; }
AcGeVector3d PrimitiveView::normal() const { return vectorAt(numbers(), kNormal); }
AcGeVector3d PrimitiveView::start() const { return vectorAt(numbers(), kStart); }
double PrimitiveView::radius() const { return numbers()[kRadius]; }
double PrimitiveView::sweep() const { return numbers()[kSweep]; }
AcGePoint3d PrimitiveView::position() const { return points()[0]; }
AcGeVector3d PrimitiveView::direction() const { return vectorAt(numbers(), kDirection); }
double PrimitiveView::height() const { return numbers()[kHeight]; }
double PrimitiveView::widthFactor() const { return numbers()[kWidthFactor]; }
double PrimitiveView::oblique() const { return numbers()[kOblique]; }

const ACHAR* PrimitiveView::text() const {
    return m_picture->m_text.c_str() + m_picture->m_primitives[m_index].firstChar;
}

void Picture::clear() {
    m_primitives.clear();
    m_points.clear();
    m_numbers.clear();
    m_text.clear();
    m_traits.clear();
}

void Picture::start(PrimitiveKind kind, const PictureTraits& traits,
                    std::span<const AcGePoint3d> points, bool closed) {
    // Entities alternate between few sets of traits: looking at the last ones keeps the list short.
    constexpr std::size_t kLookBack = 8;
    std::size_t index = m_traits.size();
    for (std::size_t i = m_traits.size(); i > 0 && m_traits.size() - i < kLookBack; --i) {
        if (m_traits[i - 1] == traits) {
            index = i - 1;
            break;
        }
    }
    if (index == m_traits.size()) m_traits.push_back(traits);
    const auto at = [](std::size_t n) { return static_cast<std::uint32_t>(n); };
    m_primitives.push_back({kind, closed, at(index), at(m_points.size()), at(points.size()),
                            at(m_numbers.size()), 0, at(m_text.size())});
    m_points.insert(m_points.end(), points.begin(), points.end());
}

void Picture::addNumber(double value) {
    m_numbers.push_back(value);
    ++m_primitives.back().numberCount;
}

void Picture::addVector(const AcGeVector3d& v) {
    addNumber(v.x);
    addNumber(v.y);
    addNumber(v.z);
}

void Picture::addPolyline(const PictureTraits& traits, std::span<const AcGePoint3d> points) {
    if (points.empty() || !finite(points)) return;
    start(PrimitiveKind::Polyline, traits, points);
}

void Picture::addPolygon(const PictureTraits& traits, std::span<const AcGePoint3d> points) {
    if (points.size() < 3 || !finite(points)) return;
    start(PrimitiveKind::Polygon, traits, points, true);
}

void Picture::addCircle(const PictureTraits& traits, const AcGePoint3d& center, double radius,
                        const AcGeVector3d& normal) {
    if (!finite(center) || !std::isfinite(radius) || !(radius > 0.0)) return;
    bool turned = false;
    start(PrimitiveKind::Circle, traits, {&center, 1});
    addVector(upward(normal, turned));
    addNumber(radius);
}

void Picture::addArc(const PictureTraits& traits, const AcGePoint3d& center, double radius,
                     const AcGeVector3d& normal, const AcGeVector3d& start, double sweep) {
    if (!finite(start) || start.isZeroLength() || !std::isfinite(sweep) || sweep == 0.0) return;
    if (std::abs(sweep) >= kTwoPi) return addCircle(traits, center, radius, normal);
    if (!finite(center) || !std::isfinite(radius) || !(radius > 0.0)) return;
    bool turned = false;
    const AcGeVector3d n = upward(normal, turned);
    const double signedSweep = turned ? -sweep : sweep;
    AcGeVector3d first = start.normal();
    if (signedSweep < 0.0) first.rotateBy(signedSweep, n);
    this->start(PrimitiveKind::Arc, traits, {&center, 1});
    addVector(n);
    addNumber(radius);
    addVector(first);
    addNumber(std::abs(sweep));
}

void Picture::addText(const PictureTraits& traits, const AcGePoint3d& position,
                      const AcGeVector3d& normal, const AcGeVector3d& direction, double height,
                      double widthFactor, double oblique, std::wstring_view text) {
    if (text.empty() || !finite(position) || !std::isfinite(height) || !(height > 0.0)) return;
    if (!finite(direction) || direction.isZeroLength() || !std::isfinite(widthFactor) ||
        !std::isfinite(oblique))
        return;
    bool turned = false;
    start(PrimitiveKind::Text, traits, {&position, 1});
    addVector(upward(normal, turned));
    addVector(direction.normal());
    addNumber(height);
    addNumber(widthFactor != 0.0 ? widthFactor : 1.0);
    addNumber(oblique);
    m_text.append(text.substr(0, text.find(L'\0')));
    m_text.push_back(L'\0');
}

void Picture::addPline(const PictureTraits& traits, std::span<const AcGePoint3d> points,
                       std::span<const double> bulges, bool closed, const AcGeVector3d& normal) {
    if (points.empty() || bulges.size() != points.size() || !finite(points)) return;
    if (!std::all_of(bulges.begin(), bulges.end(), [](double b) { return std::isfinite(b); }))
        return;
    bool turned = false;
    start(PrimitiveKind::Pline, traits, points, closed);
    addVector(upward(normal, turned));
    for (const double bulge : bulges) addNumber(turned && bulge != 0.0 ? -bulge : bulge);
}

void Picture::append(const Picture& other, const AcGeMatrix3d& m) {
    PictureRecorder recorder(*this);
    recorder.begin({});
    recorder.geometry().pushModelTransform(m);
    replay(other, recorder);
}

void Picture::transform(const AcGeMatrix3d& m) {
    Picture result;
    result.append(*this, m);
    *this = std::move(result);
}

}  // namespace prancheta
