// SPDX-License-Identifier: MIT
// LISTAMATERIAL: table, spreadsheet file, new list.
#include <algorithm>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/tabela.h"

namespace zp::lista {
namespace {

enum class Acao { Tabela, Csv, Nova, Nenhuma };

Acao perguntaAcao() {
    acedInitGet(0, L"Tabela Csv Nova _Table Csv New");
    ACHAR palavra[133] = L"";
    const int status = acedGetKword(L"\nLista de material [Tabela/Csv/Nova] <Tabela>: ", palavra);
    if (status == RTNONE) return Acao::Tabela;
    if (status != RTNORM) return Acao::Nenhuma;
    const std::wstring escolha = palavra;
    if (escolha == L"Csv") return Acao::Csv;
    return escolha == L"New" || escolha == L"Nova" ? Acao::Nova : Acao::Tabela;
}

/// The list to work on; nothing when there is none or the user declined.
std::optional<Lista> escolhe(AcDbDatabase& desenho) {
    const std::vector<Lista> todas = listas(desenho);
    if (todas.empty()) {
        acutPrintf(L"\nO desenho não tem lista de material.");
        return {};
    }
    if (todas.size() == 1) return todas.front();
    for (const Lista& l : todas) acutPrintf(L"\n%d: %ls", l.numero, l.cabecalho.grupo.c_str());
    int numero = todas.back().numero;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    const std::wstring mensagem = L"\nLista de material <" + std::to_wstring(numero) + L">: ";
    const int status = acedGetInt(mensagem.c_str(), &numero);
    if (status != RTNORM && status != RTNONE) return {};
    const auto achada = std::find_if(todas.begin(), todas.end(),
                                     [&](const Lista& l) { return l.numero == numero; });
    if (achada != todas.end()) return *achada;
    acutPrintf(L"\nNão há lista de material com este número.");
    return {};
}

bool temTabela(const Cabecalho& c) {
    return std::any_of(c.tabela.begin(), c.tabela.end(),
                       [](const AcDbSoftPointerId& id) { return !id.isErased(); });
}

void tabela(Lista lista) {
    // A table that stands keeps its place; a new one is asked for, the offered point being where
    // the list began.
    if (!temTabela(lista.cabecalho)) {
        AcGePoint3d ponto;
        const int status =
            getWCSpoint(ponto, L"\nCanto superior esquerdo da tabela <junto à primeira peça>: ");
        if (status == RTCAN) return;
        if (status == RTNORM) {
            lista.cabecalho.ponto = ponto;
            if (!gravaCabecalho(lista.id, lista.cabecalho)) return;
        }
    }
    if (!desenhaTabela(lista)) acutPrintf(L"\nA tabela não pôde ser desenhada.");
}

void csv(const Lista& lista) {
    ACHAR nome[133] = L"";
    if (acedGetString(1, L"\nArquivo CSV: ", nome) != RTNORM || *nome == L'\0') return;
    std::wstring caminho = nome;
#ifndef _WIN32
    std::replace(caminho.begin(), caminho.end(), L'\\', L'/');
#endif
    if (caminho.size() < 4 || caminho[caminho.size() - 4] != L'.') caminho += L".csv";
    if (gravaCsv(caminho, linhas(lista.id)))
        acutPrintf(L"\nLista gravada em %ls.", caminho.c_str());
    else
        acutPrintf(L"\nNão foi possível gravar %ls; verifique a pasta e a permissão.",
                   caminho.c_str());
}

}  // namespace

void comandoListaMaterial() {
    AcDbDatabase* desenho = acdbHostApplicationServices()->workingDatabase();
    if (desenho == nullptr) return;
    const Acao acao = perguntaAcao();
    if (acao == Acao::Nenhuma) return;
    if (acao == Acao::Nova) {
        if (const auto lista = nova(*desenho, L"Perfil"))
            acutPrintf(L"\nLista de material %d criada.", lista->numero);
        return;
    }
    const std::optional<Lista> lista = escolhe(*desenho);
    if (!lista) return;
    if (acao == Acao::Csv)
        csv(*lista);
    else
        tabela(*lista);
}

}  // namespace zp::lista
