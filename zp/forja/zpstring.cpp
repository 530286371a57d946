// SPDX-License-Identifier: MIT
// Wide text: numbers without a locale, cutting at separators.
#include "zp/forja/zpstring.h"

#include <cmath>
#include <cwchar>

#include "texts/number.h"
#include "zp/forja/zpstringlist.h"

ZpString::ZpString(const wchar_t* texto) : m_texto(texto != nullptr ? texto : L"") {}

ZpString::ZpString(int numero) : m_texto(std::to_wstring(numero)) {}

ZpString::ZpString(double numero) : m_texto(texts::withPoint(numero, 6)) {}

ZpString& ZpString::operator+=(const ZpString& outro) {
    m_texto += outro.m_texto;
    return *this;
}

double ZpString::toDouble() const {
    const double valor = texts::toReal(m_texto, texts::DecimalSign::kPoint);
    return std::isfinite(valor) ? valor : 0.0;
}

ZpStringList ZpString::Separate(const wchar_t* separador) const {
    ZpStringList pedacos;
    const std::size_t passo = separador != nullptr ? std::wcslen(separador) : 0;
    std::size_t de = 0;
    while (passo > 0) {
        const std::size_t ate = m_texto.find(separador, de);
        if (ate == std::wstring::npos) break;
        pedacos.append(m_texto.substr(de, ate - de));
        de = ate + passo;
    }
    pedacos.append(m_texto.substr(de));
    return pedacos;
}

void ZpString::CloseInChar(const wchar_t* conjunto) {
    if (conjunto == nullptr) return;
    const std::size_t onde = m_texto.find_first_of(conjunto);
    if (onde != std::wstring::npos) m_texto.erase(onde);
}
