// SPDX-License-Identifier: MIT
// Where curves meet: pairs of segments whose boxes meet.
#include "prancheta/curves/crossings.h"

#include <algorithm>

namespace prancheta {

namespace {

/// Of a straight segment, whose box meets this one: whether its line has corners on both sides.
bool passesBox(const Segment& s, const Box2d& box) {
    const auto side = [&](double x, double y) { return cross(s.u, Vec2{x, y} - s.origin); };
    const double sides[] = {side(box.left, box.bottom), side(box.right, box.bottom),
                            side(box.right, box.top), side(box.left, box.top)};
    const auto [low, high] = std::minmax_element(std::begin(sides), std::end(sides));
    const double slack = 1e-9 * (std::abs(*low) + std::abs(*high));
    return *low <= slack && *high >= -slack;
}

/// The end of a closed curve is its start.
double fromStart(const Curve& curve, double t) {
    return curve.closed() && t >= curve.count() - 1e-12 ? 0.0 : t;
}

bool sameOn(const Curve& curve, double s, double t, const Vec2& p, const Vec2& q, double near) {
    if (s == t) return true;
    const double apart = std::abs(s - t);
    const bool neighbours = apart <= 1.0 || (curve.closed() && apart >= curve.count() - 1.0);
    return neighbours && distance(p, q) <= near &&
           (!curve.closed() || curve.segments().size() > 1 || apart < 0.5 || apart > 0.999999);
}

/// In the order of the first curve; what corners of the chains gave twice, once.
void tidy(const Curve& a, const Curve& b, std::vector<Meeting>& all) {
    for (Meeting& m : all) {
        m.first = fromStart(a, m.first);
        m.second = fromStart(b, m.second);
    }
    std::sort(all.begin(), all.end(), [](const Meeting& m, const Meeting& n) {
        return m.first != n.first ? m.first < n.first : m.second < n.second;
    });
    const double near = 4.0 * std::min(a.tolerance(), b.tolerance());
    std::vector<Meeting> once;
    const auto known = [&](const Meeting& m, const Meeting& n) {
        return sameOn(a, m.first, n.first, m.point, n.point, near) &&
               sameOn(b, m.second, n.second, m.point, n.point, near);
    };
    for (const Meeting& m : all) {
        bool there = !once.empty() && known(once.front(), m);
        for (std::size_t back = 1; !there && back <= std::min<std::size_t>(4, once.size()); ++back)
            there = known(once[once.size() - back], m);
        if (!there) once.push_back(m);
    }
    all = std::move(once);
}

}  // namespace

CurveIndex::CurveIndex(const Curve& curve) : m_curve(curve), m_tree(boxesOf(curve)) {}

bool CurveIndex::mayMeet(const Box2d& box) const {
    bool found = false;
    m_tree.visit(box, [&](std::size_t i) {
        const Segment& s = m_curve.segments()[i];
        found = found || s.isRound() || passesBox(s, box);
    });
    return found;
}

void CurveIndex::appendMeetingsWith(const Segment& segment, std::vector<Meeting>& out) const {
    m_tree.visit(segment.box().grown(m_curve.tolerance()), [&](std::size_t i) {
        const std::size_t before = out.size();
        appendMeetings(m_curve.segments()[i], segment, out);
        for (std::size_t k = before; k < out.size(); ++k) out[k].first += static_cast<double>(i);
    });
}

std::vector<Meeting> meetingsOf(const Curve& a, const Curve& b) {
    std::vector<Meeting> all;
    if (!a.box().grown(a.tolerance() + b.tolerance()).meets(b.box())) return all;
    const bool swapped = a.segments().size() < b.segments().size();
    const Curve& few = swapped ? a : b;
    const CurveIndex many(swapped ? b : a);
    for (std::size_t i = 0; i < few.segments().size(); ++i) {
        const std::size_t before = all.size();
        many.appendMeetingsWith(few.segments()[i], all);
        for (std::size_t k = before; k < all.size(); ++k) {
            all[k].second += static_cast<double>(i);
            if (swapped) std::swap(all[k].first, all[k].second);
        }
    }
    tidy(a, b, all);
    return all;
}

std::vector<Meeting> meetingsWithin(const Curve& curve) {
    std::vector<Meeting> all;
    const BoxTree tree(boxesOf(curve));
    const double near = 4.0 * curve.tolerance();
    for (std::size_t i = 0; i < curve.segments().size(); ++i)
        tree.visit(curve.segments()[i].box().grown(near), [&](std::size_t j) {
            if (j <= i) return;
            const std::size_t before = all.size();
            appendMeetings(curve.segments()[i], curve.segments()[j], all);
            for (std::size_t k = before; k < all.size(); ++k) {
                all[k].first += static_cast<double>(i);
                all[k].second += static_cast<double>(j);
            }
        });
    std::erase_if(all, [&](const Meeting& m) {
        const double along = std::abs(curve.lengthAt(m.second) - curve.lengthAt(m.first));
        return along <= near || (curve.closed() && along >= curve.length() - near);
    });
    tidy(curve, curve, all);
    return all;
}

}  // namespace prancheta
