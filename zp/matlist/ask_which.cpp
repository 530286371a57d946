// SPDX-License-Identifier: MIT
// Which of a drawing's material lists.
#include "zp/matlist/ask_which.h"

#include <algorithm>

#include "acedads.h"

namespace zp::lista {
namespace {

int g_ultima = 0;

}  // namespace

void esqueceUltima() { g_ultima = 0; }

std::optional<Lista> pergunta(const std::vector<Lista>& todas) {
    if (todas.empty()) return {};
    const auto aceita = [](const Lista& lista) {
        g_ultima = lista.numero;
        return lista;
    };
    if (todas.size() == 1) return aceita(todas.front());
    const auto deNumero = [&](int numero) {
        return std::find_if(todas.begin(), todas.end(),
                            [=](const Lista& l) { return l.numero == numero; });
    };
    const auto ultima = deNumero(g_ultima) != todas.end() ? deNumero(g_ultima) : todas.end() - 1;
    const std::wstring mensagem =
        L"\nLista de material <" + std::to_wstring(ultima->numero) + L">: ";
    for (;;) {
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        int numero = 0;
        const int status = acedGetInt(mensagem.c_str(), &numero);
        if (status == RTNONE) return aceita(*ultima);
        if (status != RTNORM) return {};
        if (const auto achada = deNumero(numero); achada != todas.end()) return aceita(*achada);
        acutPrintf(L"\nNão há lista de material com este número.\n");
    }
}

}  // namespace zp::lista
