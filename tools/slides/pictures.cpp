// SPDX-License-Identifier: MIT
// Section, arrow, insertion points and views, all drawn from the entity library's own geometry.
#include "pictures.h"

#include <algorithm>
#include <numbers>
#include <string>
#include <string_view>

#include "sketch.h"
#include "zp/objects/secao/secao.h"

namespace tools {
namespace {

using prancheta::slides::LibraryEntry;
using prancheta::slides::writeSlide;
using zp::secao::Secao;

/// The figures of the views dialog: the view that each shows, and from where it is looked at
/// (degrees in which the eye's arrow points).
struct Figure {
    int view;
    double looking;
};
constexpr Figure kFigures[] = {{3, 180.0}, {1, 270.0}, {2, 90.0}, {4, 0.0}};

constexpr double kArrowPixels = 60.0;
constexpr double kArrowGap = 10.0;
constexpr double kComprimentoOverAltura = 2.6;

Bounds grown(const Bounds& box, double by) {
    Bounds out = box;
    out.x0 -= by;
    out.y0 -= by;
    out.x1 += by;
    out.y1 += by;
    return out;
}

/// The point of the box that an insertion text names; the axis of the piece is its centre.
Point boxPoint(const Bounds& box, std::string_view text) {
    const auto has = [text](std::string_view word) {
        return text.find(word) != std::string_view::npos;
    };
    Point p;
    if (has("RIGHT")) p.x = box.x1;
    if (has("LEFT")) p.x = box.x0;
    if (has("UPPER")) p.y = box.y1;
    if (has("DOWN")) p.y = box.y0;
    return p;
}

/// Arrow towards the middle of one side of the box.
void eye(Sketch& sketch, const Bounds& box, double looking) {
    const double gap = kArrowGap * sketch.pixel();
    const double mx = (box.x0 + box.x1) / 2;
    const double my = (box.y0 + box.y1) / 2;
    const Point tip = looking == 180.0   ? Point{box.x1 + gap, my}
                      : looking == 0.0   ? Point{box.x0 - gap, my}
                      : looking == 270.0 ? Point{mx, box.y1 + gap}
                                         : Point{mx, box.y0 - gap};
    sketch.arrow(tip, looking, kArrowPixels, Colour::Arrow);
}

Sketch secaoPicture(const Secao& secao) {
    Sketch sketch(secao.bounds());
    sketch.outline(secao.outlines(), Colour::Outline);
    return sketch;
}

Sketch directionPicture(const Secao& secao, double looking) {
    Sketch sketch(grown(secao.bounds(), 0.3 * secao.bounds().side()));
    sketch.outline(secao.outlines(), Colour::Outline);
    eye(sketch, secao.bounds(), looking);
    return sketch;
}

/// The view as the command draws it.
zp::secao::Vista drawnVista(const Family& family, int view) {
    const bool turned = (family.remap == Remap::Channel && view == 2) ||
                        (family.remap == Remap::Cantoneira && (view == 1 || view == 4));
    std::vector<double> values = family.values;
    if (turned) {
        const auto* const roles =
            zp::secao::rolesOf(family.kind, family.points, static_cast<int>(values.size()));
        const int turn = zp::secao::placeOf(roles, zp::secao::Role::Giro);
        values[static_cast<std::size_t>(turn)] = std::numbers::pi;
        if (family.remap == Remap::Cantoneira) view = view == 1 ? 2 : 3;
    }
    if (family.remap == Remap::CantoneiraPair && view % 2 == 0) view = view == 2 ? 1 : 3;
    return zp::secao::secaoFrom(family.kind, family.points, values)->vista(view);
}

Sketch vistaPicture(const zp::secao::Vista& vista) {
    const double length = kComprimentoOverAltura * (vista.wMax - vista.wMin);
    Bounds box;
    box.include(0.0, vista.wMin);
    box.include(length, vista.wMax);
    Sketch sketch(box);
    for (const auto& level : vista.levels) {
        if (level.visible)
            sketch.line({0, level.w}, {length, level.w}, Colour::Outline);
        else
            sketch.dashed({0, level.w}, {length, level.w}, Colour::Hidden, 9, 5);
    }
    for (const auto& [from, to] : vista.stretches)
        for (const double x : {0.0, length}) sketch.line({x, from}, {x, to}, Colour::Outline);
    if (vista.axis) sketch.dashed({0, 0}, {length, 0}, Colour::Axis, 22, 7);
    return sketch;
}

/// Rectangle by its lower left and upper right corners.
void rectangle(Sketch& sketch, Point a, Point b, Colour colour) {
    sketch.line(a, {b.x, a.y}, colour);
    sketch.line({b.x, a.y}, b, colour);
    sketch.line(b, {a.x, b.y}, colour);
    sketch.line({a.x, b.y}, a, colour);
}

/// Dimension line between two points of one level, arrows outwards.
void measure(Sketch& sketch, Point from, Point to) {
    const double degrees = from.x == to.x ? 90.0 : 0.0;
    const double half = (to.x - from.x + to.y - from.y) / (2.0 * sketch.pixel());
    sketch.arrow(to, degrees, half, Colour::Mark);
    sketch.arrow(from, degrees + 180.0, half, Colour::Mark);
}

/// Two pieces held together by plates: height A, width C, spacing L1.
Sketch travejamentoPicture() {
    constexpr double kComprimento = 430.0;
    constexpr double kOuter = 90.0;  // edges of the pieces, from the axis
    constexpr double kInner = 45.0;
    constexpr double kHalfA = 70.0;
    constexpr double kC = 70.0;
    constexpr double kL1 = 180.0;
    constexpr double kAway = 35.0;  // of the dimension lines
    Bounds box;
    box.include(-kAway, -kOuter - kAway);
    box.include(kComprimento, kOuter + kAway);
    Sketch sketch(box);
    for (const double side : {-1.0, 1.0}) {
        rectangle(sketch, {0, side * kInner}, {kComprimento, side * kOuter}, Colour::Outline);
    }
    for (const double x : {0.0, kL1, 2 * kL1})
        rectangle(sketch, {x, -kHalfA}, {x + kC, kHalfA}, Colour::Arrow);
    constexpr double kText = 14.0;
    measure(sketch, {-kAway / 2, -kHalfA}, {-kAway / 2, kHalfA});
    sketch.text("A", {-kAway / 2, 0}, -kText, 0, Colour::Mark);
    measure(sketch, {kL1, kOuter + kAway / 2}, {kL1 + kC, kOuter + kAway / 2});
    sketch.text("C", {kL1 + kC / 2, kOuter + kAway / 2}, 0, kText, Colour::Mark);
    measure(sketch, {0, -kOuter - kAway / 2}, {kL1, -kOuter - kAway / 2});
    sketch.text("L1", {kL1 / 2, -kOuter - kAway / 2}, 0, -kText, Colour::Mark);
    return sketch;
}

}  // namespace

std::vector<LibraryEntry> libraryOf(const Family& family) {
    const auto secao = zp::secao::secaoFrom(family.kind, family.points, family.values);
    std::vector<LibraryEntry> entries;
    const auto add = [&entries](std::string name, const Sketch& sketch) {
        entries.push_back({std::move(name), writeSlide(sketch.slide())});
    };
    add("SECAO", secaoPicture(*secao));
    add("FLECHA", directionPicture(*secao, kFigures[0].looking));
    for (std::size_t i = 0; i < family.insertions.size(); ++i) {
        Sketch sketch = secaoPicture(*secao);
        sketch.mark(boxPoint(secao->bounds(), family.insertions[i]), Colour::Mark);
        add("IP" + std::to_string(i), sketch);
    }
    int figure = 0;
    for (const Figure& f : kFigures) {
        ++figure;
        add("BT" + std::to_string(figure), directionPicture(*secao, f.looking));
        add("VI" + std::to_string(figure), vistaPicture(drawnVista(family, f.view)));
    }
    if (family.extra == Extra::TravejamentoPicture) add("TRAV", travejamentoPicture());
    return entries;
}

prancheta::slides::Slide vistaDirections() {
    const Family& channel = families().front();
    const auto secao = zp::secao::secaoFrom(channel.kind, channel.points, channel.values);
    const Bounds& box = secao->bounds();
    Sketch sketch(grown(box, 0.45 * box.side()));
    sketch.outline(secao->outlines(), Colour::Outline);
    const double mx = (box.x0 + box.x1) / 2;
    const double my = (box.y0 + box.y1) / 2;
    for (const Figure& figure : kFigures) eye(sketch, box, figure.looking);
    // Read in a tile a quarter as large.
    constexpr double kDigits = 40.0;
    constexpr double kBeside = 32.0;
    constexpr double kAlong = kArrowGap + kArrowPixels - 18.0;
    const auto digit = [&sketch](const char* sign, Point at, double dx, double dy) {
        sketch.text(sign, at, dx, dy, Colour::Mark, kDigits);
    };
    digit("1", {box.x1, my}, kAlong, kBeside);
    digit("2", {mx, box.y1}, kBeside, kAlong);
    digit("3", {mx, box.y0}, kBeside, -kAlong);
    digit("4", {box.x0, my}, -kAlong, kBeside);
    return sketch.slide();
}

}  // namespace tools
