// SPDX-License-Identifier: MIT
// From rows to cutting plans, and plans in words.
#include "zp/matlist/cutting_plan.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "texts/number.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/summary.h"

namespace zp::matlist {
namespace {

/// Takes away what a plan has used.
void useUp(std::vector<cutting::LeftOver>& leftOvers, const cutting::Plan& plan) {
    for (const cutting::Bar& bar : plan.bars) {
        int used = bar.leftOver ? bar.count : 0;
        for (cutting::LeftOver& l : leftOvers) {
            if (std::abs(l.length - bar.length) > 1e-6) continue;
            const int n = std::min(used, l.quantity);
            l.quantity -= n;
            used -= n;
        }
    }
}

/// Bought bars by length.
std::map<double, int> boughtByLength(const cutting::Plan& plan) {
    std::map<double, int> bars;
    for (const cutting::Bar& bar : plan.bars)
        if (!bar.leftOver) bars[bar.length] += bar.count;
    return bars;
}

std::wstring howMany(int n, const wchar_t* one, const wchar_t* more) {
    return std::to_wstring(n) + L" " + (n == 1 ? one : more);
}

/// How far the plan may be from the best; empty when it is the best.
std::wstring gapInWords(const cutting::Plan& plan) {
    if (plan.proved) return {};
    const double gap = plan.bought - plan.leastBought;
    const std::map<double, int> bars = boughtByLength(plan);
    if (bars.size() == 1)
        return L" (não provado: talvez até " +
               howMany(static_cast<int>(gap / bars.begin()->first + 1e-9), L"barra", L"barras") +
               L" a menos)";
    return L" (não provado: talvez até " + texts::withComma(gap) + L" mm a menos)";
}

}  // namespace

CutSettings& lastCutSettings() {
    static CutSettings settings;
    return settings;
}

std::vector<ProductPlan> plansOf(const std::vector<Linha>& rows, const CutSettings& settings,
                                 LeftOvers leftOvers) {
    const std::vector<Product> products = productsOf(rows);
    std::map<std::wstring, int> materials;
    for (const Product& product : products) ++materials[product.designation];
    std::vector<ProductPlan> plans;
    for (const Product& product : products) {
        if (!product.bar) continue;
        cutting::Problem problem;
        problem.stock = settings.stock;
        problem.sawCut = settings.sawCut;
        problem.trim = settings.trim;
        std::vector<cutting::LeftOver>& own = leftOvers.byKey[keyOf(product.designation)];
        // The file may have some by their sizes still.
        if (const std::wstring sizes = keyOf(product.sizes); sizes != keyOf(product.designation)) {
            std::vector<cutting::LeftOver>& older = leftOvers.byKey[sizes];
            own.insert(own.end(), older.begin(), older.end());
            older.clear();
        }
        problem.leftOvers = own;
        ProductPlan plan{product.designation, product.material, product.designation, {}, false};
        if (materials[product.designation] > 1) plan.name += L" (" + product.material + L")";
        long long pieces = 0;
        for (const Share& share : product.shares) {
            pieces += share.pieces;
            if (pieces > kMostPieces) break;
            problem.pieces.push_back(
                {share.row->marca, share.row->comprimento, static_cast<int>(share.pieces)});
        }
        plan.tooMany = pieces > kMostPieces;
        if (!plan.tooMany) plan.plan = cutting::solve(problem);
        useUp(own, plan.plan);
        plans.push_back(std::move(plan));
    }
    return plans;
}

std::wstring barsInWords(const cutting::Plan& plan) {
    std::vector<std::wstring> parts;
    for (const auto& [length, n] : boughtByLength(plan))
        parts.push_back((parts.empty() ? howMany(n, L"barra", L"barras") : std::to_wstring(n)) +
                        L" de " + texts::withComma(length));
    int leftOvers = 0;
    for (const cutting::Bar& bar : plan.bars) leftOvers += bar.leftOver ? bar.count : 0;
    if (leftOvers > 0) parts.push_back(howMany(leftOvers, L"retalho", L"retalhos"));
    if (parts.empty()) return L"nenhuma barra";
    std::wstring words;
    for (std::size_t i = 0; i < parts.size(); ++i)
        words += (i == 0 ? L"" : i + 1 < parts.size() ? L", " : L" e ") + parts[i];
    return words;
}

std::wstring leastInWords(const cutting::Plan& plan) {
    const std::map<double, int> bars = boughtByLength(plan);
    if (bars.size() > 1) return texts::withComma(plan.leastBought) + L" mm";
    const double length = bars.empty() ? 1.0 : bars.begin()->first;
    return texts::withComma(std::ceil(plan.leastBought / length - 1e-9), 0);
}

std::wstring lineOf(const ProductPlan& product) {
    const cutting::Plan& plan = product.plan;
    if (product.tooMany)
        return product.name + L": mais de " + std::to_wstring(kMostPieces) +
               L" peças; reparta a lista para ter o plano.";
    if (plan.bars.empty()) return product.name + L": nenhuma barra.";
    return product.name + L": " + barsInWords(plan) + L", aproveitamento " +
           wordsOf(100.0 * plan.utilisation(), 1) + L" %, mínimo teórico " + leastInWords(plan) +
           gapInWords(plan) + L".";
}

std::vector<std::wstring> tooLongLines(const ProductPlan& product, const CutSettings& settings) {
    const double longest = *std::ranges::max_element(settings.stock) - 2.0 * settings.trim;
    std::vector<std::wstring> lines;
    lines.reserve(product.plan.tooLong.size());
    for (const cutting::Piece& piece : product.plan.tooLong)
        lines.push_back(product.name + L": " + piece.marca + L" (" +
                        howMany(piece.quantity, L"peça", L"peças") + L" de " +
                        texts::withComma(piece.length) +
                        L" mm) não cabe em barra nenhuma: a maior dá " + texts::withComma(longest) +
                        L" mm. Preveja uma emenda ou informe uma barra maior.");
    return lines;
}

double restOf(const cutting::Bar& bar, const CutSettings& settings) {
    double rest = bar.length - 2.0 * settings.trim;
    for (const cutting::Cut& cut : bar.cuts) rest -= cut.length + settings.sawCut;
    return std::max(0.0, rest);
}

double utilisationOf(const cutting::Bar& bar) {
    double used = 0.0;
    for (const cutting::Cut& cut : bar.cuts) used += cut.length;
    return used / bar.length;
}

}  // namespace zp::matlist
