// SPDX-License-Identifier: MIT
// The flow of a profile command: what its handler does, and what its dialog shows at each opening.
// The callbacks stand in perfil_callbacks.cpp.
#include "perfis/commands/perfil_run.h"

#include <algorithm>
#include <utility>

#include "acutads.h"
#include "adscodes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/listed_sizes.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/perfil_generator.h"
#include "perfis/dialogs/installation.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/shared_cota.h"
#include "protocol/answers.h"
#include "texts/number.h"

namespace perfis {

PerfilRun::PerfilRun(const PerfilDescription& description)
    : m_description(description),
      m_catalogue(description.makeCatalogue()),
      m_state(resetState(description)) {}

PerfilRun::~PerfilRun() = default;

void PerfilRun::execute() {
    sharedCotaFlag() = 0;
    (void)runDialog();
}

void PerfilRun::executeAt(const ListedSize& size) {
    m_state.source = size.source;
    m_first = &size;
    execute();
}

std::vector<ListRow> PerfilRun::rowsOf(int source) {
    m_state.source = source;
    loadList();
    return rows();
}

/// False when the dialog could not be opened.
bool PerfilRun::runDialog() {
    const std::optional<std::wstring> folder = requiredInstallationFolder();
    if (!folder) return false;
    if (!listsFit(*folder) || !slidePath(*folder, m_description.slides, L"secao")) {
        reportLongPath();
        return false;
    }
    const wchar_t* const list = m_description.list;
    const std::optional<std::wstring> path = listPath(*folder, list != nullptr ? list : L"");
    if (list != nullptr) m_catalogue->read(*path);
    m_listPath = *path;
    if (runLoop(L"perfis.dcl", m_description.dialog) == kDialogDone) {
        keepEditsOnce();
        return true;
    }
    (void)acutPrintf(L"\nErro ao executar função");
    return false;
}

bool PerfilRun::listsFit(std::wstring_view folder) const {
    return listPath(folder, m_description.list != nullptr ? m_description.list : L"").has_value();
}

/// Nothing edits the list any more once the dialog was accepted.
void PerfilRun::keepEditsOnce() {
    if (!m_listPath.empty()) keepEdits(std::exchange(m_listPath, {}));
}

void PerfilRun::keepEdits(const std::wstring& path) {
    if (m_description.edits == CatalogueEdits::kWrittenBack) m_catalogue->write(path);
}

void PerfilRun::open(ads_hdlg dialog) {
    m_search.reset();
    m_query.clear();
    m_warning.clear();
    m_saysNearest = false;
    m_hidden = m_removable = false;
    m_marked = kNoRow;
    if (m_description.title != nullptr) setTile(dialog, L"titulo", m_description.title);
    wire(dialog);
    wireOwnTiles(dialog);
    if (!editing() && lastPeca(m_description)) enableTile(dialog, L"ultima", true);
    show(dialog);
}

void PerfilRun::show(ads_hdlg dialog) {
    showMedidas(dialog);
    setToggle(dialog, L"dimensionar", sharedCotaFlag() != 0);
    setToggle(dialog, L"visualizar", m_state.showInsertion);
    setToggle(dialog, L"vista0", m_state.vistas.secaoOnly);
    setSecaoModes(dialog);
    enableTile(dialog, L"dimensionar", !m_state.vistas.pickAndGo);
    showOwnTiles(dialog);
    refresh(dialog);
    showPreview(dialog);
    showList(dialog);
    showInsertionNames(dialog);
    setTile(dialog, L"ins_list", m_state.insertion);
    if (m_first != nullptr) takeFirst(dialog, *std::exchange(m_first, nullptr));
    followTyped(dialog);
}

void PerfilRun::takeFirst(ads_hdlg dialog, const ListedSize& size) {
    const bool listed = size.row != ListedSize::kInNoList;
    markRow(dialog, listed ? size.row : kNoRow);
    if (listed) return pickRow(dialog, size.row);
    m_state.rowPicked = false;
    std::size_t column = 0;
    for (const MedidaTile& tile : m_description.tiles)
        if (tile.rowUse == RowUse::kFills) setTile(dialog, tile.key, size.text.fields[column++]);
    refresh(dialog);
    showPreview(dialog);
}

void PerfilRun::closed(int status) {
    if (status == kDialogAccepted) {
        // Before the points are asked for: whatever ends the program there, the rows are kept.
        keepEditsOnce();
        if (editing()) {
            rebuild();
            return;
        }
        // A refused point ends the command as normally as a drawn piece.
        lastPeca(m_description) = asLast();
        const ChapaLaying chapas = chapaLaying();
        (void)generatePerfil(m_description, m_state, chapas);
    } else if (status == kDialogReopen) {
        // A views dialog that cannot be opened has said so; the choice stays.
        (void)editVistas(m_description.slides, m_state.vistas, m_description.figures);
        // A piece that stands is not placed by its points.
        if (editing()) m_state.vistas.pickAndGo = false;
    }
}

/// The edited piece and, when the user wants it, the other drawings of its member, each as it is
/// seen.
void PerfilRun::rebuild() {
    const ChapaLaying chapas = chapaLaying();
    const std::optional<std::vector<AcDbObjectId>> others =
        pecasToRebuild(m_description, m_state, *m_edited, chapas);
    if (!others) return;
    m_editResult = rebuildPeca(m_description, m_state, {*m_edited, m_before, chapas, laysAgain()});
    for (const AcDbObjectId& id : *others) {
        PecaValues other;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.openStatus() != Acad::eOk) continue;
            other = valuesOf(*peca.object());
        }
        const PerfilCommand* const command = commandOf(other);
        if (command == nullptr) continue;
        // Read by a run of its own: this one holds the values that the user accepted.
        const RuledPeca before = newRun(*command)->ruled(other);
        takeVista(other);
        sharedCotaFlag() = other.hasCotas ? 1 : 0;
        const ChapaLaying its = chapaLaying();
        (void)rebuildPeca(m_description, m_state, {other, before, its, laysAgain()});
    }
}

