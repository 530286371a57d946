// SPDX-License-Identifier: MIT
// Reading a line from left to right.
#include "perfis/pecas/line.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "texts/letters.h"
#include "zp/objects/editable_medidas.h"

namespace perfis {
namespace {

constexpr const wchar_t* kKeys[] = {L"l",         L"n",
                                    L"marca",     L"vista",
                                    L"a",         L"av",
                                    L"chapas",    L"ins",
                                    L"tipo",      L"cmd",
                                    L"giro",      L"aco",
                                    L"plano",     L"corte_inicio",
                                    L"corte_fim", L"fundo_inicio",
                                    L"fundo_fim"};
constexpr const wchar_t* kFlags[] = {L"cotas", L"lista"};

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\u00A0'; }
bool isWordLetter(wchar_t c) {
    return c == L'_' || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') ||
           (c >= L'0' && c <= L'9') || (c >= L'\u00C0' && c <= L'\u024F');
}

/// Insertions, deletions and replacements of one letter that make one word of the other
/// (Levenshtein). O(a b), for words.
std::size_t lettersApart(std::wstring_view a, std::wstring_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

class LineReader {
public:
    LineReader(std::wstring_view text, PecaLine& line) : m_text(text), m_line(line) {}

    std::wstring read() {
        while (skipBlanks()) {
            const std::size_t equals = keyEnd();
            std::wstring fault = equals != std::wstring_view::npos ? takeValue(equals) : takeWord();
            if (!fault.empty()) return fault;
        }
        if (m_small && m_length) {
            if (m_line.find(L"a") != nullptr) return L"A largura foi dita duas vezes, a= e l=.";
            m_line.values[L"a"] = *m_small;
        }
        if (const auto& length = m_length ? m_length : m_small) m_line.values[L"l"] = *length;
        return {};
    }

private:
    bool skipBlanks() {
        while (m_at < m_text.size() && isBlank(m_text[m_at])) ++m_at;
        return m_at < m_text.size();
    }
    /// Place of the equals sign behind the key that begins here.
    std::size_t keyEnd() const {
        std::size_t end = m_at;
        while (end < m_text.size() && isWordLetter(m_text[end])) ++end;
        const bool digit = m_text[m_at] >= L'0' && m_text[m_at] <= L'9';
        return end > m_at && !digit && end < m_text.size() && m_text[end] == L'='
                   ? end
                   : std::wstring_view::npos;
    }
    std::size_t wordEnd(std::size_t from) const {
        while (from < m_text.size() && !isBlank(m_text[from])) ++from;
        return from;
    }
    std::wstring takeValue(std::size_t equals) {
        const std::wstring key(m_text.substr(m_at, equals - m_at));
        m_at = equals + 1;
        std::wstring value;
        if (m_at < m_text.size() && m_text[m_at] == L'"') {
            const std::size_t end = m_text.find(L'"', m_at + 1);
            if (end == std::wstring_view::npos) return L"Falta fechar as aspas de " + key + L"=.";
            value = m_text.substr(m_at + 1, end - m_at - 1);
            m_at = end + 1;
        } else {
            const std::size_t end = wordEnd(m_at);
            value = m_text.substr(m_at, end - m_at);
            m_at = end;
        }
        if (key != L"l" && key != L"L") return addValue(m_line, key, value);
        if (value.empty()) return L"Falta o valor de " + key + L"=.";
        std::optional<std::wstring>& length = key == L"l" ? m_small : m_length;
        if (length) return key + L"= foi dito duas vezes.";
        length = value;
        return {};
    }
    std::wstring takeWord() {
        const std::size_t end = wordEnd(m_at);
        const std::wstring word(m_text.substr(m_at, end - m_at));
        m_at = end;
        const std::wstring flag = texts::lower(word);
        if (flag == kFlags[0])
            m_line.cotas = true;
        else if (flag == kFlags[1])
            m_line.lista = true;
        else
            m_line.designation += (m_line.designation.empty() ? L"" : L" ") + word;
        return {};
    }

    std::wstring_view m_text;
    PecaLine& m_line;
    std::size_t m_at = 0;
    std::optional<std::wstring> m_small;
    std::optional<std::wstring> m_length;
};

}  // namespace

std::wstring readLine(std::wstring_view text, PecaLine& line) {
    return LineReader(text, line).read();
}

std::wstring addValue(PecaLine& line, const std::wstring& key, const std::wstring& value) {
    const std::wstring known = plainWord(key);
    if (!isKey(known)) return unknownWord(key);
    if (value.empty()) return L"Falta o valor de " + key + L"=.";
    if (!line.values.emplace(known, value).second) return key + L"= foi dito duas vezes.";
    return {};
}

std::wstring plainWord(std::wstring_view key) {
    std::wstring text = texts::lower(key);
    for (wchar_t& c : text) {
        if (c == L'\u00E7') c = L'c';
        if (c == L'\u00E2' || c == L'\u00E3' || c == L'\u00E1') c = L'a';
        if (c == L'\u00EA' || c == L'\u00E9') c = L'e';
        if (c == L'\u00ED') c = L'i';
    }
    return text;
}

bool isKey(const std::wstring& key) {
    return std::ranges::find(kKeys, key) != std::end(kKeys) ||
           zp::sheets::medidaFor(key) != nullptr;
}

std::wstring nearestWord(const std::wstring& word, const std::vector<std::wstring>& known) {
    const std::wstring typed = plainWord(word);
    std::wstring nearest;
    std::size_t least = std::max<std::size_t>(2, typed.size() / 2 + 1);
    for (const std::wstring& candidate : known) {
        const std::size_t apart = lettersApart(typed, texts::lower(candidate));
        if (apart >= least) continue;
        least = apart;
        nearest = candidate;
    }
    return nearest;
}

std::wstring unknownWord(const std::wstring& word, const std::vector<std::wstring>& others) {
    std::vector<std::wstring> known;
    for (const wchar_t* const key : kKeys) known.push_back(std::wstring(key) + L"=");
    known[0] = L"L=";
    known.insert(known.end(), std::begin(kFlags), std::end(kFlags));
    known.insert(known.end(), others.begin(), others.end());
    const std::wstring nearest = nearestWord(word, known);
    return L"Não sei o que é \"" + word + L"\"" +
           (nearest.empty() ? L"." : L"; a palavra mais próxima é " + nearest + L".");
}

}  // namespace perfis
