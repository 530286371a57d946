// SPDX-License-Identifier: MIT
// fazer-folha: contact sheet of all section classes, section and four views, as one SVG file on
// standard output.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "texts/encoding.h"
#include "zp/objects/secao/secao.h"

namespace {

using namespace zp::secao;

constexpr double kRight = std::numbers::pi / 2;
constexpr double kCell = 210.0;    // width of a picture's cell, px
constexpr double kRow = 150.0;     // height of a row
constexpr double kFirst = 250.0;   // left edge of the first picture
constexpr double kInside = 120.0;  // largest side of a picture

struct Sample {
    Kind kind;
    std::vector<double> values;
    int points = 1;
};

/// A usual size of each class, in constructor order; areas and masses as the catalogues give them.
const std::vector<Sample>& samples() {
    using enum Kind;
    static const std::vector<Sample> rows = {
        {UDobrado, {200, 75, 75, 3, 3, kRight, kRight, 1000, 0, 0, 0}},
        {UDobrado, {200, 75, 75, 2.65, 2.65, kRight, kRight, 1000, 0, 0, 20}},
        {ZDobrado, {150, 60, 20, 2, 2, kRight, kRight, 1000, 0, 0, 0, 0}},
        {Cartola, {50, 100, 2, 2, 20, 1000, 0, 0}},
        {CantoneiraDobrada, {50, 50, 3, 3, kRight, 1000, 0, 0, 0}},
        {CaixaDobrado, {200, 75, 2.65, 2.65, 0, 1000, 0, 0, 20}},
        {Box, {100, 60, 4, 4, 1000, 0, 0}},
        {Tubo, {60.3, 54.3}, 2},
        {BarraRedonda, {25.4, 1000, 0}},
        {BNLaminado,
         {50.8, 6.35, -2 * 50.8 / (6 * std::numbers::sqrt2), 6.35, 0, 0, 1000, 4.74, 602.86}},
        {CantLaminada, {50.8, 50.8, 6.35, 50.8 / 3, 2 * 50.8 / 3, 6.35, 0, 0, 1000, 4.74, 602.86}},
        {CantLaminadaCaixa, {50.8, 50.8, 6.35, 6.35, 0, 0, 1000, 9.48, 1205.71}},
        {ULaminado,
         {152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 48.77 / 3, 5.08, 0, 0, 1000, 1551.65, 12.2}},
        {CantTDobrada, {50, 50, 3, 3, 10, 1000, 0, 0, 0}},
        {CantTEELaminada, {50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 10, 0, 0, 1000, 9.48, 12.06}},
        {CantUDobrada, {50, 50, 3, 3, 150, 1000, 0, 0, 0}},
        {CantULaminada, {50.8, 50.8, 6.35, 0, 2 * 50.8 / 3, 6.35, 150, 0, 0, 1000, 9.48, 12.06}},
        {XDobrado, {50, 50, 3, 3, 10, 1000, 0, 0, 0, 0}},
        {BNDuplaLaminada, {50.8, 6.35, 0, 6.35, 10, 0, 0, 1000, 9.48, 12.06}},
        {CantCruzLaminada, {50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, 1000, 9.48, 12.06}},
        {CantZLaminada, {50.8, 50.8, 6.35, 6.35, 8, 20, 0, 0, 1000, 9.48, 12.06}},
        {UULaminado, {152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 150, 5.08, 0, 0, 1000, 3103.3, 24.4}},
        {DoisULaminado,
         {152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 0, 5.08, 10, 0, 0, 1000, 3103.3, 24.4}},
        {IDobrado, {200, 75, 75, 2.65, 2.65, 50, 1000, 0, 0, 0}},
        {IDobrado, {200, 75, 75, 2.65, 2.65, 10, 1000, 20, 0, 0}},
        {IDobrado, {100, 50, 50, 2, 2, 20, 1000, 20, 1, 0}},
        {ISoldado, {300, 300, 300, 8, 9.5, 1000, 0, 0, 62.4}},
        {ISoldado, {300, 150, 200, 9.5, 12.5, 6.3, 1000, 0, 0, 0}},
        {ILaminadoUSA, {200, 100, 5.6, 8.5, 0, 0, 0, 1000, 2848.94, 22.4}},
        {ILaminadoUSA, {152.4, 84.6, 5.89, 9.12, 2, 0, 0, 1000, 2352.92, 18.5}},
    };
    return rows;
}

/// Maps a box in millimetres onto the middle of a cell.
class Cell {
public:
    Cell(double left, double middle, const Bounds& box)
        : m_scale(kInside / std::max(box.largura(), box.altura())),
          m_x(left + kCell / 2 - m_scale * (box.x0 + box.x1) / 2),
          m_y(middle + m_scale * (box.y0 + box.y1) / 2) {}

