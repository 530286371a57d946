// SPDX-License-Identifier: MIT
// Cutting plans as tables, and their text files.
#include "zp/matlist/plan_files.h"

#include "protocol/plan.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"

namespace zp::matlist {
namespace {

/// What is not there is not shown as 0.
Cell orNothing(double value) { return value > 0.0 ? Cell(value) : Cell(std::wstring()); }

void addPlan(FileTable& table, const ProductPlan& product, const CutSettings& settings) {
    const auto add = [&](const wchar_t* origin, double length, double count, std::wstring cuts,
                         Cell rest, Cell utilisation) {
        table.rows.push_back({product.designation, product.material, origin, orNothing(length),
                              count, std::move(cuts), std::move(rest), std::move(utilisation)});
    };
    if (product.tooMany) {
        add(L"sem plano", 0.0, 0.0, lineOf(product), std::wstring(), std::wstring());
        return;
    }
    const cutting::Plan& plan = product.plan;
    for (const cutting::Bar& bar : plan.bars) {
        add(bar.leftOver ? L"retalho" : L"barra", bar.length, bar.count, cutsInWords(bar),
            restOf(bar, settings), 100.0 * utilisationOf(bar));
    }
    for (const cutting::Piece& piece : plan.tooLong)
        add(L"não cabe", 0.0, piece.quantity, texts::withComma(piece.length) + L" " + piece.marca,
            std::wstring(), std::wstring());
    add(L"total", 0.0, plan.boughtBars(), L"mínimo teórico " + leastInWords(plan), std::wstring(),
        orNothing(100.0 * plan.utilisation()));
}

}  // namespace

std::wstring cutsInWords(const cutting::Bar& bar) {
    std::wstring words;
    for (std::size_t i = 0; i < bar.cuts.size();) {
        std::size_t n = 1;
        while (i + n < bar.cuts.size() && bar.cuts[i + n] == bar.cuts[i]) ++n;
        if (!words.empty()) words += L" + ";
        if (n > 1) words += std::to_wstring(n) + L" x ";
        words += texts::withComma(bar.cuts[i].length) + L" " + bar.cuts[i].marca;
        i += n;
    }
    return words;
}

FileTable tableOf(const std::vector<ProductPlan>& plans, const CutSettings& settings) {
    FileTable table{L"Plano de corte",
                    {{L"PERFIL", -1, 26},
                     {L"MATERIAL", -1, 12},
                     {L"ORIGEM", -1, 10},
                     {L"BARRA (mm)", 2, 12},
                     {L"QUANT.", 0, 9},
                     {L"CORTES (mm)", -1, 60},
                     {L"SOBRA (mm)", 2, 12},
                     {L"APROV. (%)", 1, 12}},
                    {}};
    for (const ProductPlan& product : plans) addPlan(table, product, settings);
    return table;
}

bool namesPlan(const std::filesystem::path& destination) {
    constexpr std::wstring_view kEnd = protocol::kPlanFileEnd;
    const std::wstring stem = texts::lower(texts::shown(destination.stem()));
    return stem.size() >= kEnd.size() && stem.ends_with(kEnd);
}

bool writePlan(const std::filesystem::path& destination, const std::vector<Linha>& rows) {
    const CutSettings& settings = lastCutSettings();
    return writeTable(destination, tableOf(plansOf(rows, settings, readLeftOvers()), settings));
}

}  // namespace zp::matlist
