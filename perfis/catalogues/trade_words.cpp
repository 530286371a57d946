// SPDX-License-Identifier: MIT
// The words of the trade, as a table.
#include "perfis/catalogues/trade_words.h"

#include <algorithm>

#include "texts/letters.h"

namespace perfis {
namespace {

struct TradeWord {
    std::wstring_view word;  ///< without the ending where that changes
    std::wstring_view first;
    std::wstring_view then{};
};

constexpr std::wstring_view kNamesOfViga = L"w hp i ipe vs cvs cs ps psm";
constexpr std::wstring_view kTuboWord = L"tubo";
constexpr std::wstring_view kVigaWord = L"viga";
constexpr std::wstring_view kCaixaWord = L"caixa";
constexpr std::wstring_view kPerfilWord = L"perfil";
/// How a shape is made; the beginning that all endings share.
constexpr std::wstring_view kDobrado = L"dobrad";
constexpr std::wstring_view kLaminado = L"laminad";
constexpr std::wstring_view kSoldado = L"soldad";

constexpr TradeWord kTradeWords[] = {
    {kTuboWord, L"tc", L"tr tq"},
    {L"metalon", L"tr tq"},
    {L"retangular", L"tr", L"tq"},
    {L"quadrad", L"tq"},
    {L"redond", L"br", L"tc"},
    {L"barra", L"br"},
    {L"ferro", L"br"},
    {L"\u00F8", L"br", L"tc"},
    {L"diametro", L"br", L"tc"},
    {L"di\u00E2metro", L"br", L"tc"},
    {L"enrijecid", L"ue"},
    {L"uenr", L"ue"},
    {L"cartola", L"cr"},
    {L"\u00F4mega", L"cr"},
    {L"omega", L"cr"},
    {L"ter\u00E7a", L"ue z", L"u"},
    {L"terca", L"ue z", L"u"},
    {L"dupl", L"2u 2ue 2l 2cr"},
    {L"duas", L"2l 2u 2ue 2cr"},
    {L"dois", L"2u 2ue 2l 2cr"},
    {L"dobrad", kDobrado},
    {L"laminad", kLaminado},
    {L"soldad", kSoldado},
    {kCaixaWord, L"tq tr", L"[]"},
    {L"cantoneira", L"l"},
    {kVigaWord, kNamesOfViga},
    {kPerfilWord, kNamesOfViga, kAnyName},
};

/// The word, its plural or its beginning.
bool isCalled(std::wstring_view typed, std::wstring_view word) {
    constexpr std::size_t kShortest = 3;
    constexpr std::size_t kLongestEnding = 2;
    if (typed.size() >= kShortest && word.starts_with(typed)) return true;
    return typed.starts_with(word) && typed.size() <= word.size() + kLongestEnding;
}

}  // namespace

std::vector<NamedProfile> profilesCalled(std::wstring_view word, std::size_t numbers) {
    const auto* const entry = std::ranges::find_if(
        kTradeWords, [&](const TradeWord& w) { return isCalled(word, w.word); });
    if (entry == std::end(kTradeWords)) return {};
    std::wstring_view first = entry->first;
    std::wstring_view then = entry->then;
    if (entry->word == kTuboWord && numbers >= 3) std::swap(first, then);
    std::vector<NamedProfile> profiles;
    for (std::wstring& name : texts::trimmedParts(first, L' '))
        profiles.push_back({std::move(name), 0});
    for (std::wstring& name : texts::trimmedParts(then, L' '))
        if (!name.empty()) profiles.push_back({std::move(name), 1});
    return profiles;
}

std::wstring_view makingIn(std::wstring_view text) {
    const std::wstring small = texts::lower(text);
    for (const std::wstring_view making : {kDobrado, kLaminado, kSoldado})
        if (small.find(making) != std::wstring::npos) return making;
    return {};
}

bool isMaking(std::wstring_view word) {
    return word == kDobrado || word == kLaminado || word == kSoldado;
}

bool isGeneral(std::wstring_view word) { return isCalled(word, kVigaWord) || saysNothing(word); }
bool isCaixa(std::wstring_view word) { return isCalled(word, kCaixaWord); }
bool saysNothing(std::wstring_view word) { return isCalled(word, kPerfilWord); }

}  // namespace perfis
