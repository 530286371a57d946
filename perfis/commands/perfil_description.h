// SPDX-License-Identifier: MIT
// What makes one profile command different from the others, as data.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "perfis/catalogues/catalogue.h"
#include "perfis/commands/insertion.h"
#include "perfis/commands/medidas.h"
#include "perfis/commands/secao_values.h"
#include "perfis/entities/zpobject.h"
#include "perfis/output/cotas.h"
#include "perfis/output/placement.h"

namespace perfis {

/// What a row of the catalogue does with a tile when it is picked.
enum class RowUse {
    kFills,  ///< next column, empty when the row has none
    kNone,   ///< no column
};

/// A tile whose text is a dimension. The order of the tiles is that of the catalogue's columns.
struct MedidaTile {
    const wchar_t* key;
    Medida value;
    const wchar_t* initialText;
    RowUse rowUse = RowUse::kFills;
    /// The buttons follow what is typed; otherwise it is read when something else happens.
    bool hasAction = true;
};

/// Whether the dialog edits its catalogue, and what becomes of the edits.
enum class CatalogueEdits { kNone, kThisRunOnly, kWrittenBack };

/// What a new piece is made of besides its points.
struct PecaRequest {
    ZpObject::ZpVistas vista = ZpObject::kVistaSecao;
    Medidas medidas;
    double comprimento = 0.0;  ///< mm
    int source = 0;            ///< catalogue that the size comes from, where a command has several
    /// Numbers of the size that the mass belongs to; nothing: to these ones.
    std::optional<Medidas> picked{};
    /// How it is seen and turned where that is no figure of the views dialog.
    std::optional<Face> face{};
};

/// Prompt for the point of a new piece.
inline constexpr const wchar_t* kInsertionPrompt = L"\nIndique o ponto de insercao: ";

/// How pieces are made with pick-and-go: the end is dragged, or both ends are asked for.
enum class PickAndGo { kDragsEnd, kAsksBothEnds };

/// What the rotate command gets at the end: the piece with its companions, always, or one list of
/// all, and only when no dimensions were asked for.
enum class Turning { kPeca, kSet };

struct PerfilDescription {
    const wchar_t* dialog;  ///< in perfis.dcl
    /// Title of a dialog that another command has too, in its tile "titulo"; null: the file's.
    const wchar_t* title = nullptr;
    /// Catalogue file; null where the command reads its lists itself.
    const wchar_t* list;
    std::unique_ptr<Catalogue> (*makeCatalogue)() = makeStrListCatalogue;
    CatalogueEdits edits = CatalogueEdits::kThisRunOnly;
    /// Row of the dialog's tiles; null where the catalogue is not edited.
    std::wstring (*buildRow)(ads_hdlg) = nullptr;
    /// The column after those of the tiles is the linear mass.
    bool pesoColumn = false;
    const wchar_t* slides;  ///< slide library
    int figures;            ///< views offered by the views dialog
    std::span<const MedidaTile> tiles;
    std::span<const Insertion> insertions;
    /// The first number with which the section cannot be drawn; null when it can.
    Medida (*wrong)(const Medidas&);
    /// Alignment of longitudinal views; null where the piece is moved to a face point instead.
    Shift (*barraShift)(const Medidas&, const BarraPlace&) = nullptr;
    /// What is drawn, from the dialog's numbers; figures of the views dialog that are not drawn as
    /// they are named.
    PecaClass pecas;
    std::span<const RoleValue> values;
    std::span<const Face> faces{};
    /// Which drawn pieces of the class are this command's; null where it takes all that no other
    /// command claims.
    bool (*draws)(const zp::secao::RoleValues&) = nullptr;
    /// Values that do not come from the dialog's numbers.
    void (*complete)(zp::secao::RoleValues&, const PecaRequest&) = nullptr;
    /// Numbers of the dialog that are not values of the class.
    void (*readBack)(Medidas&, const zp::secao::RoleValues&) = nullptr;
    void (*cotaSecao)(PecaCotas&, const Medidas&);
    /// The section is a piece of the member's length instead of 1000.
    bool keepsComprimentoInSecao = false;
    const wchar_t* insertionPrompt = kInsertionPrompt;
    const wchar_t* startPrompt = kStartPrompt;  ///< of each piece that is dragged
    PickAndGo pickAndGo = PickAndGo::kDragsEnd;
    Turning turning = Turning::kPeca;
    /// The material list stands below the piece's own point instead of the picked one.
    bool listsAtOwnPoint = false;
    /// Last settings of a piece before it enters the drawing.
    void (*finish)(ZpObject&, const PecaRequest&) = nullptr;
    /// Row that replaces another one; null where it is built as a new one is.
    std::wstring (*buildReplacement)(ads_hdlg) = nullptr;
};

}  // namespace perfis
