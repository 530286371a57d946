// SPDX-License-Identifier: MIT
// LISTAMATERIAL: table, spreadsheet files, new list, rows of erased pieces.
#include <algorithm>
#include <array>
#include <iterator>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/table.h"

namespace zp::lista {
namespace {

/// Words of the command's question. Behind those of the table come the file formats'.
constexpr std::array kTabela{L"Tabela", L"Table"};
constexpr std::array kNova{L"Nova", L"New"};
constexpr std::array kLimpar{L"Limpar", L"Purge"};

/// What the command is to do, by the word in the user's language; empty: nothing.
std::wstring perguntaAcao() {
    std::wstring local, global;
    const auto poe = [&](const wchar_t* daqui, const wchar_t* deFora) {
        local += (local.empty() ? L"" : L" ") + std::wstring(daqui);
        global += (global.empty() ? L"" : L" ") + std::wstring(deFora);
    };
    poe(kTabela[0], kTabela[1]);
    for (const Format& f : kFormatTable) poe(f.shown.word, f.shown.word);
    poe(kNova[0], kNova[1]);
    poe(kLimpar[0], kLimpar[1]);
    std::wstring opcoes = local;
    std::ranges::replace(opcoes, L' ', L'/');
    acedInitGet(0, (local + L" _" + global).c_str());
    ACHAR palavra[133] = L"";
    const int status = acedGetKword(
        (L"\nLista de material [" + opcoes + L"] <" + kTabela[0] + L">: ").c_str(), palavra);
    if (status == RTNONE) return kTabela[0];
    if (status != RTNORM) return {};
    const std::wstring_view escolha = palavra;
    for (const auto& palavras : {kTabela, kNova, kLimpar})
        if (escolha == palavras[1]) return palavras[0];
    return palavra;
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
    return texts::equalIgnoringCase(texts::shown(arquivo.extension()), extensao);
}

/// File to write, its whole path; asks before one that exists is replaced. Nothing when the user
/// declined or the name cannot have come whole.
std::optional<std::filesystem::path> perguntaDestino(const wchar_t* pergunta,
                                                     const wchar_t* extensao) {
    for (;;) {
        ACHAR nome[133] = L"";
        if (acedGetString(1, pergunta, nome) != RTNORM || *nome == L'\0') return {};
        const std::wstring caminho = nome;
        // A longer answer is cut there, and would name another file.
        if (caminho.size() >= std::size(nome) - 1) {
            acutPrintf(
                L"\nO caminho passa de 131 caracteres; nada foi gravado. Informe um mais curto.\n");
            return {};
        }
        std::filesystem::path destino = texts::pathOf(caminho);
        if (!temExtensao(destino, extensao)) destino += extensao;
        std::error_code erro;  // what cannot be asked cannot be written either, and that is told
        const std::filesystem::path inteiro = std::filesystem::absolute(destino, erro);
        if (!erro) destino = inteiro;
        if (!std::filesystem::is_regular_file(destino, erro)) return destino;
        const Resposta troca = confirma(
            L"\n" + texts::shown(destino) + L" já existe. Deseja substituí-lo?", Resposta::Nao);
        if (troca == Resposta::Sim) return destino;
        if (troca == Resposta::Desiste) return {};
    }
}

void exporta(const Lista& lista, const Format& formato) {
    if (formato.write == nullptr) {
        acutPrintf(L"\nEsta versão do programa não grava planilhas %ls; use a opção CSV.\n",
                   formato.shown.name);
        return;
    }
    const std::optional<std::filesystem::path> destino =
        perguntaDestino((L"\nArquivo " + std::wstring(formato.shown.name) + L": ").c_str(),
                        (L"." + std::wstring(formato.shown.extension)).c_str());
    if (!destino) return;
    if (formato.write(*destino, linhas(lista.id)))
        acutPrintf(L"\nLista gravada em %ls.\n", texts::shown(*destino).c_str());
    else
        acutPrintf(L"\nNão foi possível gravar %ls; verifique a pasta e a permissão.\n",
                   texts::shown(*destino).c_str());
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
    const std::wstring acao = perguntaAcao();
    if (acao.empty()) return;
    if (acao == kNova[0]) {
        if (const auto lista = nova(*desenho, L"Perfil"))
            acutPrintf(L"\nLista de material %d criada.\n", lista->numero);
        return;
    }
    const std::optional<Lista> lista = escolhe(*desenho);
    if (!lista) return;
    descreveDeNovo(lista->id);
    if (acao == kLimpar[0]) {
        limpa(*lista);
        return;
    }
    const auto formato =
        std::ranges::find_if(kFormatTable, [&](const Format& f) { return acao == f.shown.word; });
    if (formato != kFormatTable.end())
        exporta(*lista, *formato);
    else
        tabela(*lista);
    avisaApagadas(*lista);
}

}  // namespace zp::lista
