// SPDX-License-Identifier: MIT
// What a command remembers while its dialog closes and opens again.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "perfis/commands/chapa_schemes.h"
#include "perfis/commands/medidas.h"
#include "perfis/commands/perfil_description.h"
#include "perfis/dialogs/secao_preview.h"
#include "perfis/dialogs/travejamento.h"
#include "perfis/dialogs/vistas_dialog.h"
#include "zp/objects/peca.h"

namespace perfis {

/// A value as the property sheet changes it: its key there, and the value that it shows.
struct OwnMedida {
    std::wstring key;
    double value = 0.0;
};

/// A fresh one is the state at the start of a command. Whether to make dimensions is not here: that
/// flag is shared by all commands.
struct RunState {
    std::vector<std::wstring> texts;  ///< of the dimension tiles, saved before a visit to the views
    Medidas medidas;
    Medidas picked;  ///< numbers of the row, or of the edited piece, that the mass belongs to
    VistasChoice vistas;
    bool showInsertion = false;  ///< the preview marks the insertion point
    int insertion = 0;           ///< index in "ins_list"
    int slide = kFirstInsertionSlide;
    int tipoBarra = 0;
    int selectedRow = 0;
    bool rowPicked = false;  ///< the selected row was picked in the list in force
    int source = 0;          ///< catalogue in force, where a command has several
    // What no dialog asks for.
    std::optional<Face> face;           ///< as the piece is seen, where no figure shows it so
    bool keepsComprimento = false;      ///< the section is a piece of the member's length
    std::array<zp::Corte, 2> cortes{};  ///< of its ends
    std::wstring aco;                   ///< steel of the piece; empty: the drawing's
    std::vector<OwnMedida> own;         ///< values other than the command's rule makes them
};

/// What a dialog was left with by OK.
struct LastPeca {
    RunState state;
    bool cotas = false;
    TravejamentoParams chapas;  ///< A = 0: none
    double spacing = 0.0;       ///< of the plates
    TravejamentoPlanes planes = TravejamentoPlanes::kBoth;
};

/// Of this command, since the program was started; nothing before its first OK.
std::optional<LastPeca>& lastPeca(const PerfilDescription& description);

/// The state with which a run of this command starts.
RunState resetState(const PerfilDescription& description);

}  // namespace perfis
