// SPDX-License-Identifier: MIT
// RESUMO: totals by product, packages by mass.
#include "zp/matlist/resumo.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "acedads.h"
#include "dbapserv.h"
#include "protocol/answers.h"
#include "texts/number.h"
#include "zp/cutting/pattern.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/cutting_plan.h"
#include "zp/matlist/export_tables.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/summary.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

constexpr std::size_t kTexts = 2;  ///< columns on the left; the others are numbers
using Line = std::array<std::wstring, 9>;

/// Bought bars of one length for each product, and what fits none.
struct BarsOfLength {
    std::vector<ProductPlan> plans;
    CutSettings settings;

    BarsOfLength(const std::vector<Linha>& rows, double length) : settings{{length}} {
        plans = plansOf(rows, settings, {});
    }
    std::wstring of(const SummaryLine& line) const {
        const auto found = std::ranges::find_if(plans, [&](const ProductPlan& p) {
            return p.designation == line.designation && p.material == line.material;
        });
        if (found == plans.end() || found->tooMany) return L"-";
        const ProductPlan& plan = *found;
        return std::to_wstring(plan.plan.boughtBars()) + (plan.plan.tooLong.empty() ? L"" : L"*");
    }
};

std::vector<std::wstring> aligned(const std::vector<Line>& lines) {
    std::array<std::size_t, std::tuple_size_v<Line>> widths{};
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    std::vector<std::wstring> texts;
    for (const Line& line : lines) {
        std::wstring text;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::wstring blanks(widths[i] - line[i].size(), L' ');
            text += (i == 0 ? L"" : L"  ") + (i < kTexts ? line[i] + blanks : blanks + line[i]);
        }
        texts.push_back(text);
    }
    return texts;
}

/// What a row delivers: so many members of one mass, in whole millionths of a kg.
struct Load {
    const Linha* row;
    cutting::Ticks mass;
};

cutting::Ticks millionths(double kg) { return std::llround(std::clamp(kg, 0.0, 1e9) * 1e6); }

std::wstring inKg(cutting::Ticks mass) {
    return wordsOf(static_cast<double>(mass) / 1e6, 1) + L" kg";
}

}  // namespace

std::vector<std::wstring> summaryLines(const std::vector<Linha>& rows) {
    const BarsOfLength six(rows, 6000.0);
    const BarsOfLength twelve(rows, 12000.0);
    std::vector<Line> lines{{L"PERFIL", L"MATERIAL", L"PEÇAS", L"METROS", L"PESO (kg)",
                             L"PINTURA (m2)", L"BARRAS 6 m", L"BARRAS 12 m", L"TIRA (mm)"}};
    double kg = 0.0;
    double m2 = 0.0;
    for (const SummaryLine& s : summaryOf(printedRows(rows))) {
        kg += s.kg;
        m2 += s.m2;
        lines.push_back({s.designation, s.material, std::to_wstring(s.pieces), wordsOf(s.metres, 2),
                         wordsOf(s.kg, 2), wordsOf(s.m2, 2), six.of(s), twelve.of(s),
                         s.strip > 0.0 ? wordsOf(s.strip, 1) : L"-"});
    }
    lines.push_back({kTotal, {}, {}, {}, wordsOf(kg, 2), wordsOf(m2, 2), {}, {}, {}});
    std::vector<std::wstring> texts = aligned(lines);
    for (const BarsOfLength* length : {&six, &twelve})
        for (const ProductPlan& plan : length->plans)
            for (const std::wstring& line : tooLongLines(plan, length->settings))
                texts.push_back(L"* " + line);
    return texts;
}

