// SPDX-License-Identifier: MIT
// One run of a profile command: catalogue, dialog, views, generation. All commands share it; what
// differs is the description, and for some commands the virtual steps below.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "perfis/commands/peca_order.h"
#include "perfis/commands/peca_rebuild.h"
#include "perfis/commands/perfil_description.h"
#include "perfis/commands/perfil_generator.h"
#include "perfis/commands/row_search.h"
#include "perfis/commands/run_state.h"
#include "perfis/dialogs/dialog_loop.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/output/chapas.h"
#include "zp/objects/edit.h"

namespace perfis {

inline constexpr const wchar_t* kInvalidTravejamento = L"Erro no Travejamento.";
inline constexpr const wchar_t* kInvalidSecao = L"Dados inválidos para gerar perfil.";
/// Mended in the dialog of the views.
inline const Fault kLacksComprimento{L"Comprimento inválido para vista.", L"OutraVista"};

struct ListedSize;

class PerfilRun : public ReopeningDialog {
public:
    explicit PerfilRun(const PerfilDescription& description);
    ~PerfilRun() override;

    /// The whole command, from the installation folder to the catalogue's way back to its file.
    void execute();
    /// The same, with a row of a list taken as if the user had picked it; what is in no list, as
    /// if the user had typed it.
    void executeAt(const ListedSize& size);
    /// Takes what the dialogs would be filled in with; why they would not be left with OK, nothing
    /// when what follows may be called.
    std::optional<Fault> accept(const PecaOrder& order);
    /// What an accepted order draws, in no drawing.
    RuledPeca accepted();
    /// Draws it as the command goes on after its dialog.
    void drawAccepted();
    /// The same at this point (world), without a question; nothing when the drawing does not take
    /// it.
    std::optional<DrawnPeca> drawAcceptedAt(const AcGePoint3d& picked);
    /// Number of lists from which the user chooses one.
    virtual int sourceCount() const { return 1; }
    /// All rows of a list, read from its files.
    std::vector<ListRow> rowsOf(int source);
    /// Opens the dialog with the values of a piece that this command makes, and rebuilds the piece
    /// in its place. RTNORM; RTCAN, and nothing changed, when the dialog was left; RTERROR when it
    /// could not be opened or the piece could not be changed.
    int edit(const PecaValues& peca);
    /// Draws another view of a piece that this command makes, along X from `start`.
    zp::edit::DrawnVista drawVista(const PecaValues& peca, ZpObject::ZpVistas vista,
                                   const AcGePoint3d& start, bool cotas);
    /// What the command's rule makes of the values of a piece. Without plates where they would not
    /// hold.
    RuledPeca ruled(const PecaValues& peca);
    /// Lays the plates of a laced piece again when its values, which were `before`, now ask for
    /// other ones.
    void layAgain(const PecaValues& before, const PecaValues& peca);
    /// Lays its automatic dimensions again for the drawing's scale; the number of those changed.
    int layCotasAgain(const PecaValues& peca);
    /// True when its plates could be laid again.
    bool chapasHold(const PecaValues& peca);

protected:
    const PerfilDescription& description() const { return m_description; }
    RunState& state() { return m_state; }
    Catalogue& catalogue() { return *m_catalogue; }

    void open(ads_hdlg dialog) override;
    void closed(int status) override;
    void reportMissing() override { (void)acdbFail(kMissingDialog); }

    /// Callbacks of tiles that only this command has.
    virtual void wireOwnTiles(ads_hdlg) {}
    /// Their values and modes, after those of the common tiles.
    virtual void showOwnTiles(ads_hdlg) {}
    /// Reads the dimensions and enables the buttons that depend on them; run after every change.
    virtual void refresh(ads_hdlg dialog);
    /// Reads the list in force. What cannot be read leaves the rows as they are.
    virtual void loadList();
    /// Its rows as they are in memory.
    virtual std::vector<ListRow> rows();
    /// Fills "lista" at an opening.
    virtual void showList(ads_hdlg dialog);
    /// All rows of the list in force in "lista".
    virtual void fillList(ads_hdlg dialog);
    /// Another list is in force: nothing is searched for, nothing picked.
    void listChanged(ads_hdlg dialog);
    /// Values of the dimension tiles at an opening: as they were left.
    virtual void showMedidas(ads_hdlg dialog);
    /// The user picked this row of "lista", counted from 0.
    /// The size that the command was asked for.
    virtual void takeFirst(ads_hdlg dialog, const ListedSize& size);
    virtual void pickRow(ads_hdlg dialog, int index);
    /// Selects a row of the whole list in "lista"; none for one that is not shown.
    void markRow(ads_hdlg dialog, int row);
    /// This row was picked.
    void rememberRow(int index);
    /// Takes the row that was picked into the tiles.
    virtual void takeRow(ads_hdlg dialog, const std::wstring& row);
    /// Why the dialog may not be accepted; nothing when it may.
    std::optional<Fault> acceptFault(ads_hdlg dialog);
    /// The same of the values as they are in the state.
    virtual std::optional<Fault> fault();
    /// The plates of an order, as the lacing dialog takes them.
    virtual std::optional<Fault> lace(const PecaOrder& order);
    /// Tile of the first number with which the section cannot be drawn; null when it can.
    virtual const wchar_t* wrongTile();
    /// True when the plates, if there are any, suit section and length as they are now.
    virtual bool travejamentoSuits() { return true; }
    /// Takes a piece that is about to be edited into the state.
    virtual void takePeca(const PecaValues& peca);
    /// What the dialog is left with, for the next run that asks for it.
    virtual LastPeca asLast() const;
    /// Takes what an earlier run left; the dialog shows it when it is shown again.
    virtual void takeLast(const LastPeca& last);
    /// Last word before the drawing is made; what lays the plates, null for a piece without any.
    virtual ChapaLaying chapaLaying() { return nullptr; }
    /// The user asked for the plates to be laid, whether or not they come to be others.
    virtual bool laysAgain() const { return false; }
    bool editing() const { return m_edited != nullptr; }
    /// Figure of the piece that was taken last; 0: none was.
    int takenVista() const { return m_takenVista; }
    /// True when the paths of all list files of the command fit their buffers.
    virtual bool listsFit(std::wstring_view folder) const;
    /// Writes the catalogue back at a normal end, where the command keeps its edits.
    virtual void keepEdits(const std::wstring& path);

