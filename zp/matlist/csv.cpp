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

std::wstring csvOf(const std::vector<std::vector<std::wstring>>& lines,
                   const std::vector<bool>& numbers) {
    std::wstring text;
    for (const std::vector<std::wstring>& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) text += L';';
            text += csvField(numbers[i] ? line[i] : withoutFormula(line[i]));
        }
        text += L"\r\n";
    }
    return text;
}

std::wstring csvText(const Listing& listing) {
    std::vector<bool> numbers;
    for (const Column* column : listing.columns) numbers.push_back(column->shown.decimals >= 0);
    return csvOf(linesOf(listing), numbers);
}

bool writeText(const std::filesystem::path& destination, const std::wstring& text, bool mark) {
    const std::string bytes = texts::encodeUtf8(text);
    return files::replace(destination, mark ? std::string(texts::kUtf8Mark) + bytes : bytes) == 0;
}

bool writeCsv(const std::filesystem::path& destination, const Listing& listing) {
    return writeText(destination, csvText(listing));
}

}  // namespace zp::matlist
