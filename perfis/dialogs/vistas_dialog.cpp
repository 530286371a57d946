// SPDX-License-Identifier: MIT
// Views dialog: figures, alignment, length, material list and pick-and-go of a member.
#include "perfis/dialogs/vistas_dialog.h"

#include <string>

#include "perfis/dialogs/dialog_loop.h"
#include "perfis/dialogs/tiles.h"
#include "texts/number.h"

namespace perfis {
namespace {

/// The figures "fig1" to "fig4"; the position is the preview index.
struct Figure {
    const wchar_t* key;
    const wchar_t* slide;
    const wchar_t* preview;
    int vista;
};
constexpr Figure kFigures[] = {
    {L"fig1", L"BT1", L"VI1", 3},
    {L"fig2", L"BT2", L"VI2", 1},
    {L"fig3", L"BT3", L"VI3", 2},
    {L"fig4", L"BT4", L"VI4", 4},
};
constexpr int kFigureCount = 4;

/// View 3 and every unknown one are shown as the first figure.
int previewOf(int vista) {
    for (int i = 0; i < kFigureCount; ++i)
        if (kFigures[i].vista == vista) return i;
    return 0;
}

class VistasDialog : public ReopeningDialog {
public:
    VistasDialog(const wchar_t* library, VistasChoice& choice, int figures)
        : m_library(std::wstring(library).substr(0, 80)),
          m_choice(choice),
          m_working(choice),
          m_figures(figures),
          m_preview(previewOf(choice.vista)) {}

protected:
    void open(ads_hdlg dialog) override;
    void closed(int status) override;
    void reportMissing() override { (void)acedAlert(kMissingDialog); }

private:
    template <void (VistasDialog::*Method)(const ads_callback_packet&)>
    static constexpr CLIENTFUNC callback = dialogCallback<VistasDialog, Method>;

    void wire(ads_hdlg dialog);
    void setModes(ads_hdlg dialog);
    void showPreview(ads_hdlg dialog);
    void markFigure(ads_hdlg dialog);
    void onFigure(const ads_callback_packet& packet);
    void onInsertionText(const ads_callback_packet& packet);
    void onInsertionSlider(const ads_callback_packet& packet);
    void onComprimento(const ads_callback_packet& packet);
    void onPick(const ads_callback_packet& packet);
    void onPecas(const ads_callback_packet& packet);
    void onMaterialList(const ads_callback_packet& packet);
    void onPickAndGo(const ads_callback_packet& packet);
    void onAccept(const ads_callback_packet& packet);

