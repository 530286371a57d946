// SPDX-License-Identifier: MIT
// One search over the lists of all commands.
#include "perfis/commands/size_command.h"

#include <algorithm>
#include <optional>

#include "acedads.h"
#include "perfis/catalogues/search.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/listed_sizes.h"
#include "perfis/dialogs/installation.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

/// So many candidates can be read at a glance.
constexpr std::size_t kMostShown = 15;

class AllSizes {
public:
    AllSizes() {
        for (const CommandRow& row : commandTable())
            for (ListedSize& size : listedSizes(row.command)) {
                const PerfilDescription& description = row.command.description;
                m_search.add(writingsOf(description, size.text, size.source),
                             medidasOf(description, size.text).m);
                m_sizes.push_back({&row, std::move(size)});
            }
    }

    /// Asks until one size is left; nothing when the user declines.
    std::optional<std::size_t> ask() const;
    void draw(std::size_t index) const {
        const auto& [row, size] = m_sizes[index];
        newRun(row->command)->executeAt(size);
    }

private:
    /// The only one that fits what was typed; else the candidates are shown and kept in `shown`.
    std::optional<std::size_t> take(const std::wstring& typed,
                                    std::vector<std::size_t>& shown) const;
    void show(const std::vector<std::size_t>& candidates) const;
    std::wstring nameOf(std::size_t index) const;

    struct Entry {
        const CommandRow* row;
        ListedSize size;
    };
    std::vector<Entry> m_sizes;
    SizeSearch m_search;
};

/// Without blanks around; empty for Enter and Esc.
std::wstring typedAt(const wchar_t* prompt) {
    ACHAR typed[133] = L"";
    if (acedGetString(1, prompt, typed) != RTNORM) return {};
    return texts::trimmed(typed);
}

std::optional<std::size_t> AllSizes::ask() const {
    std::vector<std::size_t> shown;
    for (;;) {
        const std::wstring typed =
            typedAt(shown.empty() ? L"\nBitola (por exemplo W 200x46,1): "
                                  : L"\nNúmero na relação ou outra bitola <desistir>: ");
        if (typed.empty()) return {};
        const std::optional<double> number = texts::exactReal(typed);
        if (asksNothing(typed)) {
            protocol::refuse(L"Falta a bitola: digite, por exemplo, U 200x75x3.");
            continue;
        }
        if (shown.empty() || !number) {
            if (const auto taken = take(typed, shown)) return taken;
            continue;
        }
        for (std::size_t i = 0; i < shown.size(); ++i)
            if (*number == static_cast<double>(i + 1)) return shown[i];
        protocol::refuse(L"A relação vai de 1 a " + std::to_wstring(shown.size()) + L".");
    }
}

std::optional<std::size_t> AllSizes::take(const std::wstring& typed,
                                          std::vector<std::size_t>& shown) const {
    SizeSearch::Found found = m_search.find(typed);
    if (found.best == 1) {
        const std::size_t only = found.rows.front();
        if (!found.meant)
            (void)acutPrintf(L"\nSó uma bitola se parece com \"%ls\": %ls.\n", typed.c_str(),
                             nameOf(only).c_str());
        return only;
    }
    if (found.best == 0)
        (void)acutPrintf(L"\n%ls\n", found.difference.c_str());
    else
        (void)acutPrintf(L"\n%d bitolas atendem a \"%ls\":\n", static_cast<int>(found.best),
                         typed.c_str());
    if (found.best > 0) found.rows.resize(found.best);
    const std::size_t all = found.rows.size();
    shown = std::move(found.rows);
    shown.resize(std::min(all, kMostShown));
    show(shown);
    if (all > shown.size())
        (void)acutPrintf(L"  ... e mais %d: digite mais da bitola.\n",
                         static_cast<int>(all - shown.size()));
    return {};
}

std::wstring AllSizes::nameOf(std::size_t index) const {
    const auto& [row, size] = m_sizes[index];
    const PerfilDescription& description = row->command.description;
    const Medidas medidas = medidasOf(description, size.text);
    return description.wrong(medidas) == nullptr ? sizeName(description, medidas, size.source)
                                                 : size.text.shown;
}

/// ", 300x120x4,75x9,5": the numbers of the dialog.
std::wstring numbersOf(const PerfilDescription& description, const ListedSize& size) {
    const Medidas medidas = medidasOf(description, size.text);
    std::wstring text;
    for (const MedidaTile& tile : description.tiles)
        if (tile.rowUse == RowUse::kFills)
            text += (text.empty() ? L", " : L"x") + texts::withComma(medidas.*tile.value);
    return text;
}

void AllSizes::show(const std::vector<std::size_t>& candidates) const {
    std::vector<std::wstring> lines;
    lines.reserve(candidates.size());
    for (const std::size_t index : candidates)
        lines.push_back(nameOf(index) + L" (" + m_sizes[index].row->localName + L")");
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const auto& [row, size] = m_sizes[candidates[i]];
        // Some series have two sizes of one name.
        const std::wstring sizes = std::ranges::count(lines, lines[i]) > 1
                                       ? numbersOf(row->command.description, size)
                                       : L"";
        (void)acutPrintf(L"  %d: %ls%ls\n", static_cast<int>(i + 1), lines[i].c_str(),
                         sizes.c_str());
    }
}

}  // namespace

void drawBySize() {
    try {
        if (!requiredInstallationFolder()) return;
        const AllSizes sizes;
        if (const auto index = sizes.ask()) sizes.draw(*index);
    } catch (const std::exception&) {
        reportNoMemory();
    }
}

}  // namespace perfis
