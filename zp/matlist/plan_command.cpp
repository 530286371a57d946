// SPDX-License-Identifier: MIT
// PLANOCORTE: what is asked, told and drawn.
#include <algorithm>
#include <optional>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "protocol/answers.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/plan_answers.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/plan_view.h"

namespace zp::matlist {
namespace {

bool askStock(CutSettings& settings) {
    for (;;) {
        const auto typed = askTyped(L"Barras em estoque <" + inWords(settings.stock) + L">: ");
        if (!typed) return false;
        if (typed->empty()) return true;
        Answered<std::vector<double>> lengths = stockOf(*typed);
        if (lengths.value) {
            settings.stock = std::move(*lengths.value);
            return true;
        }
        protocol::refuse(lengths.fault);
    }
}

/// The four answers' first three; nothing when the user declined.
std::optional<CutSettings> askSettings(CutSettings settings) {
    if (!askStock(settings)) return {};
    const auto sawCut =
        askNumber(L"Largura do corte", settings.sawCut, 0.0, widestCut(settings.stock), L"mm");
    if (!sawCut) return {};
    settings.sawCut = *sawCut;
    const double mostTrim = longestTrim(settings.stock);
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
    const std::vector<Linha> all = rows(list->id);
    const std::vector<ProductPlan> plans = plansOf(all, *settings, readLeftOvers());
    if (plans.empty()) {
        acutPrintf(L"\n%ls\n", kNothingToCut);
        return;
    }
    tell(plans, *settings);
    showPlan(list->number, plans, *settings);
    AcGePoint3d corner;
    if (getWCSpoint(corner, L"\nPonto da tabela ou <só listar>: ") == RTNORM)
        drawPlan(plans, *settings, corner, planStampOf(list->number, all));
}

}  // namespace zp::matlist
