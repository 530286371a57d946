// SPDX-License-Identifier: MIT
// Wide text: numbers without a locale, cutting at separators.
#include "zp/forja/zpstring.h"

#include <charconv>
#include <cmath>
#include <cwchar>
#include <limits>

#include "zp/forja/zpstringlist.h"

namespace {

/// The number's leading characters as bytes: only ASCII can be part of one.
std::string comecoDoNumero(const std::wstring& texto) {
    std::string bytes;
    std::size_t i = texto.find_first_not_of(L" \t\r\n");
    if (i == std::wstring::npos) return bytes;
    if (texto[i] == L'+') ++i;
    for (; i < texto.size() && texto[i] < 0x80; ++i) bytes += static_cast<char>(texto[i]);
    return bytes;
}

}  // namespace

ZpString::ZpString(const wchar_t* texto) : m_texto(texto != nullptr ? texto : L"") {}

ZpString::ZpString(int numero) : m_texto(std::to_wstring(numero)) {}

ZpString::ZpString(double numero) : m_texto(L"0") {
    if (!std::isfinite(numero)) return;
    char bytes[340];  // the largest double has 309 digits before the point
    const auto fim =
        std::to_chars(bytes, bytes + sizeof bytes, numero, std::chars_format::fixed, 6).ptr;
    std::string texto(bytes, fim);
    texto.erase(texto.find_last_not_of('0') + 1);
    if (texto.back() == '.') texto.pop_back();
    if (texto == "-0") texto = "0";
    m_texto.assign(texto.begin(), texto.end());
}

ZpString& ZpString::operator+=(const ZpString& outro) {
    m_texto += outro.m_texto;
    return *this;
}

double ZpString::toDouble() const {
    const std::string bytes = comecoDoNumero(m_texto);
    double valor = 0.0;
    const auto lido = std::from_chars(bytes.data(), bytes.data() + bytes.size(), valor);
    return lido.ec == std::errc() && std::isfinite(valor) ? valor : 0.0;
}

int ZpString::toInt() const {
    const std::string bytes = comecoDoNumero(m_texto);
    int valor = 0;
    const auto lido = std::from_chars(bytes.data(), bytes.data() + bytes.size(), valor);
    return lido.ec == std::errc() ? valor : 0;
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