FileTable summaryTable(const std::vector<Linha>& rows) {
    FileTable table{L"Resumo",
                    {{L"PERFIL", -1, 30},
                     {L"MATERIAL", -1, 12},
                     {L"PEÇAS", 0, 9},
                     {L"METROS", 2, 12},
                     {L"PESO (kg)", 2, 14},
                     {L"PINTURA (m2)", 2, 14},
                     {L"BARRAS 6 m", 0, 12},
                     {L"BARRAS 12 m", 0, 12},
                     {L"TIRA (mm)", 1, 12}},
                    {}};
    const BarsOfLength six(rows, 6000.0);
    const BarsOfLength twelve(rows, 12000.0);
    const auto bars = [](const std::wstring& words) {
        const std::optional<double> n = texts::exactReal(words);
        return n ? Cell(*n) : Cell(words);
    };
    for (const SummaryLine& s : summaryOf(printedRows(rows)))
        table.rows.push_back({s.designation, s.material, static_cast<double>(s.pieces), s.metres,
                              s.kg, s.m2, bars(six.of(s)), bars(twelve.of(s)),
                              s.strip > 0.0 ? Cell(s.strip) : Cell(std::wstring())});
    return table;
}

std::vector<std::wstring> packageLines(const std::vector<Linha>& rows, double kg) {
    const cutting::Ticks most = millionths(kg);
    std::vector<Load> loads;
    for (const Linha& row : rows)
        if (!erased(row) && row.quantidade > 0)
            loads.push_back({&row, std::max<cutting::Ticks>(1, millionths(row.pesoUnitario))});
    std::ranges::stable_sort(loads, std::greater<>(), &Load::mass);
    std::vector<std::wstring> lines;
    long long package = 0;
    const auto add = [&](long long times, const std::wstring& members, cutting::Ticks mass) {
        const std::wstring first = std::to_wstring(package + 1);
        package += times;
        lines.push_back((times == 1 ? L"Pacote " + first
                                    : L"Pacotes " + first + L" a " + std::to_wstring(package)) +
                        L": " + members + L"; " + inKg(mass) + (times == 1 ? L"" : L" cada"));
    };
    const auto light = std::ranges::find_if(loads, [&](const Load& l) { return l.mass <= most; });
    for (auto load = loads.begin(); load != light; ++load)
        add(load->row->quantidade, L"1 " + load->row->marca + L" (mais pesada que o pacote)",
            load->mass);
    loads.erase(loads.begin(), light);
    if (loads.empty()) return lines;
    cutting::Task task;
    task.sources.push_back({most, most, cutting::kUnlimited});
    for (const Load& load : loads) task.items.push_back({load.mass, load.row->quantidade});
    for (const cutting::Use& use : cutting::firstFit(task)) {
        std::wstring members;
        cutting::Ticks mass = 0;
        for (const auto& [item, n] : use.pattern.counts) {
            members += (members.empty() ? L"" : L" + ") + std::to_wstring(n) + L" " +
                       loads[item].row->marca;
            mass += n * loads[item].mass;
        }
        add(use.times, members, mass);
    }
    return lines;
}

void summaryCommand() {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const std::optional<MaterialList> list = chooseList(*drawing);
    if (!list) return;
    const std::vector<Linha> all = rows(list->id);
    const std::vector<std::wstring> lines = summaryLines(all);  // may find widths that do not hold
    for (const std::wstring& fault : stripFaults()) acutPrintf(L"\n%ls", fault.c_str());
    for (const std::wstring& line : lines) acutPrintf(L"\n%ls", line.c_str());
    acutPrintf(L"\n");
    constexpr double kHeaviest = 1e6;
    for (;;) {
        const auto typed = askTyped(L"Peso por pacote em kg <sem romaneio>: ");
        if (!typed || typed->empty()) return;
        const double kg = texts::exactReal(*typed).value_or(0.0);
        if (kg > 0.0 && kg <= kHeaviest) {
            for (const std::wstring& line : packageLines(all, kg))
                acutPrintf(L"\n%ls", line.c_str());
            acutPrintf(L"\n");
            return;
        }
        protocol::refuse(L"Informe um peso maior que zero, até 1000000 kg.");
    }
}

}  // namespace zp::matlist
