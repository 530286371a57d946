// SPDX-License-Identifier: MIT
// A weld as one line of text.
#include "prancheta/entities/weld_text.h"

#include <vector>

#include "prancheta/base/text.h"

namespace prancheta {

namespace {

constexpr const wchar_t* kKnown =
    L"A solda entende: filete ou topo (i, v, u, j, bisel), tamanho, comprimento-passo, seta, "
    L"outro, "
    L"ambos, campo, contorno, prof N, cauda TEXTO. Por exemplo: filete 6 60-150 ambos campo.";

struct Form {
    const wchar_t* word;
    WeldKind kind;
};
constexpr Form kForms[] = {{L"i", WeldKind::Square},    {L"v", WeldKind::V},
                           {L"u", WeldKind::U},         {L"j", WeldKind::J},
                           {L"bisel", WeldKind::Bevel}, {L"hv", WeldKind::Bevel},
                           {L"bevel", WeldKind::Bevel}};

std::wstring folded(std::wstring_view word) { return withoutAccents(foldCase(word)); }

/// The next word; `line` is what follows it.
std::wstring nextWord(std::wstring_view& line) {
    line = trim(line);
    const std::size_t end = std::min(line.find(L' '), line.size());
    const std::wstring word(line.substr(0, end));
    line.remove_prefix(end);
    return word;
}

bool isNumber(const std::wstring& word) {
    return !word.empty() && word[0] >= L'0' && word[0] <= L'9';
}

/// "60-150": a length and the distance from middle to middle.
bool isPitch(const std::wstring& word) {
    const std::size_t dash = word.find(L'-');
    return dash != std::wstring::npos && isNumber(word) && isNumber(word.substr(dash + 1));
}

bool takeFlag(const std::wstring& word, Weld& weld) {
    if (word == L"ambos" || word == L"ambas")
        weld.side = WeldSide::Both;
    else if (word == L"outro" || word == L"oposto")
        weld.side = WeldSide::Other;
    else if (word == L"seta")
        weld.side = WeldSide::Arrow;
    else if (word == L"campo" || word == L"obra")
        weld.field = true;
    else if (word == L"contorno" || word == L"volta")
        weld.allRound = true;
    else
        return false;
    return true;
}

/// Of a fillet the leg, then its length; of a groove the angle.
bool takeNumber(const std::wstring& word, Weld& weld) {
    std::wstring& first = weld.kind == WeldKind::Fillet ? weld.size : weld.angle;
    if (isPitch(word) && weld.length.empty())
        weld.length = word;
    else if (isNumber(word) && first.empty())
        first = word;
    else if (isNumber(word) && weld.length.empty())
        weld.length = word;
    else
        return false;
    return true;
}

bool takeKind(std::wstring_view& line, Weld& weld, std::wstring& word) {
    word = nextWord(line);
    const std::wstring kind = folded(word);
    if (kind == L"filete" || kind == L"angulo") return true;
    if (kind != L"topo" && kind != L"chanfro") return false;
    word = nextWord(line);
    for (const Form& form : kForms)
        if (folded(word) == form.word) {
            weld.kind = form.kind;
            return true;
        }
    return false;
}

}  // namespace

bool readWeld(const std::wstring& line, Weld& weld, std::wstring& why) {
    Weld read;
    std::wstring_view rest = line;
    std::wstring word;
    bool good = takeKind(rest, read, word);
    while (good && !trim(rest).empty()) {
        word = nextWord(rest);
        const std::wstring plain = folded(word);
        if (plain == L"cauda") {
            read.tail = std::wstring(trim(rest));
            break;
        }
        if (plain == L"prof") {
            word = nextWord(rest);
            good = isNumber(word) && read.size.empty();
            read.size = word;
        } else {
            good = takeFlag(plain, read) || takeNumber(word, read);
        }
    }
    if (!good) {
        why =
            word.empty() ? L"Falta dizer qual é a solda. " : L"\"" + word + L"\" não é entendido. ";
        why += kKnown;
        return false;
    }
    weld = read;
    return true;
}

}  // namespace prancheta
