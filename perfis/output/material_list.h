// SPDX-License-Identifier: MIT
// Enters drawn pieces in the drawing's material list.
#pragma once

#include <string>

#include "dbid.h"
#include "gepnt3d.h"

namespace perfis {

/// One kind of plate of a built-up profile.
struct ChapaRow {
    AcDbObjectId chapa;  ///< one of them, which stands for all
    int count = 0;
    AcDbObjectId marca;  ///< result: its mark in the drawing
};

/// Profile alone: mark and row. `point` is its insertion point (world), `type` the number of
/// pieces, and `marcaPerfil` receives the mark, null when none was drawn. RTNORM; RTERROR when the
/// profile cannot be opened; RTCAN when the list did not take it. Rows already added stay. `marca`
/// is a mark that no row has; empty: the next free one.
int MatListPerfil(AcGePoint3d point, int type, AcDbObjectId perfilId, AcDbObjectId& marcaPerfil,
                  const std::wstring& marca = {});

/// Profile and its plates: two marks, two rows (one when `nChapas` is 0).
int MatListPerfilChapa(AcGePoint3d point, int type, AcDbObjectId perfilId,
                       AcDbObjectId& marcaPerfil, AcDbObjectId chapaId, AcDbObjectId& marcaChapa,
                       int nChapas, const std::wstring& marca = {});

/// Profile and two kinds of plates: three marks, three rows.
int MatListPerfil2Chapas(AcGePoint3d point, int type, AcDbObjectId perfilId,
                         AcDbObjectId& marcaPerfil, ChapaRow& first, ChapaRow& second,
                         const std::wstring& marca = {});

/// Plates that a profile got after it was entered: one mark, one row. RTNORM, RTERROR, RTCAN as
/// MatListPerfil.
int MatListChapas(AcDbObjectId perfilId, int type, ChapaRow& chapas);

}  // namespace perfis