    std::wstring m_library;
    VistasChoice& m_choice;
    VistasChoice m_working;
    int m_figures;
    int m_preview;
    int m_marked = kNone;  ///< figure with the mark that the host puts around a tile
    static constexpr int kNone = -1;
    std::wstring m_shownComprimento;
    bool m_comprimentoEdited = false;
};

/// Of what can be placed in a drawing, mm.
constexpr double kLongestBarra = 1e9;

void VistasDialog::open(ads_hdlg dialog) {
    showSlide(dialog, L"fig0", L"", L"FLECHA");
    for (const Figure& figure : kFigures) showSlide(dialog, figure.key, m_library, figure.slide);
    showPreview(dialog);
    m_marked = kNone;
    markFigure(dialog);
    m_shownComprimento = std::to_wstring(texts::realToInt(m_working.comprimento));
    m_comprimentoEdited = false;
    setTile(dialog, L"insertionP", m_working.alignment);
    setTile(dialog, L"ip", m_working.alignment);
    setTile(dialog, L"num_pecas", m_working.pecas);
    setTile(dialog, L"l", m_shownComprimento);
    setToggle(dialog, L"gerar_matlist", m_working.materialList);
    setToggle(dialog, L"pickngo", m_working.pickAndGo);
    setModes(dialog);
    wire(dialog);
}

void VistasDialog::setModes(ads_hdlg dialog) {
    enableTile(dialog, L"num_pecas", m_working.materialList);
    for (const wchar_t* const key : {L"l", L"pick", L"gerar_matlist", L"ip", L"insertionP"})
        enableTile(dialog, key, !m_working.pickAndGo);
    for (int i = m_figures; i < kFigureCount; ++i) enableTile(dialog, kFigures[i].key, false);
}

void VistasDialog::wire(ads_hdlg dialog) {
    static constexpr TileAction kActions[] = {
        {L"insertionP", callback<&VistasDialog::onInsertionText>},
        {L"ip", callback<&VistasDialog::onInsertionSlider>},
        {L"l", callback<&VistasDialog::onComprimento>},
        {L"pick", callback<&VistasDialog::onPick>},
        {L"num_pecas", callback<&VistasDialog::onPecas>},
        {L"gerar_matlist", callback<&VistasDialog::onMaterialList>},
        {L"pickngo", callback<&VistasDialog::onPickAndGo>},
        {L"accept", callback<&VistasDialog::onAccept>},
    };
    for (int i = 0; i < m_figures && i < kFigureCount; ++i)
        wireTile(dialog, {kFigures[i].key, callback<&VistasDialog::onFigure>}, this);
    for (const TileAction& action : kActions) wireTile(dialog, action, this);
}

void VistasDialog::showPreview(ads_hdlg dialog) {
    showSlide(dialog, L"PreviewVista", m_library, kFigures[m_preview].preview);
}

/// The host only turns a mark over: the former one goes by the same call.
void VistasDialog::markFigure(ads_hdlg dialog) {
    if (m_marked == m_preview) return;
    if (m_marked != kNone) (void)ads_mode_tile(dialog, kFigures[m_marked].key, MODE_FLIP);
    m_marked = m_preview;
    (void)ads_mode_tile(dialog, kFigures[m_marked].key, MODE_FLIP);
}

void VistasDialog::closed(int status) {
    if (status == kDialogAccepted) {
        const bool secaoOnly = m_choice.secaoOnly;
        m_choice = m_working;
        m_choice.secaoOnly = secaoOnly;
    } else if (status == kDialogReopen) {
        ads_real distance = 0.0;
        if (acedGetDist(nullptr, L"\nPonto inicial e final do perfil:", &distance) == RTNORM)
            m_working.comprimento = distance;
    } else if (status == kDialogCancelled) {
        if (m_choice.comprimento == 0.0 && !m_choice.pickAndGo) m_choice.secaoOnly = true;
    }
}

/// What is typed counts, also when it is the text that was shown.
void VistasDialog::onComprimento(const ads_callback_packet& packet) {
    m_comprimentoEdited = true;
    m_working.comprimento = typedReal(packet.value);
}

void VistasDialog::onFigure(const ads_callback_packet& packet) {
    wchar_t key[80] = {};
    (void)ads_get_attr_string(packet.tile, L"key", key, 79);
    for (int i = 0; i < kFigureCount; ++i) {
        if (std::wstring_view(key) != kFigures[i].key) continue;
        m_preview = i;
        m_working.vista = kFigures[i].vista;
        showPreview(packet.dialog);
        markFigure(packet.dialog);
    }
}

void VistasDialog::onInsertionText(const ads_callback_packet& packet) {
    std::wstring text = packet.value;
    const int typed = texts::toInt(text);
    // Too large a code falls back on the middle choice, not on the largest one.
    if (typed > 9) text = L"5";
    if (typed < 1) text = L"1";
    setTile(packet.dialog, L"ip", text);
    setTile(packet.dialog, L"insertionP", text);
    m_working.alignment = texts::toInt(text);
}

void VistasDialog::onInsertionSlider(const ads_callback_packet& packet) {
    const std::wstring text = packet.value;
    setTile(packet.dialog, L"insertionP", text);
    m_working.alignment = texts::toInt(text);
}

void VistasDialog::onPick(const ads_callback_packet& packet) {
    (void)ads_done_dialog(packet.dialog, kDialogReopen);
}

void VistasDialog::onPecas(const ads_callback_packet& packet) {
    m_working.pecas = texts::toInt(packet.value);
}

void VistasDialog::onMaterialList(const ads_callback_packet& packet) {
    m_working.materialList = texts::toInt(packet.value) != 0;
    enableTile(packet.dialog, L"num_pecas", m_working.materialList);
}

void VistasDialog::onPickAndGo(const ads_callback_packet& packet) {
    const bool on = texts::toInt(packet.value) != 0;
    for (const wchar_t* const key :
         {L"l", L"pick", L"gerar_matlist", L"num_pecas", L"ip", L"insertionP"})
        enableTile(packet.dialog, key, !on);
}

void VistasDialog::onAccept(const ads_callback_packet& packet) {
    ads_hdlg dialog = packet.dialog;
    // The stored length keeps its decimals until the truncated text is edited.
    const std::wstring comprimento = tileText(dialog, L"l", 159);
    if (m_comprimentoEdited || comprimento != m_shownComprimento)
        m_working.comprimento = typedReal(comprimento);
    m_working.pecas = texts::toInt(tileText(dialog, L"num_pecas"));
    m_working.materialList = texts::toInt(tileText(dialog, L"gerar_matlist")) != 0;
    m_working.pickAndGo = texts::toInt(tileText(dialog, L"pickngo")) != 0;
    if (const std::optional<Fault> fault = vistasFault(m_working))
        showFault(dialog, *fault);
    else
        (void)ads_done_dialog(dialog, kDialogAccepted);
}

}  // namespace

std::optional<Fault> vistasFault(const VistasChoice& choice) {
    if (choice.pickAndGo) return {};
    if (!(choice.comprimento > 0.0 && choice.comprimento <= kLongestBarra))
        return Fault{L"Erro: comprimento inválido.", L"l"};
    // A further view of the member of a mark counts none.
    if (choice.pecas < (choice.marca.empty() ? 1 : 0) && choice.materialList)
        return Fault{L"Erro: número de peças inválido.", L"num_pecas"};
    return {};
}

int editVistas(const wchar_t* library, VistasChoice& choice, int figures) {
    VistasDialog dialog(library, choice, figures);
    return dialog.runLoop(L"vistas.dcl", L"vistas_geracao");
}

}  // namespace perfis
