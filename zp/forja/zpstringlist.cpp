// SPDX-License-Identifier: MIT
// List of texts.
#include "zp/forja/zpstringlist.h"

#include <algorithm>

int ZpStringList::index(const ZpString& texto) const {
    const auto achado = std::find(m_itens.begin(), m_itens.end(), texto);
    return achado == m_itens.end() ? -1 : static_cast<int>(achado - m_itens.begin());
}

const ZpString& ZpStringList::at(int posicao) const {
    static const ZpString kVazio;
    return posicao >= 0 && posicao < length() ? m_itens[static_cast<std::size_t>(posicao)] : kVazio;
}

void ZpStringList::setAt(int posicao, const ZpString& texto) {
    if (posicao >= 0 && posicao < length()) m_itens[static_cast<std::size_t>(posicao)] = texto;
}

void ZpStringList::removeAt(int posicao) {
    if (posicao >= 0 && posicao < length()) m_itens.erase(m_itens.begin() + posicao);
}
