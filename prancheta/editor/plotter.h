// SPDX-License-Identifier: MIT
// Plotting: what is asked for, and the door to the library that can do it.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/base/result.h"
#include "prancheta/database/layouts.h"
#include "prancheta/display/box.h"

namespace prancheta {

class Editor;

enum class PlotFormat { Pdf, Svg, Png };

/// A sheet, mm, upright.
struct Paper {
    std::wstring name;
    double width = 210.0;
    double height = 297.0;
};

/// ISO A0 to A4 and the long sheets of the trade, largest first.
const std::vector<Paper>& papers();
/// Null for an unknown name; case and blanks ignored.
const Paper* findPaper(std::wstring_view name);

struct PlotSettings {
    /// Block of the model or of a sheet; null: the current space.
    AcDbObjectId space;
    enum class Orientation { Automatic, Portrait, Landscape };  ///< Automatic: as the area lies
    Paper paper{L"A4", 210.0, 297.0};
    Orientation orientation = Orientation::Automatic;
    /// World rectangle; nothing: the extents of what is displayed.
    std::optional<Box2d> area;
    /// Millimetres of paper for one drawing unit (0.1 = 1:10); nothing: fit.
    std::optional<double> scale;
    double margin = 10.0;  ///< mm on each side that is not drawn on
    bool monochrome = false;
    bool lineWeights = true;
    bool layers = true;     ///< PDF and SVG: what lies on each can be shown and hidden by itself
    bool footer = false;    ///< file, date and scale in the lower margin
    int dotsPerInch = 300;  ///< PNG
};

/// The day that sheets are dated with, dd/mm/aaaa: of SOURCE_DATE_EPOCH (in UTC) where that is set,
/// so that a script makes the same bytes.
std::wstring sheetDate();
/// A sheet at 1:1 on its own paper, nothing left free.
PlotSettings sheetPlot(const Tab& tab);
/// Sheets that hold something, in tab order.
std::vector<Tab> drawnSheets(const AcDbDatabase& database);

/// Before sheets are plotted by hand: writes today into the title blocks that have another date,
/// and says whose material list is stale.
void dateSheets(Editor& editor, std::span<const PlotSettings> sheets);

/// One file that is being plotted; nothing of it is on disk before finish().
class PlotJob {
public:
    virtual ~PlotJob() = default;
    /// A sheet behind those that were added; only PDF takes several. They may be of several
    /// drawings, one after the other in the same editor.
    virtual Result<void> add(Editor& editor, const PlotSettings& sheet) = 0;
    /// Replaces the file atomically.
    virtual Result<void> finish() = 0;
};

/// Implemented by the plot library, which alone knows a graphics toolkit.
class Plotter {
public:
    virtual ~Plotter() = default;
    /// An error when the file cannot be written.
    virtual Result<std::unique_ptr<PlotJob>> begin(PlotFormat format,
                                                   const std::filesystem::path& file) = 0;
    /// All in one, of one drawing.
    Result<void> plot(Editor& editor, std::span<const PlotSettings> sheets, PlotFormat format,
                      const std::filesystem::path& file);
    Result<void> plot(Editor& editor, const PlotSettings& sheet, PlotFormat format,
                      const std::filesystem::path& file) {
        return plot(editor, std::span(&sheet, 1), format, file);
    }
};

/// Name of the function of the plot library that gives the plotter: `Plotter* ()`, C linkage.
inline constexpr const char* kPlotterEntry = "pranchetaPlotter";

/// The plotter; the library is loaded from the program's folder on first use.
Result<Plotter*> plotter();
/// Format by the file's ending; nothing for an unknown one.
std::optional<PlotFormat> plotFormatOf(const std::filesystem::path& file);

}  // namespace prancheta
