// SPDX-License-Identifier: MIT
// PLANOCORTE: what is asked, told and drawn.
#include <algorithm>
#include <optional>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/plan_files.h"

namespace zp::matlist {
namespace {

// What is no length of a bar is a slip of the keyboard; mm.
constexpr double kShortest = 100.0;
constexpr double kLongest = 100000.0;
constexpr double kWidestCut = 100.0;

std::wstring inWords(const std::vector<double>& lengths) {
    std::wstring words;
    for (const double length : lengths)
        words += (words.empty() ? L"" : L",") + texts::withPoint(length, 2);
    return words;
}

/// Lengths with commas between, or with semicolons, and then a comma is the decimal one. Nothing
/// when one is no length of a bar.
std::optional<std::vector<double>> lengthsOf(const std::wstring& typed) {
    const wchar_t between = typed.find(L';') != std::wstring::npos ? L';' : L',';
    std::vector<double> lengths;
    for (const std::wstring& part : texts::trimmedParts(typed, between)) {
        const double length = texts::exactReal(part).value_or(0.0);
        if (!(length >= kShortest && length <= kLongest)) return {};
        lengths.push_back(length);
    }
    std::ranges::sort(lengths);
    lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
    return lengths;
}

bool askStock(CutSettings& settings) {
    for (;;) {
        const auto typed = askTyped(L"Barras em estoque <" + inWords(settings.stock) + L">: ");
        if (!typed) return false;
        if (typed->empty()) return true;
        if (const auto lengths = lengthsOf(*typed)) {
            settings.stock = *lengths;
            return true;
        }
        acutPrintf(
            L"\nInforme comprimentos de barra em mm, de 100 a 100000, separados por vírgula: "
            L"6000,12000.\n");
    }
}

/// The four answers' first three; nothing when the user declined.
std::optional<CutSettings> askSettings(CutSettings settings) {
    if (!askStock(settings)) return {};
    const double most = std::min(kWidestCut, settings.stock.front());
    const auto sawCut = askNumber(L"Largura do corte", settings.sawCut, 0.0, most, L"mm");
    if (!sawCut) return {};
    settings.sawCut = *sawCut;
    // Something is left between the trims of the shortest bar.
    const double mostTrim = 0.5 * settings.stock.front() - 1.0;
    const auto trim =
        askNumber(L"Refile por ponta", std::min(settings.trim, mostTrim), 0.0, mostTrim, L"mm");
    if (!trim) return {};
    settings.trim = *trim;
    return settings;
}

void tell(const std::vector<ProductPlan>& plans, const CutSettings& settings) {
    for (const ProductPlan& product : plans) {
        acutPrintf(L"\n%ls", lineOf(product).c_str());
        for (const std::wstring& line : tooLongLines(product, settings))
            acutPrintf(L"\n%ls", line.c_str());
    }
    acutPrintf(L"\n");
}

}  // namespace

void cuttingPlanCommand() {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const std::optional<MaterialList> list = chooseList(*drawing);
    if (!list) return;
    const std::optional<CutSettings> settings = askSettings(lastCutSettings());
    if (!settings) return;
    lastCutSettings() = *settings;
    const std::vector<ProductPlan> plans = plansOf(rows(list->id), *settings, readLeftOvers());
    if (plans.empty()) {
        acutPrintf(L"\nA lista não tem barras para cortar.\n");
        return;
    }
    tell(plans, *settings);
    AcGePoint3d corner;
    if (getWCSpoint(corner, L"\nPonto da tabela ou <só listar>: ") == RTNORM)
        drawPlan(plans, *settings, corner);
}

}  // namespace zp::matlist
