// SPDX-License-Identifier: MIT
// A cutting plan on the sheet: its table, and each bar with its cuts.
#include <algorithm>

#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"
#include "zp/matlist/draughtsman.h"
#include "zp/matlist/plan_files.h"

namespace zp::matlist {
namespace {

/// Characters in a line of a cell, unless one word has more.
constexpr std::size_t kMostCharacters = 48;
/// Height of a drawn bar, and from one to the next, in heights of the texts.
constexpr double kBarAltura = 3.0;
constexpr double kBarStep = 4.0;

using Lines = std::vector<std::vector<std::wstring>>;

/// Cuts of one bar in lines that are not too long.
std::vector<std::wstring> broken(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t plus = text.find(L" + ", from);
        const std::size_t end = plus == std::wstring::npos ? text.size() : plus + 3;
        const std::wstring part = text.substr(from, end - from);
        if (!lines.back().empty() && lines.back().size() + part.size() > kMostCharacters)
            lines.emplace_back();
        lines.back() += part;
        from = end;
    }
    return lines;
}

/// The table at the corner; its lower right end.
AcGePoint3d drawTable(const FileTable& table, const AcGePoint3d& corner, double h,
                      const PlanStamp& planStamp) {
    Draughtsman d(AcDbObjectId::kNull, ZpLayerToUsr(L"LISTA"));
    const Lines lines = linesOf(table);
    std::vector<double> x{corner.x};
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        std::size_t widest = 0;
        for (const auto& line : lines)
            for (const std::wstring& part : broken(line[i])) widest = std::max(widest, part.size());
        x.push_back(x.back() + widthOf(widest, h));
    }
    double y = corner.y;
    const auto rule = [&] { d.line({x.front(), y, corner.z}, {x.back(), y, corner.z}); };
    rule();
    for (std::size_t n = 0; n < lines.size(); ++n) {
        std::size_t height = 1;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const bool right = table.columns[i].decimals >= 0 && n > 0;
            const std::vector<std::wstring> parts = broken(lines[n][i]);
            height = std::max(height, parts.size());
            for (std::size_t part = 0; part < parts.size(); ++part)
                d.text({right ? x[i + 1] - 0.8 * h : x[i] + 0.8 * h,
                        y - (2.0 * static_cast<double>(part) + 1.5) * h, corner.z},
                       parts[part], h, right ? Align::Right : Align::Left);
        }
        y -= 2.0 * h * static_cast<double>(height);
        rule();
    }
    for (const double edge : x) d.line({edge, corner.y, corner.z}, {edge, y, corner.z});
    if (!d.ids().empty()) stamp(d.ids().front(), planStamp);
    return {x.back(), y, corner.z};
}

/// Bars at their scale, one below the other.
class Diagram {
public:
    /// `x` where bars begin, `y` the upper end, `factor` of their lengths.
    Diagram(double x, double y, double z, double h, double factor)
        : m_d(AcDbObjectId::kNull, ZpLayerToUsr(L"PLANOCORTE")),
          m_x(x),
          m_y(y),
          m_z(z),
          m_h(h),
          m_factor(factor) {}

    void heading(double x, const std::wstring& text) {
        m_d.text({x, m_y - 1.5 * m_h, m_z}, text, m_h, Align::Left);
        m_y -= 3.0 * m_h;
    }
    void bar(const cutting::Bar& bar, const CutSettings& settings) {
        const double altura = kBarAltura * m_h;
        const double end = m_x + bar.length * m_factor;
        rectangle(m_x, end, altura);
        m_d.text({m_x - 0.8 * m_h, m_y - 0.5 * altura - 0.5 * m_h, m_z},
                 std::to_wstring(bar.count) + L" x " + texts::withComma(bar.length), m_h,
                 Align::Right);
        double at = settings.trim;
        for (const cutting::Cut& cut : bar.cuts) {
            const double from = m_x + at * m_factor;
            const double to = from + cut.length * m_factor;
            if (at > 0.0) upright(from, altura);
            upright(to, altura);
            piece(cut, from, to, altura);
            at += cut.length + settings.sawCut;
        }
        if (const double rest = restOf(bar, settings); rest > 0.0) {
            hatch(m_x + at * m_factor, m_x + (at + rest) * m_factor, altura);
            m_d.text({end + 0.8 * m_h, m_y - 0.5 * altura - 0.5 * m_h, m_z},
                     L"sobra " + texts::withComma(rest), m_h, Align::Left);
        }
        m_y -= kBarStep * m_h;
    }

private:
    void upright(double x, double altura) { m_d.line({x, m_y, m_z}, {x, m_y - altura, m_z}); }
    void rectangle(double from, double to, double altura) {
        m_d.line({from, m_y, m_z}, {to, m_y, m_z});
        m_d.line({from, m_y - altura, m_z}, {to, m_y - altura, m_z});
        upright(from, altura);
        upright(to, altura);
    }
    /// Mark above length where there is room, else the mark alone, upright and as small as it must
    /// be.
    void piece(const cutting::Cut& cut, double from, double to, double altura) {
        const std::wstring length = texts::withComma(cut.length);
        const double middle = 0.5 * (from + to);
        const std::size_t widest = std::max(length.size(), cut.marca.size());
        if (0.9 * m_h * static_cast<double>(widest) < to - from) {
            m_d.text({middle, m_y - 1.35 * m_h, m_z}, cut.marca, m_h, Align::Middle);
            m_d.text({middle, m_y - 2.65 * m_h, m_z}, length, 0.8 * m_h, Align::Middle);
            return;
        }
        const double room = 0.9 * altura / (0.9 * static_cast<double>(cut.marca.size()) + 0.1);
        const double small = std::min({m_h, 0.8 * (to - from), room});
        if (small > 0.2 * m_h)
            m_d.text({middle + 0.5 * small, m_y - 0.5 * altura, m_z}, cut.marca, small,
                     Align::Middle, kUpright);
    }
    void hatch(double from, double to, double altura) {
        const double width = to - from;
        for (double s = m_h - altura; s < width; s += m_h)
            m_d.line({from + std::max(0.0, s), m_y - altura + std::max(0.0, -s), m_z},
                     {from + std::min(width, s + altura),
                      m_y - altura + std::min(altura, width - s), m_z});
    }

    static constexpr double kUpright = 1.5707963267948966;
    Draughtsman m_d;
    double m_x;
    double m_y;
    double m_z;
    double m_h;
    double m_factor;
};

}  // namespace

void drawPlan(const std::vector<ProductPlan>& plans, const CutSettings& settings,
              const AcGePoint3d& corner, const PlanStamp& stamp) {
    const double h = 2.5 * GetScale();
    const AcGePoint3d end = drawTable(tableOf(plans, settings), corner, h, stamp);
    double longest = 1.0;
    std::size_t label = 0;
    for (const ProductPlan& product : plans)
        for (const cutting::Bar& bar : product.plan.bars) {
            longest = std::max(longest, bar.length);
            label = std::max(
                label, std::to_wstring(bar.count).size() + 3 + texts::withComma(bar.length).size());
        }
    const double x = corner.x + widthOf(label, h);
    Diagram diagram(x, end.y - 3.0 * h, corner.z, h, (end.x - x) / longest);
    for (const ProductPlan& product : plans) {
        if (product.plan.bars.empty()) continue;
        diagram.heading(corner.x, lineOf(product));
        for (const cutting::Bar& bar : product.plan.bars) diagram.bar(bar, settings);
    }
}

}  // namespace zp::matlist
