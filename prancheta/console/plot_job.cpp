// SPDX-License-Identifier: MIT
// Plotting without a window.
#include "prancheta/console/plot_job.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <vector>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/console/working.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/plotter.h"

namespace prancheta::console {
namespace {

constexpr std::string_view kAllLayouts = "todos";

Result<std::vector<PlotSettings>> sheetsOf(const AcDbDatabase& database,
                                           const std::string& layout) {
    std::vector<PlotSettings> sheets;
    if (layout.empty()) {
        sheets.emplace_back();
        sheets.front().space = database.core().modelSpaceId();
        return sheets;
    }
    if (layout == kAllLayouts) {
        for (const Tab& tab : drawnSheets(database)) sheets.push_back(sheetPlot(tab));
        if (sheets.empty()) return Error{"nenhum layout do desenho tem alguma coisa a plotar"};
        return sheets;
    }
    const Tab tab = tabNamed(database, toWide(layout));
    if (tab.block == database.core().modelSpaceId())
        return Error{"o modelo não é um layout; sem --layout ele é plotado inteiro"};
    if (tab.block.isNull()) return Error{"o desenho não tem o layout " + layout};
    sheets.push_back(sheetPlot(tab));
    return sheets;
}

/// What --layout asks for; without it the extents of the model, fitted to an A4 sheet.
Result<std::vector<PlotSettings>> wantedSheets(const AcDbDatabase& database,
                                               const Options& options) {
    Result<std::vector<PlotSettings>> sheets = sheetsOf(database, options.layout);
    if (!sheets) return sheets;
    for (PlotSettings& sheet : *sheets) {
        sheet.layers = options.layers;
        sheet.footer = options.footer;
    }
    return sheets;
}

/// Of several sheets each has its own file where the format has no pages: "folha-Layout2.svg".
std::filesystem::path fileOfSheet(std::filesystem::path file, const PlotSettings& sheet) {
    const std::filesystem::path ending = file.extension();
    file.replace_extension();
    file += pathFromUtf8("-" + toUtf8(sheet.paper.name));
    return file += ending;
}

Result<void> addSheets(PlotJob& job, Editor& editor, const Options& options) {
    const auto sheets = wantedSheets(editor.database(), options);
    if (!sheets && options.layout == kAllLayouts) {
        std::cerr << "prancheta-console: " << harmless(editor.file().name().string()) << ": "
                  << harmless(sheets.error().message()) << "; o desenho ficou de fora\n";
        return {};
    }
    if (!sheets) return sheets.error();
    for (const PlotSettings& sheet : *sheets)
        if (Result<void> added = job.add(editor, sheet); !added) return added;
    return {};
}

}  // namespace

void plotDrawing(Editor& editor, const Options& options,
                 const std::function<void(const Error&)>& failed) {
    if (std::ranges::all_of(options.plots, &std::string::empty)) return;
    const Result<Plotter*> machine = plotter();
    const auto sheets = wantedSheets(editor.database(), options);
    if (!machine || !sheets) return failed(machine ? sheets.error() : machine.error());
    const auto plot = [&](std::span<const PlotSettings> some, PlotFormat format,
                          const std::filesystem::path& file) {
        const Working working("plotando " + file.string());
        if (Result<void> plotted = (*machine)->plot(editor, some, format, file); !plotted)
            failed(plotted.error());
    };
    for (std::size_t i = 0; i < options.plots.size(); ++i) {
        if (options.plots[i].empty()) continue;
        const auto format = static_cast<PlotFormat>(i);
        const std::filesystem::path file = pathFromUtf8(options.plots[i]);
        if (format == PlotFormat::Pdf || sheets->size() == 1) {
            plot(*sheets, format, file);
            continue;
        }
        if (isStandardOutput(file)) {
            failed(
                Error{"de várias folhas só um PDF vai à saída padrão; dê o nome de um arquivo, ou "
                      "uma folha com --layout"});
            continue;
        }
        for (const PlotSettings& sheet : *sheets)
            plot(std::span(&sheet, 1), format, fileOfSheet(file, sheet));
    }
}

Result<void> plotDrawings(Editor& editor, const Options& options) {
    const Result<Plotter*> machine = plotter();
    if (!machine) return machine.error();
    const auto pdf = static_cast<std::size_t>(PlotFormat::Pdf);
    const auto job = (*machine)->begin(PlotFormat::Pdf, pathFromUtf8(options.plots[pdf]));
    if (!job) return job.error();
    std::size_t place = 1;
    const auto at = [&](const std::string& drawing) {
        return "plotando " + std::to_string(place++) + " de " +
               std::to_string(options.otherDrawings.size() + 1) + ": " + drawing;
    };
    std::optional<Working> working(at(options.drawing));
    Result<void> added = addSheets(**job, editor, options);
    for (const std::string& drawing : options.otherDrawings) {
        if (!added) break;
        working.emplace(at(drawing));
        dxf::LoadReport findings;
        if (Result<void> opened = editor.file().open(pathFromUtf8(drawing), &findings); !opened)
            return opened;
        printFindings(editor, findings);
        added = addSheets(**job, editor, options);
    }
    if (added) return (*job)->finish();
    Error error = added.error();
    if (error.file.empty()) error.file = editor.file().name().string();
    return error;
}

}  // namespace prancheta::console
