// SPDX-License-Identifier: MIT
// Text file of a material list.
#include "files/replacement.h"
#include "texts/encoding.h"
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

}  // namespace

std::wstring csvText(const Listing& listing) {
    std::wstring text;
    for (const std::vector<std::wstring>& line : linesOf(listing)) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const bool number = listing.columns[i]->shown.decimals >= 0;
            if (i > 0) text += L';';
            text += csvField(number ? line[i] : withoutFormula(line[i]));
        }
        text += L"\r\n";
    }
    return text;
}

bool writeCsv(const std::filesystem::path& destination, const Listing& listing) {
    return files::replace(destination,
                          std::string(texts::kUtf8Mark) + texts::encodeUtf8(csvText(listing))) == 0;
}

}  // namespace zp::matlist
