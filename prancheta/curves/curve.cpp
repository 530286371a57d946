// SPDX-License-Identifier: MIT
// Plane curves.
#include "prancheta/curves/curve.h"

#include <algorithm>
#include <limits>

#include "prancheta/geometry/angles.h"

namespace prancheta {

Curve::Curve(std::vector<Segment> chain, bool closed)
    : m_segments(std::move(chain)), m_closed(closed) {
    double length = 0.0;
    for (const Segment& s : m_segments) {
        m_ends.push_back(length += s.lengthBetween(0.0, 1.0));
        m_box.add(s.box());
    }
}

double Curve::tolerance() const {
    double far = 0.0;
    for (const double c : {m_box.left, m_box.right, m_box.bottom, m_box.top})
        if (std::isfinite(c)) far = std::max(far, std::abs(c));
    return 1e-10 * length() + 16.0 * std::numeric_limits<double>::epsilon() * far;
}

Curve::Place Curve::placeOf(double t) const {
    const double n = count();
    if (m_closed && m_segments.size() > 1 && (t < 0.0 || t >= n)) t -= std::floor(t / n) * n;
    const double whole = std::clamp(std::floor(t), 0.0, n - 1.0);
    return {static_cast<std::size_t>(whole), t - whole};
}

Vec2 Curve::at(double t) const {
    const Place p = placeOf(t);
    return m_segments[p.segment].at(p.t);
}

Vec2 Curve::tangent(double t) const {
    const Place p = placeOf(t);
    const Vec2 along = m_segments[p.segment].tangent(p.t);
    const double size = along.length();
    return size > 0.0 ? along * (1.0 / size) : Vec2{1.0, 0.0};
}

double Curve::lengthAt(double t) const {
    if (m_closed && m_segments.size() > 1 && (t < 0.0 || t >= count())) {
        const double rounds = std::floor(t / count());
        return rounds * length() + lengthAt(t - rounds * count());
    }
    const Place p = placeOf(t);
    const double before = p.segment == 0 ? 0.0 : m_ends[p.segment - 1];
    return before + m_segments[p.segment].lengthBetween(0.0, p.t);
}

double Curve::parameterAt(double length) const {
    const auto found = std::lower_bound(m_ends.begin(), m_ends.end(), length);
    const std::size_t i =
        std::min(static_cast<std::size_t>(found - m_ends.begin()), m_ends.size() - 1);
    const double before = i == 0 ? 0.0 : m_ends[i - 1];
    return static_cast<double>(i) + m_segments[i].parameterAt(length - before);
}

double Curve::nearest(const Vec2& p) const {
    double best = 0.0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < m_segments.size(); ++i) {
        const double t = m_segments[i].nearest(p);
        const double miss = distance(m_segments[i].at(t), p);
        if (!(miss < least)) continue;
        least = miss;
        best = static_cast<double>(i) + t;
    }
    return best;
}

double Curve::area() const {
    if (empty()) return 0.0;
    const Vec2 about = start();
    double sum = 0.0;
    for (const Segment& s : m_segments) sum += s.areaAbout(about);
    return sum;
}

Curve Curve::part(double from, double to) const {
    if (m_segments.size() == 1) return Curve(m_segments.front().part(from, to));
    const double n = count();
    std::vector<Segment> chain;
    double first = std::floor(from);
    double last = std::ceil(to) - 1.0;
    if (!m_closed) {
        first = std::clamp(first, 0.0, n - 1.0);
        last = std::clamp(last, first, n - 1.0);
    }
    for (double i = first; i <= last; i += 1.0) {
        const double low = i == first ? from - i : 0.0;
        const double high = i == last ? to - i : 1.0;
        if (!(high > low)) continue;
        const Segment& s = m_segments[static_cast<std::size_t>(i - std::floor(i / n) * n)];
        chain.push_back(low == 0.0 && high == 1.0 ? s : s.part(low, high));
    }
    return Curve(std::move(chain), false);
}

Curve Curve::reversed() const {
    std::vector<Segment> chain;
    for (auto s = m_segments.rbegin(); s != m_segments.rend(); ++s) chain.push_back(s->reversed());
    return Curve(std::move(chain), m_closed);
}

std::optional<Extension> extensionOf(const Curve& curve, CurveEnd end) {
    if (curve.empty() || curve.closed()) return {};
    const bool atStart = end == CurveEnd::Start;
    const Segment& last = atStart ? curve.segments().front() : curve.segments().back();
    if (!last.isBounded()) return {};
    const Segment outwards = atStart ? last.reversed() : last;
    Extension extension;
    extension.begin = atStart ? 0.0 : curve.count();
    extension.scale = atStart ? -1.0 : 1.0;
    Segment rest = outwards;
    if (!last.isRound()) {
        if (!(last.u.length() > 0.0)) return {};
        rest.origin = outwards.at(1.0);
        rest.high = std::numeric_limits<double>::infinity();
    } else {
        rest.start = outwards.start + outwards.sweep;
        rest.sweep = std::copysign(kTwoPi - std::abs(outwards.sweep), outwards.sweep);
        extension.scale *= std::abs(rest.sweep / last.sweep);
        if (rest.sweep == 0.0) return {};
    }
    extension.curve = Curve(rest);
    return extension;
}

}  // namespace prancheta
