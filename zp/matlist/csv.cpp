// SPDX-License-Identifier: MIT
// Text file of a material list.
#include "files/replacement.h"
#include "texts/encoding.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/formats.h"

namespace zp::matlist {
namespace {

std::wstring withoutFormula(const std::wstring& text) {
    return text.find_first_of(L"=+-@\t\r") == 0 ? L'\'' + text : text;
}

std::wstring csvField(const std::wstring& field) {
    if (field.find_first_of(L";\"\r\n") == std::wstring::npos) return field;
    std::wstring quoted = L"\"";
    for (const wchar_t c : field) {
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

std::wstring csvText(const std::vector<Linha>& rows) {
    std::wstring text;
    appendLine(text, headingOf);
    for (const Linha& l : rows)
        appendLine(text, [&](const Column& c) {
            const std::wstring words = wordsOf(cellOf(l, c), c);
            return c.shown.decimals < 0 ? withoutFormula(words) : words;
        });
    return text;
}

bool writeCsv(const std::filesystem::path& destination, const std::vector<Linha>& rows) {
    return files::replace(destination,
                          std::string(texts::kUtf8Mark) + texts::encodeUtf8(csvText(rows))) == 0;
}

}  // namespace zp::matlist
