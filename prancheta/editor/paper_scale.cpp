// SPDX-License-Identifier: MIT
// Scales.
#include "prancheta/editor/paper_scale.h"

#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"

namespace prancheta {
namespace {

/// Of a drawing, units per mm of paper; beyond them texts vanish in the digits of a file.
constexpr double kLeastScale = 1e-3;
constexpr double kMostScale = 1e5;
constexpr double kTextOnPaper = 2.5;  ///< mm
/// Of the metric linetypes: hidden dashes come to 2.5 mm on paper, those of an axis to 12.7.
constexpr double kLinetypeOnPaper = 0.4;

/// The inverse of an inverse is rarely the number that was typed: two digits beyond any scale.
std::wstring roundedText(double value) { return numberTextWide(std::round(value * 1e6) / 1e6); }

}  // namespace

std::optional<PaperScale> readPaperScale(std::wstring_view text) {
    text = trim(text);
    const std::size_t colon = text.find_first_of(L":=");
    PaperScale scale;
    if (!parseNumber(trim(text.substr(0, colon)), scale.paper)) return {};
    if (colon != text.npos && !parseNumber(trim(text.substr(colon + 1)), scale.drawing)) return {};
    const double ratio = scale.paper / scale.drawing;
    const double inverse = scale.drawing / scale.paper;
    if (!(scale.paper > 0.0) || !(ratio > 0.0) || !std::isfinite(ratio) || !std::isfinite(inverse))
        return {};
    return scale;
}

std::optional<double> readDrawingScale(std::wstring_view text) {
    const bool ratio = text.find_first_of(L":=") != text.npos;
    const auto scale = readPaperScale(ratio ? std::wstring(text) : L"1:" + std::wstring(text));
    if (!scale) return {};
    const double drawing = scale->drawing / scale->paper;
    if (drawing < kLeastScale || drawing > kMostScale) return {};
    return drawing;
}

std::wstring paperScaleText(double drawingPerPaper) {
    return drawingPerPaper > 1.0 ? L"1:" + roundedText(drawingPerPaper)
                                 : roundedText(1.0 / drawingPerPaper) + L":1";
}

double drawingScale(const AcDbDatabase& database) {
    const double scale = database.dimscale();
    return scale > 0.0 ? scale : 1.0;
}

void setDrawingScale(AcDbDatabase& database, double scale) {
    SystemVariables& variables = database.core().variables();
    (void)database.setDimscale(scale);  // it is positive, as what follows
    (void)database.setLtscale(kLinetypeOnPaper * scale);
    (void)variables.set(L"TEXTSIZE", kTextOnPaper * scale);
    (void)variables.set(L"HPSCALE", scale);
}

}  // namespace prancheta
