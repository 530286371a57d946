// SPDX-License-Identifier: MIT
// Sheets by name, and the plot library.
#include "prancheta/editor/plotter.h"

#include <algorithm>
#include <ctime>

#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

constexpr const char* kLibrary = "libprancheta-plot.so";

std::wstring folded(std::wstring_view name) {
    std::wstring out;
    for (const wchar_t c : name)
        if (c != L' ' && c != L'\t') out += foldCase(c);
    return out;
}

}  // namespace

const std::vector<Paper>& papers() {
    // ISO 216, and the elongated sizes of ISO 5457: short side of one size, a multiple of the
    // short side of the next as long side.
    static const std::vector<Paper> kPapers = {
        {L"A1x4", 841.0, 2378.0}, {L"A1x3", 841.0, 1783.0}, {L"A2x5", 594.0, 2102.0},
        {L"A0", 841.0, 1189.0},   {L"A2x4", 594.0, 1682.0}, {L"A2x3", 594.0, 1261.0},
        {L"A1", 594.0, 841.0},    {L"A2", 420.0, 594.0},    {L"A3", 297.0, 420.0},
        {L"A4", 210.0, 297.0},
    };
    return kPapers;
}

const Paper* findPaper(std::wstring_view name) {
    const std::wstring wanted = folded(name);
    const auto found = std::find_if(papers().begin(), papers().end(), [&](const Paper& paper) {
        return folded(paper.name) == wanted;
    });
    return found != papers().end() ? &*found : nullptr;
}

Result<void> Plotter::plot(Editor& editor, std::span<const PlotSettings> sheets, PlotFormat format,
                           const std::filesystem::path& file) {
    const Result<std::unique_ptr<PlotJob>> job = begin(format, file);
    if (!job) return job.error();
    for (const PlotSettings& sheet : sheets)
        if (Result<void> added = (*job)->add(editor, sheet); !added) return added;
    return (*job)->finish();
}

Result<Plotter*> plotter() {
    // The libraries of the host lie side by side.
    const auto here = reinterpret_cast<const void*>(&plotFormatOf);
    const std::filesystem::path file = libraryFileOf(here).parent_path() / kLibrary;
    std::string reason;
    void* const library = openLibrary(file, reason);
    if (library == nullptr)
        return Error{"não foi possível carregar a biblioteca de plotagem (" + reason +
                         "); instale-a ao lado do programa",
                     file.string()};
    const auto entry = reinterpret_cast<Plotter* (*)()>(symbolOf(library, kPlotterEntry));
    if (entry == nullptr)
        return Error{"a biblioteca de plotagem não é desta versão; instale o programa outra vez",
                     file.string()};
    return entry();
}

std::optional<PlotFormat> plotFormatOf(const std::filesystem::path& file) {
    const std::wstring ending = foldCase(toWide(file.extension().string()));
    if (ending == L".pdf") return PlotFormat::Pdf;
    if (ending == L".svg") return PlotFormat::Svg;
    if (ending == L".png") return PlotFormat::Png;
    return {};
}

std::wstring sheetDate() {
    std::tm day = {};
    double epoch = 0.0;
    constexpr double kLast = 253402300799.0;  // of the year 9999
    if (parseNumber(environment("SOURCE_DATE_EPOCH"), epoch) && epoch >= 0.0 && epoch <= kLast) {
        const auto moment = static_cast<std::time_t>(epoch);
        day = *std::gmtime(&moment);
    } else {
        const std::time_t now = std::time(nullptr);
        day = *std::localtime(&now);
    }
    wchar_t text[32];
    return {text, std::wcsftime(text, std::size(text), L"%d/%m/%Y", &day)};
}

PlotSettings sheetPlot(const Tab& tab) {
    PlotSettings out;
    const Box2d sheet = sheetOf(tab);
    out.space = tab.block;
    out.paper = {tab.name, std::min(sheet.width(), sheet.height()),
                 std::max(sheet.width(), sheet.height())};
    out.area = sheet;
    out.scale = 1.0;
    out.margin = 0.0;
    return out;
}

std::vector<Tab> drawnSheets(const AcDbDatabase& database) {
    std::vector<Tab> tabs = tabsOf(database);
    tabs.erase(tabs.begin());  // the model
    std::erase_if(tabs, [](const Tab& tab) {
        const AcDbStub* const stub = tab.block;
        const auto& ids =
            ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object));
        return std::none_of(ids.begin(), ids.end(), [](const AcDbObjectId& id) {
            return !id.isErased() && !isSheetsOwn(id);
        });
    });
    return tabs;
}

}  // namespace prancheta
