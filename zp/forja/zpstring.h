// SPDX-License-Identifier: MIT
// Wide text with value semantics.
#pragma once

#include <string>

class ZpStringList;

class ZpString {
public:
    ZpString() = default;
    /// Null counts as empty.
    ZpString(const wchar_t* text);
    ZpString(std::wstring text) : m_text(std::move(text)) {}
    explicit ZpString(int number);
    /// At most six decimals, no trailing zeros, decimal point.
    explicit ZpString(double number);

    operator const wchar_t*() const { return m_text.c_str(); }
    const wchar_t* c_str() const { return m_text.c_str(); }
    const std::wstring& str() const { return m_text; }
    int length() const { return static_cast<int>(m_text.size()); }
    bool isEmpty() const { return m_text.empty(); }

    ZpString& operator+=(const ZpString& other);
    friend ZpString operator+(const ZpString& a, const ZpString& b) {
        return ZpString(a.m_text + b.m_text);
    }
    friend ZpString operator+(const ZpString& a, const wchar_t* b) { return a + ZpString(b); }
    friend ZpString operator+(const wchar_t* a, const ZpString& b) { return ZpString(a) + b; }
    friend bool operator==(const ZpString& a, const ZpString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const ZpString& a, const ZpString& b) { return a.m_text != b.m_text; }

    /// Leading number of the text with a decimal point, whatever the locale; 0 when there is none.
    double toDouble() const;

    /// Pieces between the separators; two separators in a row enclose an empty piece. An empty text
    /// gives one empty piece.
    ZpStringList Separate(const wchar_t* separator) const;
    /// Cuts the text at the first character that is one of `set`.
    void CloseInChar(const wchar_t* set);

private:
    std::wstring m_text;
};
