// SPDX-License-Identifier: MIT
// Text file of a material list.
#include "files/replacement.h"
#include "texts/encoding.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/formats.h"

namespace zp::lista {
namespace {

std::wstring withoutFormula(const std::wstring& texto) {
    return texto.find_first_of(L"=+-@\t\r") == 0 ? L'\'' + texto : texto;
}

std::wstring csvField(const std::wstring& campo) {
    if (campo.find_first_of(L";\"\r\n") == std::wstring::npos) return campo;
    std::wstring quoted = L"\"";
    for (const wchar_t c : campo) {
        if (c == L'"') quoted += L'"';
        quoted += c;
    }
    return quoted + L'"';
}

/// `textOf` gives a column's text.
template <class TextOf>
void appendLine(std::wstring& text, TextOf textOf) {
    for (const Column& c : kColumnTable) {
        if (&c != kColumnTable.data()) text += L';';
        text += csvField(textOf(c));
    }
    text += L"\r\n";
}

}  // namespace

std::wstring csvText(const std::vector<Linha>& linhas) {
    std::wstring text;
    appendLine(text, headingOf);
    for (const Linha& l : linhas)
        appendLine(text, [&](const Column& c) {
            const std::wstring words = wordsOf(cellOf(l, c), c);
            return c.shown.decimals < 0 ? withoutFormula(words) : words;
        });
    return text;
}

bool writeCsv(const std::filesystem::path& destino, const std::vector<Linha>& linhas) {
    return files::replace(destino,
                          std::string(texts::kUtf8Mark) + texts::encodeUtf8(csvText(linhas))) == 0;
}

}  // namespace zp::lista
