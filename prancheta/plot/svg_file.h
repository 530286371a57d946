// SPDX-License-Identifier: MIT
// What the toolkit's writer of SVG leaves to be put right: clipping, layers, the title.
#pragma once

#include <QRectF>
#include <span>
#include <string>
#include <string_view>

namespace prancheta {

/// Clips the content of an SVG to `clip`, in units of its view box, which the toolkit does not;
/// puts clipped groups in the place of marked frames and a group with the layer's name in that of
/// each marked layer (marks.h); and gives the file a title, which not every release of the toolkit
/// writes so that the file stays XML. A layer has one group, and another one where something filled
/// that lies between would hide or show more otherwise, and in each frame.
void finishSvg(std::string& svg, const QRectF& clip, std::string_view title,
               std::span<const std::wstring> layers);

}  // namespace prancheta
