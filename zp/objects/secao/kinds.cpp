// SPDX-License-Identifier: MIT
// What is read from the table of section classes.
#include <algorithm>

#include "zp/objects/secao/table.h"

namespace zp::secao {
namespace {

using enum Papel;

/// A class in another's place does not compile, nor does one without its row.
constexpr bool emOrdem() {
    for (std::size_t i = 0; i < kTabela.size(); ++i)
        if (static_cast<std::size_t>(kTabela[i].classe) != i) return false;
    return true;
}
static_assert(emOrdem());

}  // namespace

const Descricao& descricao(Classe classe) { return linha(classe); }

const Papeis* papeisDe(Classe classe, int pontos, int valores) {
    const Descricao& d = descricao(classe);
    for (const Papeis& p : pontos == 2 ? d.doisPontos : d.umPonto)
        if (valores > 0 && quantos(p) == valores) return &p;
    return nullptr;
}

int lugarDe(const Papeis* papeis, Papel papel) {
    if (papeis == nullptr) return -1;
    const auto lugar = std::ranges::find(*papeis, papel);
    return lugar != papeis->end() ? static_cast<int>(lugar - papeis->begin()) : -1;
}

Dados dadosDe(Classe classe, int pontos, std::span<const double> valores) {
    Dados dados;
    const Papeis* papeis = papeisDe(classe, pontos, static_cast<int>(valores.size()));
    if (papeis == nullptr) return dados;
    for (std::size_t i = 0; i < valores.size(); ++i) dados[(*papeis)[i]] = valores[i];
    dados[Zero] = 0.0;
    const Descricao& d = descricao(classe);
    dados.variante = papeis == &d.umPonto[1] || papeis == &d.doisPontos[1] ? 1 : 0;
    return dados;
}

int potencia(Papel papel) {
    switch (papel) {
        case Ang1:
        case Ang2:
        case Especie:
        case Tipo:
        case Giro:
        case Rot1:
        case Rot2:
        case Zero:
        case Fim:
            return 0;
        case M:
        case A:
            return 2;
        default:
            return 1;
    }
}

}  // namespace zp::secao
