// SPDX-License-Identifier: MIT
// List of texts.
#pragma once

#include <vector>

#include "zp/forja/zpstring.h"

class ZpStringList {
public:
    void append(const ZpString& texto) { m_itens.push_back(texto); }
    void clear() { m_itens.clear(); }
    int length() const { return static_cast<int>(m_itens.size()); }
    bool contains(const ZpString& texto) const { return index(texto) >= 0; }
    /// Position of the first equal text, -1 when there is none.
    int index(const ZpString& texto) const;
    /// The element at a position; an empty text outside the list.
    const ZpString& at(int posicao) const;
    const ZpString& operator[](int posicao) const { return at(posicao); }
    /// Nothing happens outside the list.
    void setAt(int posicao, const ZpString& texto);
    void removeAt(int posicao);

private:
    std::vector<ZpString> m_itens;
};
