// SPDX-License-Identifier: MIT
// The steel of a drawing: that of all its pieces that have none of their own.
#pragma once

#include <string>

class AcDbDatabase;
class ZpObject;

namespace zp {

/// Characters that the name of a steel may have.
inline constexpr std::size_t kMostGrade = 40;

/// "A36"; empty when the drawing says none.
std::wstring drawingSteel(const AcDbDatabase& drawing);
/// Empty takes it away. False when it cannot be kept.
bool setDrawingSteel(AcDbDatabase& drawing, const std::wstring& name);

/// Its own one, else its drawing's; empty when neither is known. The piece is readable.
std::wstring steelOf(const ZpObject& peca);

}  // namespace zp