LastPeca PerfilRun::asLast() const {
    LastPeca last;
    last.state = m_state;
    last.cotas = sharedCotaFlag() != 0;
    return last;
}

/// The row is looked for by its size: the list may be another one by now.
void PerfilRun::takeLast(const LastPeca& last) {
    m_state = last.state;
    m_state.rowPicked = false;
    m_state.selectedRow = 0;
    sharedCotaFlag() = last.cotas ? 1 : 0;
}

int PerfilRun::edit(const PecaValues& peca) {
    m_before = ruled(peca);
    m_edited = &peca;
    m_editResult = RTCAN;
    sharedCotaFlag() = peca.hasCotas ? 1 : 0;
    const bool shown = runDialog();
    sharedCotaFlag() = 0;
    m_edited = nullptr;
    return shown ? m_editResult : RTERROR;
}

std::optional<Fault> PerfilRun::lace(const PecaOrder&) {
    return Fault{L"Este perfil não leva chapas de travejamento.", L"travejar"};
}

std::optional<Fault> PerfilRun::accept(const PecaOrder& order) {
    m_state = order.state;
    m_orderedCotas = order.cotas;
    m_takenVista = m_state.vistas.vista;  // an opposite side that is asked for stays one
    if (!m_state.vistas.secaoOnly)
        if (const std::optional<Fault> fault = vistasFault(m_state.vistas)) return fault;
    if (order.chapas)
        if (const std::optional<Fault> fault = lace(order)) return fault;
    return fault();
}

RuledPeca PerfilRun::accepted() { return ruledPeca(m_description, m_state, chapaLaying()); }

void PerfilRun::drawAccepted() {
    sharedCotaFlag() = m_orderedCotas ? 1 : 0;
    const ChapaLaying chapas = chapaLaying();
    (void)generatePerfil(m_description, m_state, chapas);
    sharedCotaFlag() = 0;
}

std::optional<DrawnPeca> PerfilRun::drawAcceptedAt(const AcGePoint3d& picked) {
    sharedCotaFlag() = m_orderedCotas ? 1 : 0;
    const ChapaLaying chapas = chapaLaying();
    std::optional<DrawnPeca> drawn = drawPeca(m_description, m_state, chapas, picked);
    sharedCotaFlag() = 0;
    return drawn;
}

RuledPeca PerfilRun::ruled(const PecaValues& peca) {
    takePeca(peca);
    const ChapaLaying chapas = travejamentoSuits() ? chapaLaying() : nullptr;
    return ruledPeca(m_description, m_state, peca, chapas);
}

void PerfilRun::layAgain(const PecaValues& before, const PecaValues& peca) {
    const RuledPeca was = ruled(before);
    takePeca(peca);
    if (!travejamentoSuits()) return;
    const ChapaLaying chapas = chapaLaying();
    layChapasAgain(m_description, m_state, {peca, was, chapas, false});
}

int PerfilRun::layCotasAgain(const PecaValues& peca) {
    return perfis::layCotasAgain(m_description, ruled(peca), peca);
}

bool PerfilRun::chapasHold(const PecaValues& peca) {
    takePeca(peca);
    return travejamentoSuits();
}

void PerfilRun::takePeca(const PecaValues& peca) {
    m_state.medidas = medidasOf(m_description, peca.values);
    m_state.picked = peca.otherMass() ? Medidas() : m_state.medidas;
    m_state.tipoBarra = peca.tipoBarra;
    for (std::size_t i = 0; i < m_description.tiles.size(); ++i)
        m_state.texts[i] = FormatInString(m_state.medidas.*m_description.tiles[i].value);
    m_state.vistas.comprimento = peca.comprimento;
    takeVista(peca);
}

/// How the piece is seen and counted.
void PerfilRun::takeVista(const PecaValues& peca) {
    VistasChoice& vistas = m_state.vistas;
    vistas.secaoOnly = peca.vista == ZpObject::kVistaSecao;
    vistas.materialList = peca.listed;
    vistas.pecas = peca.listed ? std::max(1, peca.count) : 0;
    if (!vistas.secaoOnly) vistas.vista = figureOf(m_description, peca.vista, peca.giro);
    m_takenVista = vistas.vista;
}

