// SPDX-License-Identifier: MIT
// Pieces as short texts, for hosts that keep such a copy beside their pictures.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zp::copies {

/// Words of a text with blanks between them: whole numbers, reals to 1e-8, and texts, which begin
/// with a quotation mark and have letters that a program might change by their numbers. Several
/// zeros in a row are one word, "0*4"; round angles are told in degrees, "90d".
class WordWriter {
public:
    void integer(int v);
    void real(double v);
    void text(std::wstring_view t);
    /// All of them, once nothing more comes.
    std::wstring words();

private:
    void add(std::wstring_view word);
    std::wstring m_words;
    int m_zeros = 0;  ///< not written yet
};

/// False where a word is missing or is of another kind.
class WordReader {
public:
    explicit WordReader(std::wstring_view words) : m_rest(words) {}
    bool integer(int& v);
    bool real(double& v);
    bool text(std::wstring& t);

private:
    std::wstring_view next();
    std::wstring_view m_rest;
    int m_zeros = 0;  ///< still to come of those that one word is for
};

/// Mark of the row that the piece with this text stood in; empty when there was none.
std::wstring marcaIn(std::wstring_view text);

/// Attaches it to the class of all pieces, and takes it away again.
void install();
void uninstall();

}  // namespace zp::copies
