// SPDX-License-Identifier: MIT
// What the program itself writes into the title block of a sheet.
#include "prancheta/editor/commands/sheet_values.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/plotter.h"
#include "prancheta/entities/viewports.h"
#include "protocol/report.h"

namespace prancheta::commands {

namespace {

constexpr const wchar_t* kTags[] = {L"ESCALA", L"FOLHA", L"PESO", L"ARQUIVO", L"DATA", kListField};

/// Sums the weights of the lists' rows.
class Weights : public protocol::PropertyVisitor {
public:
    bool any = false;
    double sum = 0.0;

    void number(const ACHAR* name, double value) override {
        if (name == nullptr || std::wstring_view(name) != L"peso_total") return;
        any = true;
        sum += value;
    }
    void integer(const ACHAR*, long long) override {}
    void text(const ACHAR*, const ACHAR*) override {}
    void point(const ACHAR*, const AcGePoint3d&) override {}
    void object(const ACHAR*, const AcDbObjectId&) override {}
    void beginList(const ACHAR*) override {}
    void endList() override {}
    void beginGroup(const ACHAR*) override {}
    void endGroup() override {}
};

/// kg with two decimals, as the list sums them; empty without a list.
std::wstring weightText(AcDbDatabase& database) {
    const auto* const report = static_cast<const protocol::DrawingReport*>(
        acrxSysRegistry()->at(protocol::kDrawingReportKey));
    Weights weights;
    if (report != nullptr) report->describePrinted(database, weights);
    if (!weights.any) return {};
    std::wstring text = std::to_wstring(std::llround(weights.sum * 100.0));
    if (text.size() < 3) text.insert(0, 3 - text.size(), L'0');
    return text.insert(text.size() - 2, L",");
}

std::wstring scaleText(AcDbObjectId sheet) {
    const AcDbViewport* const viewport = viewportOf(mainViewport(sheet));
    return viewport != nullptr ? paperScaleText(1.0 / viewport->customScale()) : L"";
}

}  // namespace

std::vector<SheetValue> filledValues(const CommandContext& context, const Tab& sheet,
                                     SheetNumber number) {
    return {{kTags[0], scaleText(sheet.block)},
            {kTags[1], std::to_wstring(number.number) + L"/" + std::to_wstring(number.count)},
            {kTags[2], weightText(context.database())},
            {kTags[3], toWide(context.editor().file().name().filename().string())},
            {kTags[4], sheetDate()}};
}

bool isFilled(std::wstring_view tag) {
    return std::any_of(std::begin(kTags), std::end(kTags),
                       [tag](const wchar_t* each) { return equalNoCase(each, tag); });
}

}  // namespace prancheta::commands
