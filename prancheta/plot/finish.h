// SPDX-License-Identifier: MIT
// What the toolkit's file writers leave to be put right: exact page size, clipping, no clock.
#pragma once

#include <QRectF>
#include <string>
#include <string_view>
#include <vector>

namespace prancheta {

/// Sets the pages of a PDF to their exact sizes in points, where the toolkit writes whole ones, and
/// drops the creation date, so that one drawing always gives one file. A file of an unexpected
/// structure is left as it is.
void finishPdf(std::string& pdf, const std::vector<QSizeF>& pages);

/// Clips the content of an SVG to `clip`, in units of its view box, which the toolkit does not, and
/// to the frames that are marked in it, and gives it a title, which not every release of the
/// toolkit writes so that the file stays XML.
void finishSvg(std::string& svg, const QRectF& clip, std::string_view title);

}  // namespace prancheta
