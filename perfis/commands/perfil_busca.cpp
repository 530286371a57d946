// SPDX-License-Identifier: MIT
// Searching in the list of a profile dialog, and what follows the size that is typed: its row in
// the list, the section to scale, warnings.
#include <algorithm>
#include <cmath>

#include "perfis/commands/escala.h"
#include "perfis/commands/listed_sizes.h"
#include "perfis/commands/perfil_run.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {

// --- Search --------------------------------------------------------------------------------

void PerfilRun::onSearch(const ads_callback_packet& packet) {
    const std::wstring query = texts::trimmed(packet.value);
    if (query != m_query) {
        m_query = query;
        if (query.empty()) {
            m_search.reset();
            showNearest(packet.dialog, {});
            fillList(packet.dialog);
        } else {
            showFound(packet.dialog, query);
        }
        m_marked = kNoRow;
    }
    const int first = m_search.rowAt(0);
    if (packet.reason != CBR_SELECT || query.empty() || first < 0)
        return followTyped(packet.dialog);
    markRow(packet.dialog, first);
    showNearest(packet.dialog, {});
    pickRow(packet.dialog, first);
    followTyped(packet.dialog);
}

void PerfilRun::showFound(ads_hdlg dialog, const std::wstring& query) {
    const std::vector<ListRow> all = rows();
    const std::wstring difference = m_search.search(query, m_description, all, m_state.source);
    if (ads_start_list(dialog, L"lista", LIST_NEW, 0) != RTNORM) return;
    for (const std::size_t row : m_search.shown()) (void)ads_add_list(all[row].shown.c_str());
    (void)ads_end_list();
    showNearest(dialog, difference);
}

/// An empty text takes away what a search said before, not what others did.
void PerfilRun::showNearest(ads_hdlg dialog, const std::wstring& difference) {
    if (!difference.empty() || m_saysNearest) setTile(dialog, L"error", difference);
    m_saysNearest = !difference.empty();
}

void PerfilRun::stopSearch(ads_hdlg dialog) {
    m_search.reset();
    if (!m_query.empty()) setTile(dialog, L"busca", std::wstring());
    m_query.clear();
    showNearest(dialog, {});
    setHidden(dialog, false);
}

void PerfilRun::setHidden(ads_hdlg dialog, bool hidden) {
    if (hidden == m_hidden || !editable()) return;
    m_hidden = hidden;
    refresh(dialog);
    enableRemove(dialog, m_removable);
}

void PerfilRun::enableRemove(ads_hdlg dialog, bool removable) {
    m_removable = removable;
    enableTile(dialog, L"deltolist", removable && !m_hidden);
}

void PerfilRun::listChanged(ads_hdlg dialog) {
    stopSearch(dialog);
    m_state.rowPicked = false;
    m_marked = m_typedRow = kNoRow;
}

// --- What is typed -------------------------------------------------------------------------

void PerfilRun::markRow(ads_hdlg dialog, int row) {
    const int shown = m_search.shownAs(row);
    setTile(dialog, L"lista", shown >= 0 ? std::to_wstring(shown) : std::wstring());
    m_marked = row;
}

/// What the user sees selected is what the buttons work on.
void PerfilRun::takeMarkedRow() {
    if (m_typedRow != kNoRow) rememberRow(m_typedRow);
}

void PerfilRun::followTyped(ads_hdlg dialog) {
    readMedidas(dialog);
    const int picked = m_state.rowPicked ? m_state.selectedRow : kNoRow;
    m_typedRow = kNoRow;
    if (m_description.wrong(m_state.medidas) == nullptr) {
        const std::vector<ListRow> all = rows();
        const auto isTyped = [&](const ListRow& row) {
            return !row.empty() && isLike(m_description, row, m_state.medidas);
        };
        const bool same = picked >= 0 && picked < std::ssize(all) &&
                          isTyped(all[static_cast<std::size_t>(picked)]);
        const auto row = same ? all.begin() + picked : std::ranges::find_if(all, isTyped);
        if (row != all.end()) m_typedRow = static_cast<int>(row - all.begin());
        // The buttons work on no row that cannot be seen.
        if (m_search.shownAs(m_typedRow) < 0) m_typedRow = kNoRow;
    }
    const int marked = m_typedRow != kNoRow ? m_typedRow : picked;
    if (marked != m_marked) markRow(dialog, marked);
    setHidden(dialog,
              m_search.shownAs(m_typedRow != kNoRow ? m_typedRow : m_state.selectedRow) < 0);
    showTyped(dialog);
}

/// Of a text that goes on after its number the number counts: "3,3,5" draws 3 mm.
std::wstring PerfilRun::readInPart(ads_hdlg dialog) const {
    std::wstring parts;
    for (const MedidaTile& tile : m_description.tiles) {
        const std::wstring text = texts::trimmed(tileText(dialog, tile.key));
        if (text.empty() || texts::exactReal(text)) continue;
        parts += (parts.empty() ? L"\"" : L"; \"") + text + L"\" lido como " +
                 texts::withComma(m_state.medidas.*tile.value);
    }
    return parts;
}

void PerfilRun::showTyped(ads_hdlg dialog) {
    const PecaRequest request{.medidas = m_state.medidas,
                              .comprimento = 1.0,
                              .source = m_state.source,
                              .picked = m_state.picked};
    const auto insertion = static_cast<std::size_t>(m_state.insertion);
    const bool placed =
        m_state.vistas.secaoOnly && !editing() && insertion < m_description.insertions.size();
    showEscala(dialog, m_description, request,
               placed ? std::optional(m_description.insertions[insertion].shift(m_state.medidas))
                      : std::nullopt);
    std::wstring warning = readInPart(dialog);
    if (const std::wstring others = warningsOf(m_description, request); !others.empty())
        warning += (warning.empty() ? L"" : L"; ") + others;
    if (m_description.wrong(m_state.medidas) == nullptr && !isKnown(m_state.medidas))
        warning +=
            (warning.empty() ? L"" : L"; ") + std::wstring(L"medida que não está no catálogo");
    if (!warning.empty()) warning = L"Aviso: " + warning + L".";
    if (warning == m_warning) return;
    setTile(dialog, L"aviso", warning);
    m_warning = warning;
}

/// A list that cannot be read says nothing.
bool PerfilRun::isKnown(const Medidas& typed) {
    const std::vector<Medida> told = tellingMedidas(m_description);
    const auto isTyped = [&](const ListRow& row) {
        const Medidas its = medidasOf(m_description, row);
        return std::ranges::all_of(told, [&](Medida medida) {
            return std::abs(its.*medida - typed.*medida) <= kSameSize;
        });
    };
    const std::vector<ListRow> all = rows();
    if (all.empty() || std::ranges::any_of(all, isTyped)) return true;
    if (sourceCount() == 1) return false;
    if (!m_allSizes) m_allSizes = listedSizes(m_description);
    return std::ranges::any_of(*m_allSizes, isTyped, &ListedSize::text);
}

}  // namespace perfis