    /// A view without a length, unless its pieces get theirs from their points.
    bool lacksComprimento() const;
    /// Whether a row may be removed; the button works on none that the search hides.
    void enableRemove(ads_hdlg dialog, bool removable);
    bool editable() const { return m_description.edits != CatalogueEdits::kNone; }
    void readMedidas(ads_hdlg dialog);
    /// A row stands in the tiles: the mass is that of these numbers.
    void notePicked(ads_hdlg dialog);
    void showPreview(ads_hdlg dialog);
    /// Shows the row of the typed size and draws the section to scale; after every change.
    void followTyped(ads_hdlg dialog);

private:
    template <void (PerfilRun::*Method)(const ads_callback_packet&)>
    static constexpr CLIENTFUNC callback = dialogCallback<PerfilRun, Method>;

    bool runDialog();
    void keepEditsOnce();
    void rebuild();
    void takeVista(const PecaValues& peca);
    void wire(ads_hdlg dialog);
    /// All values and modes, as the state has them.
    void show(ads_hdlg dialog);
    void keepTexts(ads_hdlg dialog);
    void showInsertionNames(ads_hdlg dialog);
    void showTyped(ads_hdlg dialog);
    std::wstring readInPart(ads_hdlg dialog) const;
    bool isKnown(const Medidas& typed);
    void takeMarkedRow();
    void stopSearch(ads_hdlg dialog);
    void showFound(ads_hdlg dialog, const std::wstring& query);
    void showNearest(ads_hdlg dialog, const std::wstring& difference);
    void refillList(ads_hdlg dialog);
    void setHidden(ads_hdlg dialog, bool hidden);
    bool hasSelectedRow() const { return m_state.selectedRow < m_catalogue->count(); }
    void setSecaoModes(ads_hdlg dialog);

    void onMedida(const ads_callback_packet& packet);
    /// Of a tile that the buttons do not follow.
    void onQuietMedida(const ads_callback_packet& packet) { followTyped(packet.dialog); }
    void onSearch(const ads_callback_packet& packet);
    void onList(const ads_callback_packet& packet);
    void onAdd(const ads_callback_packet& packet);
    void onReplace(const ads_callback_packet& packet);
    void onRemove(const ads_callback_packet& packet);
    void onSecaoOnly(const ads_callback_packet& packet);
    void onShowInsertion(const ads_callback_packet& packet);
    void onInsertion(const ads_callback_packet& packet);
    void onCotas(const ads_callback_packet& packet);
    void onOtherVista(const ads_callback_packet& packet);
    void onLast(const ads_callback_packet& packet);
    void onAccept(const ads_callback_packet& packet);

    const PerfilDescription& m_description;
    std::unique_ptr<Catalogue> m_catalogue;
    std::wstring m_listPath;  ///< where edits of the list in force are kept; empty: they were
    RunState m_state;
    const PecaValues* m_edited = nullptr;
    RuledPeca m_before;  ///< of the edited piece
    int m_editResult = 0;
    int m_takenVista = 0;
    bool m_orderedCotas = false;

    RowSearch m_search;
    std::wstring m_query;
    bool m_saysNearest = false;
    bool m_hidden = false;     ///< the search hides the row that the buttons would work on
    bool m_removable = false;  ///< without regard to the search
    std::wstring m_warning;
    int m_marked = kNoRow;                ///< row selected in "lista", of the whole list
    int m_typedRow = kNoRow;              ///< row of the size that is typed
    const ListedSize* m_first = nullptr;  ///< to be taken at the first opening
    /// Sizes of all lists of a command that has several; read when first asked for.
    std::optional<std::vector<ListedSize>> m_allSizes;
    static constexpr int kNoRow = -1;
};

/// Says on the command line that a command was given up for lack of memory.
void reportNoMemory();

}  // namespace perfis
