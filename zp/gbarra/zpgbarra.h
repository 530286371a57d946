// SPDX-License-Identifier: MIT
// Bar data: what a bar is, as other modules read it from the drawing.
#pragma once

#include "adesk.h"
#include "zp/forja/zpstring.h"

/// Application name under which a piece carries its bar data as extended data.
inline constexpr const ACHAR* kZpGBarraApp = L"ZP_GBARRA";

struct tagZP_GBARRA {
    int type = 0;              ///< structural role, ZpObject::TipoBarra
    wchar_t perfil[128] = {};  ///< short name of the section
    wchar_t dimensoes[128] = {};
    double comprimento = 0.0;  ///< mm
    double peso = 0.0;         ///< kg, the whole bar
};

/// Dimension text and profile text of a bar.
void GetDimAndPerfText(tagZP_GBARRA barra, ZpString& dimensoes, ZpString& perfil);
