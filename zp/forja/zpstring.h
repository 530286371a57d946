// SPDX-License-Identifier: MIT
// Wide text with value semantics.
#pragma once

#include <string>

class ZpStringList;

class ZpString {
public:
    ZpString() = default;
    /// Null counts as empty.
    ZpString(const wchar_t* texto);
    ZpString(std::wstring texto) : m_texto(std::move(texto)) {}
    explicit ZpString(int numero);
    /// At most six decimals, no trailing zeros, decimal point.
    explicit ZpString(double numero);

    operator const wchar_t*() const { return m_texto.c_str(); }
    const wchar_t* c_str() const { return m_texto.c_str(); }
    const std::wstring& str() const { return m_texto; }
    int length() const { return static_cast<int>(m_texto.size()); }
    bool isEmpty() const { return m_texto.empty(); }

    ZpString& operator+=(const ZpString& outro);
    friend ZpString operator+(const ZpString& a, const ZpString& b) {
        return ZpString(a.m_texto + b.m_texto);
    }
    friend ZpString operator+(const ZpString& a, const wchar_t* b) { return a + ZpString(b); }
    friend ZpString operator+(const wchar_t* a, const ZpString& b) { return ZpString(a) + b; }
    friend bool operator==(const ZpString& a, const ZpString& b) { return a.m_texto == b.m_texto; }
    friend bool operator!=(const ZpString& a, const ZpString& b) { return a.m_texto != b.m_texto; }

    /// Leading number of the text with a decimal point, whatever the locale; 0 when there is none.
    double toDouble() const;

    /// Pieces between the separators; two separators in a row enclose an empty piece. An empty text
    /// gives one empty piece.
    ZpStringList Separate(const wchar_t* separador) const;
    /// Cuts the text at the first character that is one of `conjunto`.
    void CloseInChar(const wchar_t* conjunto);

private:
    std::wstring m_texto;
};
