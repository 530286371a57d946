// SPDX-License-Identifier: MIT
// LISTAMATERIAL: table, spreadsheet files, new list, rows of erased pieces.
#include <algorithm>
#include <iterator>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/acompanha.h"
#include "zp/matlist/pergunta.h"
#include "zp/matlist/tabela.h"

namespace zp::lista {
namespace {

enum class Acao { Tabela, Csv, Xlsx, Nova, Limpar, Nenhuma };

Acao perguntaAcao() {
    acedInitGet(0, L"Tabela Csv Xlsx Nova Limpar _Table Csv Xlsx New Purge");
    ACHAR palavra[133] = L"";
    const int status =
        acedGetKword(L"\nLista de material [Tabela/Csv/Xlsx/Nova/Limpar] <Tabela>: ", palavra);
    if (status == RTNONE) return Acao::Tabela;
    if (status != RTNORM) return Acao::Nenhuma;
    const std::wstring escolha = palavra;
    if (escolha == L"Csv") return Acao::Csv;
    if (escolha == L"Xlsx") return Acao::Xlsx;
    if (escolha == L"Purge" || escolha == L"Limpar") return Acao::Limpar;
    return escolha == L"New" || escolha == L"Nova" ? Acao::Nova : Acao::Tabela;
}

/// The list to work on; nothing when there is none or the user declined.
std::optional<Lista> escolhe(AcDbDatabase& desenho) {
    const std::vector<Lista> todas = listas(desenho);
    if (todas.empty()) {
        acutPrintf(L"\nO desenho não tem lista de material.\n");
        return {};
    }
    if (todas.size() > 1)
        for (const Lista& l : todas) acutPrintf(L"\n%d: %ls", l.numero, l.cabecalho.grupo.c_str());
    return pergunta(todas);
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
    if (!desenhaTabela(lista)) acutPrintf(L"\nA tabela não pôde ser desenhada.\n");
}

enum class Resposta { Sim, Nao, Desiste };

/// [Sim/Não]; Enter takes what is offered.
Resposta confirma(const std::wstring& pergunta, Resposta oferecida) {
    acedInitGet(0, L"Sim Não _Yes No");
    ACHAR palavra[133] = L"";
    const std::wstring padrao = oferecida == Resposta::Sim ? L"Sim" : L"Não";
    const int status =
        acedGetKword((pergunta + L" [Sim/Não] <" + padrao + L">: ").c_str(), palavra);
    if (status == RTNONE) return oferecida;
    if (status != RTNORM) return Resposta::Desiste;
    const std::wstring escolha = palavra;
    return escolha == L"Yes" || escolha == L"Sim" ? Resposta::Sim : Resposta::Nao;
}

bool temExtensao(const std::filesystem::path& arquivo, const wchar_t* extensao) {
    std::wstring tem = textoDe(arquivo.extension());
    for (wchar_t& c : tem)
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    return tem == extensao;
}

/// File to write, its whole path; asks before one that exists is replaced. Nothing when the user
/// declined or the name cannot have come whole.
std::optional<std::filesystem::path> perguntaDestino(const wchar_t* pergunta,
                                                     const wchar_t* extensao) {
    for (;;) {
        ACHAR nome[133] = L"";
        if (acedGetString(1, pergunta, nome) != RTNORM || *nome == L'\0') return {};
        std::wstring caminho = nome;
        // A longer answer is cut there, and would name another file.
        if (caminho.size() >= std::size(nome) - 1) {
            acutPrintf(
                L"\nO caminho passa de 131 caracteres; nada foi gravado. Informe um mais curto.\n");
            return {};
        }
#ifndef _WIN32
        std::replace(caminho.begin(), caminho.end(), L'\\', L'/');
#endif
        std::filesystem::path destino = caminhoDe(caminho);
        if (!temExtensao(destino, extensao)) destino += extensao;
        std::error_code erro;  // what cannot be asked cannot be written either, and that is told
        const std::filesystem::path inteiro = std::filesystem::absolute(destino, erro);
        if (!erro) destino = inteiro;
        if (!std::filesystem::is_regular_file(destino, erro)) return destino;
        const Resposta troca =
            confirma(L"\n" + textoDe(destino) + L" já existe. Deseja substituí-lo?", Resposta::Nao);
        if (troca == Resposta::Sim) return destino;
        if (troca == Resposta::Desiste) return {};
    }
}

/// A file of one of the formats; `extensao` with its dot.
void exporta(const Lista& lista, const wchar_t* pergunta, const wchar_t* extensao,
             bool (*grava)(const std::filesystem::path&, const std::vector<Linha>&)) {
    const std::optional<std::filesystem::path> destino = perguntaDestino(pergunta, extensao);
    if (!destino) return;
    if (grava(*destino, linhas(lista.id)))
        acutPrintf(L"\nLista gravada em %ls.\n", textoDe(*destino).c_str());
    else
        acutPrintf(L"\nNão foi possível gravar %ls; verifique a pasta e a permissão.\n",
                   textoDe(*destino).c_str());
}

int quantasApagadas(const Lista& lista) {
    const std::vector<Linha> todas = linhas(lista.id);
    return static_cast<int>(std::count_if(todas.begin(), todas.end(), apagada));
}

void avisaApagadas(const Lista& lista) {
    if (const int n = quantasApagadas(lista); n > 0)
        acutPrintf(
            L"\nLinhas de peças ou marcas apagadas, fora dos totais: %d. A opção Limpar as "
            L"retira.\n",
            n);
}

void limpa(const Lista& lista) {
    const int n = quantasApagadas(lista);
    if (n == 0) {
        acutPrintf(L"\nNenhuma linha de peça ou marca apagada.\n");
        return;
    }
    for (const Linha& l : linhas(lista.id))
        if (apagada(l))
            acutPrintf(L"\n%ls: %ls %ls, %ls", l.marca.c_str(), l.descricao.c_str(),
                       l.dimensoes.c_str(), observacaoDe(l).c_str());
    const std::wstring pergunta = L"\nRetirar da lista (linhas: " + std::to_wstring(n) + L")";
    if (confirma(pergunta, Resposta::Sim) != Resposta::Sim) return;
    acutPrintf(L"\nLinhas retiradas: %d.\n", retiraApagadas(lista.id));
    if (temTabela(lista.cabecalho)) (void)desenhaTabela(lista);
}

}  // namespace

void comandoListaMaterial() {
    AcDbDatabase* desenho = acdbHostApplicationServices()->workingDatabase();
    if (desenho == nullptr) return;
    const Acao acao = perguntaAcao();
    if (acao == Acao::Nenhuma) return;
    if (acao == Acao::Nova) {
        if (const auto lista = nova(*desenho, L"Perfil"))
            acutPrintf(L"\nLista de material %d criada.\n", lista->numero);
        return;
    }
    const std::optional<Lista> lista = escolhe(*desenho);
    if (!lista) return;
    descreveDeNovo(lista->id);
    switch (acao) {
        case Acao::Limpar:
            limpa(*lista);
            return;
        case Acao::Csv:
            exporta(*lista, L"\nArquivo CSV: ", L".csv", gravaCsv);
            break;
        case Acao::Xlsx:
            if (!sabeXlsx()) {
                acutPrintf(
                    L"\nEsta versão do programa não grava planilhas XLSX; use a opção CSV.\n");
                return;
            }
            exporta(*lista, L"\nArquivo XLSX: ", L".xlsx", gravaXlsx);
            break;
        default:
            tabela(*lista);
    }
    avisaApagadas(*lista);
}

}  // namespace zp::lista