void PerfilRun::setSecaoModes(ads_hdlg dialog) {
    const bool secaoOnly = m_state.vistas.secaoOnly;
    enableTile(dialog, L"OutraVista", !secaoOnly);
    // The point of a piece that stands is not asked for.
    enableTile(dialog, L"visualizar", secaoOnly && !editing());
    enableTile(dialog, L"ins_list", secaoOnly && !editing());
}

void PerfilRun::showPreview(ads_hdlg dialog) {
    showSecao(dialog, m_description.slides, m_state.showInsertion ? m_state.slide : kSecaoSlide);
}

void PerfilRun::showMedidas(ads_hdlg dialog) {
    for (std::size_t i = 0; i < m_description.tiles.size(); ++i)
        setTile(dialog, m_description.tiles[i].key, m_state.texts[i]);
}

void PerfilRun::loadList() {
    if (m_description.list == nullptr) return;
    if (const auto path = listPath(installationFolder().value_or(L""), m_description.list))
        m_catalogue->read(*path);
}

std::vector<ListRow> PerfilRun::rows() {
    const auto columns = static_cast<std::size_t>(std::ranges::count(
                             m_description.tiles, RowUse::kFills, &MedidaTile::rowUse)) +
                         (m_description.pesoColumn ? 1 : 0);
    std::vector<ListRow> all;
    for (std::wstring& row : m_catalogue->rows()) {
        std::vector<std::wstring> fields = splitRow(row);
        fields.resize(std::min(fields.size(), columns));
        all.push_back({std::move(row), std::move(fields)});
    }
    return all;
}

void PerfilRun::showList(ads_hdlg dialog) {
    if (m_catalogue->count() > 0) fillList(dialog);
}

void PerfilRun::fillList(ads_hdlg dialog) { m_catalogue->fill(dialog, L"lista"); }

void PerfilRun::showInsertionNames(ads_hdlg dialog) {
    std::vector<const wchar_t*> names;
    for (const Insertion& insertion : m_description.insertions) names.push_back(insertion.name);
    names.push_back(kEndMark);
    (void)fillFixedList(dialog, L"ins_list", names.data());
}

void PerfilRun::readMedidas(ads_hdlg dialog) {
    for (const MedidaTile& tile : m_description.tiles)
        m_state.medidas.*tile.value = tileReal(dialog, tile.key);
}

void PerfilRun::notePicked(ads_hdlg dialog) {
    readMedidas(dialog);
    m_state.picked = m_state.medidas;
}

void PerfilRun::refresh(ads_hdlg dialog) {
    readMedidas(dialog);
    if (!editable()) return;
    const bool valid = m_description.wrong(m_state.medidas) == nullptr;
    enableTile(dialog, L"addtolist", valid);
    enableTile(dialog, L"substolist", valid && !m_hidden);
}

bool PerfilRun::lacksComprimento() const {
    const VistasChoice& vistas = m_state.vistas;
    return !vistas.secaoOnly && !(vistas.comprimento > 0.0) && !vistas.pickAndGo;
}

const wchar_t* PerfilRun::wrongTile() {
    const Medida wrong = m_description.wrong(m_state.medidas);
    if (wrong == nullptr) return nullptr;
    const auto tile = std::ranges::find(m_description.tiles, wrong, &MedidaTile::value);
    return tile != m_description.tiles.end() ? tile->key : L"";
}

std::optional<Fault> PerfilRun::acceptFault(ads_hdlg dialog) {
    refresh(dialog);
    return fault();
}

std::optional<Fault> PerfilRun::fault() {
    if (lacksComprimento()) return kLacksComprimento;
    if (const wchar_t* const tile = wrongTile()) return Fault{kInvalidSecao, tile};
    return {};
}

void PerfilRun::takeRow(ads_hdlg dialog, const std::wstring& row) {
    const std::vector<std::wstring> fields = splitRow(row);
    std::size_t column = 0;
    for (const MedidaTile& tile : m_description.tiles) {
        if (tile.rowUse == RowUse::kNone) continue;
        const bool present = column < fields.size();
        if (present || tile.rowUse == RowUse::kFills)
            setTile(dialog, tile.key, present ? fields[column] : std::wstring());
        ++column;
    }
    if (m_description.pesoColumn)
        m_state.medidas.m = column < fields.size() ? texts::toReal(fields[column]) : 0.0;
}

std::unique_ptr<PerfilRun> newRun(const PerfilCommand& command) {
    return command.make != nullptr ? command.make()
                                   : std::make_unique<PerfilRun>(command.description);
}

void draw(const PerfilCommand& command) {
    try {
        newRun(command)->execute();
    } catch (const std::exception&) {
        reportNoMemory();
    }
}

void reportNoMemory() {
    protocol::giveUp(L"Memória insuficiente: o comando foi interrompido e desfeito.");
}

}  // namespace perfis
