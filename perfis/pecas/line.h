// SPDX-License-Identifier: MIT
// A piece as one line of text: its words.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace perfis {

/// "Ue 200x75x20x2,65 L=6000 n=4 cotas": what stands before an equals sign is a key, in small
/// letters here; all else but the two single words is the designation.
struct PecaLine {
    std::wstring designation;
    std::map<std::wstring, std::wstring> values;  ///< by key
    bool cotas = false;
    bool lista = false;

    /// The text of a key; null where the line does not have it.
    const std::wstring* find(const std::wstring& key) const {
        const auto found = values.find(key);
        return found == values.end() ? nullptr : &found->second;
    }
};

/// Reads a line. What is wrong with it for the user; empty when nothing is. Values in quotation
/// marks may hold blanks. Of "l=" and "L=" in one line the small one is the width of a box, as its
/// name has it.
std::wstring readLine(std::wstring_view text, PecaLine& line);
/// Adds one value, as if "key=value" stood in the line; `key` in any letters.
std::wstring addValue(PecaLine& line, const std::wstring& key, const std::wstring& value);

/// In small letters without marks: "Peça" is "peca".
std::wstring plainWord(std::wstring_view word);
/// True for what may stand before an equals sign.
bool isKey(const std::wstring& lowerCase);
/// "Não sei o que é "listas"; a palavra mais próxima é lista.", among keys, single words and
/// `others`.
std::wstring unknownWord(const std::wstring& word, const std::vector<std::wstring>& others = {});
/// The nearest of them by letters to be changed; empty when none comes near.
std::wstring nearestWord(const std::wstring& word, const std::vector<std::wstring>& known);

}  // namespace perfis
