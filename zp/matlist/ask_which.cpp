// SPDX-License-Identifier: MIT
// Which of a drawing's material lists.
#include "zp/matlist/ask_which.h"

#include <algorithm>

#include "acedads.h"

namespace zp::lista {
namespace {

int g_last = 0;

}  // namespace

void forgetLast() { g_last = 0; }

std::optional<Lista> pergunta(const std::vector<Lista>& all) {
    if (all.empty()) return {};
    const auto aceita = [](const Lista& lista) {
        g_last = lista.numero;
        return lista;
    };
    if (all.size() == 1) return aceita(all.front());
    const auto numbered = [&](int numero) {
        return std::find_if(all.begin(), all.end(),
                            [=](const Lista& l) { return l.numero == numero; });
    };
    const auto last = numbered(g_last) != all.end() ? numbered(g_last) : all.end() - 1;
    const std::wstring mensagem = L"\nLista de material <" + std::to_wstring(last->numero) + L">: ";
    for (;;) {
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        int numero = 0;
        const int status = acedGetInt(mensagem.c_str(), &numero);
        if (status == RTNONE) return aceita(*last);
        if (status != RTNORM) return {};
        if (const auto achada = numbered(numero); achada != all.end()) return aceita(*achada);
        acutPrintf(L"\nNão há lista de material com este número.\n");
    }
}

}  // namespace zp::lista
