// SPDX-License-Identifier: MIT
// Scales as people write them, and the one scale of a drawing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

class AcDbDatabase;

namespace prancheta {

/// `1:20`, `2:1`, or one number: how much on paper for how much in the drawing. Both positive.
struct PaperScale {
    double paper = 1.0;
    double drawing = 1.0;
};
/// One number is `paper`; nothing for what is no scale.
std::optional<PaperScale> readPaperScale(std::wstring_view text);
/// `20` or `1:20`: drawing units per mm of paper, as people say the scale of a drawing; from 1000:1
/// to 1:100000.
std::optional<double> readDrawingScale(std::wstring_view text);
/// "1:20" or "2:1", of drawing units per mm of paper.
std::wstring paperScaleText(double drawingPerPaper);

/// Drawing units per mm of paper, by which dimensions, marks and texts are sized: DIMSCALE, 1 where
/// that is 0.
double drawingScale(const AcDbDatabase& database);
/// All that is sized by the scale from now on: DIMSCALE, TEXTSIZE, HPSCALE and LTSCALE. Nothing
/// that is drawn, but the dashes of linetypes. `scale` is above 0.
void setDrawingScale(AcDbDatabase& database, double scale);

}  // namespace prancheta
