// SPDX-License-Identifier: MIT
// What is typed for a cutting plan, and what it means.
#include "zp/matlist/plan_answers.h"

#include <algorithm>

#include "texts/letters.h"
#include "texts/number.h"
#include "zp/matlist/asking.h"

namespace zp::matlist {
namespace {

// What is no length of a bar is a slip of the keyboard; mm.
constexpr double kShortest = 100.0;
constexpr double kLongest = 100000.0;
constexpr double kWidestCut = 100.0;

}  // namespace

std::wstring inWords(const std::vector<double>& lengths) {
    std::wstring words;
    for (const double length : lengths)
        words += (words.empty() ? L"" : L",") + texts::withPoint(length, 2);
    return words;
}

Answered<std::vector<double>> stockOf(const std::wstring& typed) {
    const wchar_t between = typed.find(L';') != std::wstring::npos ? L';' : L',';
    std::vector<double> lengths;
    for (const std::wstring& part : texts::trimmedParts(typed, between)) {
        const double length = texts::exactReal(part).value_or(0.0);
        if (!(length >= kShortest && length <= kLongest))
            return {{},
                    L"Informe comprimentos de barra em mm, de 100 a 100000, separados por "
                    L"vírgula: 6000,12000."};
        lengths.push_back(length);
    }
    std::ranges::sort(lengths);
    lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
    return {std::move(lengths), {}};
}

double widestCut(const std::vector<double>& stock) { return std::min(kWidestCut, stock.front()); }

double longestTrim(const std::vector<double>& stock) { return 0.5 * stock.front() - 1.0; }

Answered<CutSettings> settingsOf(const std::wstring& stock, const std::wstring& sawCut,
                                 const std::wstring& trim, CutSettings before) {
    if (!texts::trimmed(stock).empty()) {
        Answered<std::vector<double>> lengths = stockOf(stock);
        if (!lengths.value) return {{}, std::move(lengths.fault)};
        before.stock = std::move(*lengths.value);
    }
    const struct {
        const wchar_t* name;
        const std::wstring& typed;
        double& value;
        double most;
    } numbers[] = {{L"Largura do corte inválida. ", sawCut, before.sawCut, widestCut(before.stock)},
                   {L"Refile por ponta inválido. ", trim, before.trim, longestTrim(before.stock)}};
    for (const auto& number : numbers) {
        if (!texts::trimmed(number.typed).empty())
            number.value = texts::exactReal(number.typed).value_or(-1.0);
        if (number.value < 0.0 || number.value > number.most)
            return {{}, number.name + limitsInWords(0.0, number.most, L"mm")};
    }
    return {std::move(before), {}};
}

}  // namespace zp::matlist
