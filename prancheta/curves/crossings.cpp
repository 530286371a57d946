// SPDX-License-Identifier: MIT
// Where curves meet: pairs of segments whose boxes meet.
#include "prancheta/curves/crossings.h"

#include <algorithm>

#include "prancheta/curves/box_tree.h"

namespace prancheta {

namespace {

/// Segment `i` of a with `j` of b.
void appendPair(const Curve& a, std::size_t i, const Curve& b, std::size_t j,
                std::vector<Meeting>& out) {
    const std::size_t first = out.size();
    appendMeetings(a.segments()[i], b.segments()[j], out);
    for (std::size_t k = first; k < out.size(); ++k) {
        out[k].first += static_cast<double>(i);
        out[k].second += static_cast<double>(j);
    }
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

std::vector<Meeting> meetingsOf(const Curve& a, const Curve& b) {
    std::vector<Meeting> all;
    const double margin = a.tolerance() + b.tolerance();
    if (!a.box().grown(margin).meets(b.box())) return all;
    const bool swapped = a.segments().size() > b.segments().size();
    const Curve& few = swapped ? b : a;
    const Curve& many = swapped ? a : b;
    const BoxTree tree(boxesOf(many));
    for (std::size_t i = 0; i < few.segments().size(); ++i)
        tree.visit(few.segments()[i].box().grown(margin), [&](std::size_t j) {
            swapped ? appendPair(a, j, b, i, all) : appendPair(a, i, b, j, all);
        });
    tidy(a, b, all);
    return all;
}

std::vector<Meeting> meetingsWithin(const Curve& curve) {
    std::vector<Meeting> all;
    const BoxTree tree(boxesOf(curve));
    const std::size_t n = curve.segments().size();
    const double margin = curve.tolerance();
    for (std::size_t i = 0; i < n; ++i)
        tree.visit(curve.segments()[i].box().grown(margin), [&](std::size_t j) {
            if (j > i) appendPair(curve, i, curve, j, all);
        });
    std::erase_if(all, [&](const Meeting& m) {
        const double along = std::abs(curve.lengthAt(m.second) - curve.lengthAt(m.first));
        const double near = 4.0 * margin;
        return along <= near || (curve.closed() && along >= curve.length() - near);
    });
    tidy(curve, curve, all);
    return all;
}

}  // namespace prancheta
