// SPDX-License-Identifier: MIT
// The user's file of left-overs.
#include "zp/matlist/left_overs.h"

#include "acutads.h"
#include "files/replacement.h"
#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/objects/layers.h"
#include "zp/objects/secao/single.h"

namespace zp::matlist {
namespace {

constexpr double kLongest = 1e6;  ///< mm
constexpr double kMost = 1e6;     ///< alike

/// Enters a row; what is wrong with it otherwise.
std::wstring enter(const std::vector<std::wstring>& fields, LeftOvers& all) {
    if (fields.size() < 3 || fields[0].empty())
        return L"são esperados perfil, comprimento e quantidade, separados por tabulação";
    const double length = texts::exactReal(fields[1]).value_or(0.0);
    if (!(length > 0.0 && length <= kLongest)) return L"comprimento inválido: " + fields[1];
    const double quantity = texts::exactReal(fields[2]).value_or(0.0);
    if (!(quantity >= 1.0 && quantity <= kMost) || quantity != static_cast<int>(quantity))
        return L"quantidade inválida: " + fields[2];
    all.byKey[keyOf(fields[0])].push_back({length, static_cast<int>(quantity)});
    return {};
}

}  // namespace

std::wstring keyOf(std::wstring_view designation) { return secao::designationKey(designation); }

LeftOvers leftOversIn(std::wstring_view text) {
    LeftOvers all;
    int number = 0;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find(L'\n', from), text.size());
        const std::wstring_view row = text.substr(from, end - from);
        from = end + 1;
        ++number;
        const std::wstring shown = texts::trimmed(row);
        if (shown.empty() || shown[0] == L';') continue;
        if (const std::wstring fault = enter(texts::trimmedParts(row, L'\t'), all); !fault.empty())
            all.faults.push_back(L"retalhos.lst, linha " + std::to_wstring(number) + L": " + fault +
                                 L". A linha ficou de fora; corrija o arquivo.");
    }
    return all;
}

LeftOvers readLeftOvers() {
    std::filesystem::path file = installationFolder();
    for (const char* const part : {"Perfis", "Listas", "retalhos.lst"})
        file = texts::entryOf(file, part);
    const std::optional<std::string> bytes = files::readRegular(file);
    LeftOvers all = bytes ? leftOversIn(texts::decodeText(*bytes)) : LeftOvers{};
    for (const std::wstring& fault : all.faults) acutPrintf(L"\n%ls", fault.c_str());
    return all;
}

}  // namespace zp::matlist
