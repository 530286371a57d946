// SPDX-License-Identifier: MIT
// Texts between the drawing and the toolkit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

#include "acutmem.h"
#include "dbid.h"
#include "dbmain.h"

namespace prancheta::desktop {

inline QString qt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

/// Name of a layer, linetype, style or block; empty for a null id.
std::wstring recordName(AcDbObjectId id);

/// A text that a module made, which is freed; empty for none.
QString takenText(ACHAR* text);

/// A number with a comma, with the decimal sign of the default locale instead.
QString shownNumber(QString text);
/// Fixed decimals, that decimal sign.
QString commaText(double value, int decimals);

/// "0.25 mm" of a line weight; the three special values by their names.
QString weightText(int weight);
/// "vermelho", "30", "PorCamada", "PorBloco" of a colour index.
QString colorText(int color);
/// Numbers from here on are true colours in panels, red in the highest of three bytes.
inline constexpr int kTrueColors = 1 << 24;
/// The true colour of an entity or layer, else `index`.
int colorNumber(const AcDbObject& object, int index);

/// The order of protocol/order.h, letters without regard to case. The same on every machine,
/// whatever its locale.
int naturalCompare(const QString& a, const QString& b);

inline constexpr const wchar_t* kByLayer = L"PorCamada";
inline constexpr const wchar_t* kByBlock = L"PorBloco";

}  // namespace prancheta::desktop
