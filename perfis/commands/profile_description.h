// SPDX-License-Identifier: MIT
// What makes one profile command different from the others, as data.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "perfis/catalogues/catalogue.h"
#include "perfis/commands/insertion.h"
#include "perfis/commands/medidas.h"
#include "perfis/entities/zpobject.h"
#include "perfis/output/dimensions.h"

namespace perfis {

/// What a row of the catalogue does with a tile when it is picked.
enum class RowUse {
    kFills,           ///< next column, empty when the row has none
    kFillsIfPresent,  ///< next column, untouched when the row has none
    kNone,            ///< no column
};

/// A tile whose text is a dimension. The order of the tiles is that of the catalogue's columns.
struct DimensionTile {
    const wchar_t* key;
    double Medidas::*value;
    const wchar_t* initialText;
    RowUse rowUse = RowUse::kFills;
};

/// Whether the dialog edits its catalogue, and what becomes of the edits.
enum class CatalogueEdits { kNone, kThisRunOnly, kWrittenBack };

/// What a new piece is made of besides its points.
struct PieceRequest {
    ZpObject::ZpVistas view = ZpObject::kVistaSecao;
    Medidas medidas;
    double length = 0.0;  ///< mm
};

struct ProfileDescription {
    const wchar_t* dialog;  ///< in perfis.dcl
    const wchar_t* list;    ///< catalogue file
    std::unique_ptr<Catalogue> (*makeCatalogue)() = makeStrListCatalogue;
    CatalogueEdits edits = CatalogueEdits::kThisRunOnly;
    /// Row of the dialog's tiles; null where the catalogue is not edited.
    std::wstring (*buildRow)(ads_hdlg) = nullptr;
    /// The column after those of the tiles is the linear mass.
    bool massColumn = false;
    const wchar_t* slides;  ///< slide library
    int figures;            ///< views offered by the views dialog
    std::span<const DimensionTile> tiles;
    std::span<const Insertion> insertions;
    bool (*valid)(const Medidas&);
    /// Alignment of longitudinal views; null where the piece is moved to a face point instead.
    Shift (*memberShift)(const Medidas&, const MemberPlace&);
    std::unique_ptr<ZpObject> (*onePoint)(AcGePoint3d& point, const PieceRequest&);
    std::unique_ptr<ZpObject> (*twoPoints)(AcGePoint3d& start, AcGePoint3d& end,
                                           const PieceRequest&);
    void (*dimensionSection)(PieceDimensions&, const Medidas&);
    /// The section is a piece of the member's length instead of 1000.
    bool keepsLengthInSection = false;
};

}  // namespace perfis