    double x(double mm) const { return m_x + m_scale * mm; }
    double y(double mm) const { return m_y - m_scale * mm; }
    double scale() const { return m_scale; }

private:
    double m_scale;
    double m_x;
    double m_y;
};

void line(const Cell& cell, double x1, double y1, double x2, double y2, const char* kind) {
    std::printf("<line class=\"%s\" x1=\"%.2f\" y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\"/>\n", kind,
                cell.x(x1), cell.y(y1), cell.x(x2), cell.y(y2));
}

void drawContour(const Cell& cell, const Outline& outline) {
    if (outline.circle) {
        const Segment& s = outline.segments.front();
        std::printf("<circle class=\"v\" cx=\"%.2f\" cy=\"%.2f\" r=\"%.2f\"/>\n",
                    cell.x(s.centre.x), cell.y(s.centre.y), cell.scale() * s.radius);
        return;
    }
    const Point start = outline.segments.front().a;
    std::printf("<path class=\"v\" d=\"M%.2f %.2f", cell.x(start.x), cell.y(start.y));
    for (const Segment& s : outline.segments) {
        if (s.arc())
            std::printf("A%.2f %.2f 0 %d %d %.2f %.2f", cell.scale() * s.radius,
                        cell.scale() * s.radius, std::abs(s.sweep) > std::numbers::pi ? 1 : 0,
                        s.sweep > 0 ? 0 : 1, cell.x(s.b.x), cell.y(s.b.y));
        else
            std::printf("L%.2f %.2f", cell.x(s.b.x), cell.y(s.b.y));
    }
    std::printf("Z\"/>\n");
}

void drawSecao(const Secao& secao, double middle) {
    Bounds box = secao.bounds();
    box.include(0, 0);
    const Cell cell(kFirst, middle, box);
    for (const Outline& outline : secao.outlines()) drawContour(cell, outline);
    const double arm = 5.0 / cell.scale();
    line(cell, -arm, 0, arm, 0, "e");
    line(cell, 0, -arm, 0, arm, "e");
}

void drawVista(const Secao& secao, int number, double left, double middle) {
    const Vista& vista = secao.vista(number);
    const double length = 1.4 * (vista.wMax - vista.wMin);
    Bounds box;
    box.include(0, vista.wMin);
    box.include(length, vista.wMax);
    const Cell cell(left, middle, box);
    for (const Level& n : vista.levels) line(cell, 0, n.w, length, n.w, n.visible ? "v" : "h");
    for (const auto& [from, to] : vista.stretches)
        for (const double x : {0.0, length}) line(cell, x, from, x, to, "v");
    if (vista.axis) line(cell, 0, 0, length, 0, "c");
}

void text(double x, double y, const char* kind, const std::string& content) {
    std::printf("<text class=\"%s\" x=\"%.2f\" y=\"%.2f\">%s</text>\n", kind, x, y,
                content.c_str());
}

/// Attitudes of a plate: its sizes seen in each view.
void drawChapa(double middle) {
    constexpr double kD1 = 100, kD2 = 8, kD3 = 150;
    const std::array<std::array<double, 2>, 3> sides = {{{kD3, kD2}, {kD1, kD2}, {kD1, kD3}}};
    const std::array<const char*, 3> names = {"em pé na seção", "de canto", "deitada"};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        Bounds box;
        box.include(0, 0);
        box.include(kD3, kD3);
        const double left = kFirst + static_cast<double>(i) * kCell;
        const Cell cell(left, middle, box);
        const double x = (kD3 - sides[i][0]) / 2;
        const double y = (kD3 - sides[i][1]) / 2;
        for (const double at : {y, y + sides[i][1]}) line(cell, x, at, x + sides[i][0], at, "v");
        for (const double at : {x, x + sides[i][0]}) line(cell, at, y, at, y + sides[i][1], "v");
        text(left + 8, middle + kRow / 2 - 4, "s", names[i]);
    }
}

}  // namespace

int main() {
    constexpr int kHeadings = 40;
    const double height = kHeadings + kRow * static_cast<double>(samples().size() + 1);
    std::printf(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\">\n<style>"
        "rect{fill:#fff}.v,.h,.c,.e{fill:none;stroke:#111;stroke-width:1}.h{stroke:#087;stroke-"
        "dasharray:5 3}"
        ".c,.e{stroke:#c00}.c{stroke-dasharray:14 3 3 3}text{font:12px "
        "sans-serif}.t{font-weight:bold}"
        ".s{fill:#555}</style>\n<rect width=\"100%%\" height=\"100%%\"/>\n",
        kFirst + 5 * kCell, height);
    const std::array<const char*, 5> heads = {"seção", "superior", "inferior", "direita",
                                              "esquerda"};
    for (std::size_t i = 0; i < heads.size(); ++i)
        text(kFirst + static_cast<double>(i) * kCell + 85, 24, "t", heads[i]);
    double middle = kHeadings + kRow / 2;
    for (const Sample& sample : samples()) {
        const auto secao = secaoFrom(sample.kind, sample.points, sample.values);
        const RoleValues roleValues = roleValuesOf(sample.kind, sample.points, sample.values);
        text(12, middle - 8, "t", texts::encodeUtf8(description(sample.kind).name));
        text(12, middle + 12, "s",
             texts::encodeUtf8(perfilText(sample.kind, roleValues, 0) + L" " +
                               dimensoesText(sample.kind, roleValues, 0)));
        drawSecao(*secao, middle);
        for (int view = 1; view <= 4; ++view)
            drawVista(*secao, view, kFirst + view * kCell, middle);
        middle += kRow;
    }
    text(12, middle - 8, "t", "ZpChapa");
    drawChapa(middle);
    std::printf("</svg>\n");
    return 0;
}
