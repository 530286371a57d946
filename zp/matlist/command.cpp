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
constexpr std::array kNewList{L"Nova", L"New"};
constexpr std::array kPurge{L"Limpar", L"Purge"};

/// What the command is to do, by the word in the user's language; empty: nothing.
std::wstring askAction() {
    std::wstring local, global;
    const auto poe = [&](const wchar_t* daqui, const wchar_t* deFora) {
        local += (local.empty() ? L"" : L" ") + std::wstring(daqui);
        global += (global.empty() ? L"" : L" ") + std::wstring(deFora);
    };
    poe(kTabela[0], kTabela[1]);
    for (const Format& f : kFormatTable) poe(f.shown.word, f.shown.word);
    poe(kNewList[0], kNewList[1]);
    poe(kPurge[0], kPurge[1]);
    std::wstring opcoes = local;
    std::ranges::replace(opcoes, L' ', L'/');
    acedInitGet(0, (local + L" _" + global).c_str());
    ACHAR palavra[133] = L"";
    const int status = acedGetKword(
        (L"\nLista de material [" + opcoes + L"] <" + kTabela[0] + L">: ").c_str(), palavra);
    if (status == RTNONE) return kTabela[0];
    if (status != RTNORM) return {};
    const std::wstring_view escolha = palavra;
    for (const auto& palavras : {kTabela, kNewList, kPurge})
        if (escolha == palavras[1]) return palavras[0];
    return palavra;
}

/// The list to work on; nothing when there is none or the user declined.
std::optional<Lista> escolhe(AcDbDatabase& desenho) {
    const std::vector<Lista> all = listas(desenho);
    if (all.empty()) {
        acutPrintf(L"\nO desenho não tem lista de material.\n");
        return {};
    }
    if (all.size() > 1)
        for (const Lista& l : all) acutPrintf(L"\n%d: %ls", l.numero, l.header.grupo.c_str());
    return pergunta(all);
}

void tabela(Lista lista) {
    // A table that stands keeps its place; a new one is asked for, the offered point being where
    // the list began.
    if (!hasTable(lista.header)) {
        AcGePoint3d ponto;
        const int status =
            getWCSpoint(ponto, L"\nCanto superior esquerdo da tabela <junto à primeira peça>: ");
        if (status == RTCAN) return;
        if (status == RTNORM) {
            lista.header.ponto = ponto;
            if (!writeHeader(lista.id, lista.header)) return;
        }
    }
    if (!drawTable(lista)) acutPrintf(L"\nA tabela não pôde ser desenhada.\n");
}

enum class Answer { Sim, No, GiveUp };

/// [Sim/Não]; Enter takes what is offered.
Answer confirm(const std::wstring& pergunta, Answer offered) {
    acedInitGet(0, L"Sim Não _Yes No");
    ACHAR palavra[133] = L"";
    const std::wstring padrao = offered == Answer::Sim ? L"Sim" : L"Não";
    const int status =
        acedGetKword((pergunta + L" [Sim/Não] <" + padrao + L">: ").c_str(), palavra);
    if (status == RTNONE) return offered;
    if (status != RTNORM) return Answer::GiveUp;
    const std::wstring escolha = palavra;
    return escolha == L"Yes" || escolha == L"Sim" ? Answer::Sim : Answer::No;
}

bool hasExtension(const std::filesystem::path& arquivo, const wchar_t* extensao) {
    return texts::equalIgnoringCase(texts::shown(arquivo.extension()), extensao);
}

/// File to write, its whole path; asks before one that exists is replaced. Nothing when the user
/// declined or the name cannot have come whole.
std::optional<std::filesystem::path> askDestination(const wchar_t* pergunta,
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
        if (!hasExtension(destino, extensao)) destino += extensao;
        std::error_code erro;  // what cannot be asked cannot be written either, and that is told
        const std::filesystem::path inteiro = std::filesystem::absolute(destino, erro);
        if (!erro) destino = inteiro;
        if (!std::filesystem::is_regular_file(destino, erro)) return destino;
        const Answer troca = confirm(
            L"\n" + texts::shown(destino) + L" já existe. Deseja substituí-lo?", Answer::No);
        if (troca == Answer::Sim) return destino;
        if (troca == Answer::GiveUp) return {};
    }
}

void exportTo(const Lista& lista, const Format& formato) {
    if (formato.write == nullptr) {
        acutPrintf(L"\nEsta versão do programa não grava planilhas %ls; use a opção CSV.\n",
                   formato.shown.name);
        return;
    }
    const std::optional<std::filesystem::path> destino =
        askDestination((L"\nArquivo " + std::wstring(formato.shown.name) + L": ").c_str(),
                       (L"." + std::wstring(formato.shown.extension)).c_str());
    if (!destino) return;
    if (formato.write(*destino, linhas(lista.id)))
        acutPrintf(L"\nLista gravada em %ls.\n", texts::shown(*destino).c_str());
    else
        acutPrintf(L"\nNão foi possível gravar %ls; verifique a pasta e a permissão.\n",
                   texts::shown(*destino).c_str());
}

int erasedCount(const Lista& lista) {
    const std::vector<Linha> all = linhas(lista.id);
    return static_cast<int>(std::count_if(all.begin(), all.end(), apagada));
}

void tellErased(const Lista& lista) {
    if (const int n = erasedCount(lista); n > 0)
        acutPrintf(
            L"\nLinhas de peças ou marcas apagadas, fora dos totais: %d. A opção Limpar as "
            L"retira.\n",
            n);
}

void purge(const Lista& lista) {
    const int n = erasedCount(lista);
    if (n == 0) {
        acutPrintf(L"\nNenhuma linha de peça ou marca apagada.\n");
        return;
    }
    for (const Linha& l : linhas(lista.id))
        if (apagada(l))
            acutPrintf(L"\n%ls: %ls %ls, %ls", l.marca.c_str(), l.descricao.c_str(),
                       l.dimensoes.c_str(), observacaoOf(l).c_str());
    const std::wstring pergunta = L"\nRetirar da lista (linhas: " + std::to_wstring(n) + L")";
    if (confirm(pergunta, Answer::Sim) != Answer::Sim) return;
    acutPrintf(L"\nLinhas retiradas: %d.\n", removeErased(lista.id));
    if (hasTable(lista.header)) (void)drawTable(lista);
}

}  // namespace

void materialListCommand() {
    AcDbDatabase* desenho = acdbHostApplicationServices()->workingDatabase();
    if (desenho == nullptr) return;
    const std::wstring acao = askAction();
    if (acao.empty()) return;
    if (acao == kNewList[0]) {
        if (const auto lista = nova(*desenho, L"Perfil"))
            acutPrintf(L"\nLista de material %d criada.\n", lista->numero);
        return;
    }
    const std::optional<Lista> lista = escolhe(*desenho);
    if (!lista) return;
    describeAgain(lista->id);
    if (acao == kPurge[0]) {
        purge(*lista);
        return;
    }
    const auto formato =
        std::ranges::find_if(kFormatTable, [&](const Format& f) { return acao == f.shown.word; });
    if (formato != kFormatTable.end())
        exportTo(*lista, *formato);
    else
        tabela(*lista);
    tellErased(*lista);
}

}  // namespace zp::lista
