// SPDX-License-Identifier: MIT
// Cutting plans for any host that shows them.
#include "zp/matlist/plan_view.h"

#include <algorithm>
#include <functional>

#include "acutmem.h"
#include "protocol/plan.h"
#include "rxdict.h"
#include "texts/number.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/plan_answers.h"
#include "zp/matlist/plan_files.h"

namespace zp::matlist {
namespace {

using protocol::PlanVisitor;

void tellAnswers(const CutSettings& settings, PlanVisitor& v) {
    v.answers({inWords(settings.stock).c_str(), texts::withComma(settings.sawCut).c_str(),
               texts::withComma(settings.trim).c_str()});
}

void tellBar(const cutting::Bar& bar, const CutSettings& settings, PlanVisitor& v) {
    const std::wstring cuts = cutsInWords(bar);
    v.bar({bar.length, bar.count, bar.leftOver, restOf(bar, settings), utilisationOf(bar),
           cuts.c_str()});
    double at = settings.trim;
    for (const cutting::Cut& cut : bar.cuts) {
        v.cut(cut.marca.c_str(), at, cut.length);
        at += cut.length + settings.sawCut;
    }
}

void tellPlan(int list, const std::vector<ProductPlan>& plans, const CutSettings& settings,
              PlanVisitor& v) {
    tellAnswers(settings, v);
    v.begin(list);
    for (const ProductPlan& product : plans) {
        v.product(lineOf(product).c_str());
        for (const std::wstring& line : tooLongLines(product, settings)) v.note(line.c_str());
        for (const cutting::Bar& bar : product.plan.bars) tellBar(bar, settings, v);
    }
    v.end();
}

std::vector<Linha> rowsOf(AcDbDatabase& database, int number) {
    const std::vector<MaterialList> all = materialLists(database);
    const auto found = std::ranges::find(all, number, &MaterialList::number);
    return found != all.end() ? rows(found->id) : std::vector<Linha>();
}

bool refuse(const std::wstring& reason, ACHAR*& message) {
    (void)acutNewString(reason.c_str(), message);
    return false;
}

class Plans : public protocol::CuttingPlan {
public:
    const ACHAR* command() const override { return kPlanCommand; }
    void describe(AcDbDatabase& database, PlanVisitor& v) const override {
        for (const MaterialList& list : materialLists(database))
            v.list(list.number, list.header.group.c_str());
        tellAnswers(lastCutSettings(), v);
    }
    bool use(const PlanVisitor::Answers& given, ACHAR*& message) const override {
        const Answered<CutSettings> settings =
            settingsOf(given.stock, given.sawCut, given.trim, lastCutSettings());
        if (!settings.value) return refuse(settings.fault, message);
        lastCutSettings() = *settings.value;
        return true;
    }
    bool plan(AcDbDatabase& database, int list, PlanVisitor& v, ACHAR*& message) const override {
        const CutSettings& settings = lastCutSettings();
        const std::vector<ProductPlan> plans =
            plansOf(rowsOf(database, list), settings, readLeftOvers());
        if (plans.empty()) return refuse(kNothingToCut, message);
        tellPlan(list, plans, settings, v);
        return true;
    }
    std::size_t stamp(AcDbDatabase& database, int list) const override {
        std::size_t stamp = 0;
        const auto mix = [&](std::size_t value) { stamp = stamp * 1000003 + value; };
        for (const Linha& row : rowsOf(database, list)) {
            mix(static_cast<std::size_t>(counted(row).quantidade));
            mix(std::hash<double>()(row.comprimento));
            mix(std::hash<std::wstring>()(row.marca + L'\n' + designationOf(row) + L'\n' +
                                          row.material));
        }
        return stamp;
    }
};

Plans g_plans;  // kept by pointer in the registry

}  // namespace

void installPlans() { acrxSysRegistry()->atPut(protocol::kCuttingPlanKey, &g_plans); }

void uninstallPlans() { acrxSysRegistry()->remove(protocol::kCuttingPlanKey); }

void showPlan(int list, const std::vector<ProductPlan>& plans, const CutSettings& settings) {
    auto* const viewer = static_cast<PlanVisitor*>(acrxSysRegistry()->at(protocol::kPlanViewerKey));
    if (viewer != nullptr) tellPlan(list, plans, settings, *viewer);
}

}  // namespace zp::matlist
