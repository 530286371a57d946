// SPDX-License-Identifier: MIT
// LISTAMATERIAL: table, spreadsheet files, new list, rows of erased pieces, columns.
#include <algorithm>
#include <array>
#include <iterator>

#include "acedads.h"
#include "dbapserv.h"
#include "perfis/entities/zpfuncoes.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/sheet_edge.h"
#include "zp/matlist/table.h"

namespace zp::matlist {
namespace {

/// Words of the command's question. Behind those of the table come the file formats'.
constexpr std::array kTable{L"Tabela", kDrawWord};
constexpr std::array kNewList{L"Nova", L"New"};
constexpr std::array kPurge{L"Limpar", L"Purge"};
constexpr std::array kChooseColumns{L"cOlunas", L"cOlumns"};

/// What the command is to do, by the word in the user's language; empty: nothing.
std::wstring askAction() {
    std::vector<Option> options{{kTable[0], kTable[1]}};
    for (const Format& f : kFormatTable) options.push_back({f.shown.word, f.shown.word});
    for (const auto& words : {kNewList, kPurge, kChooseColumns})
        options.push_back({words[0], words[1]});
    const std::optional<std::size_t> chosen = askOption(L"\nLista de material", options, 0);
    return chosen ? options[*chosen].local : std::wstring();
}

void draw(const MaterialList& list) {
    if (!drawTable(list)) return protocol::fail(L"A tabela não pôde ser desenhada.");
    if (passesSheet(list))
        acutPrintf(
            L"\nA tabela passa da borda da folha; mova-a, tire colunas (LISTAMATERIAL cOlunas) "
            L"ou tome uma folha maior.\n");
}

void table(MaterialList list) {
    // A table that stands keeps its place; a new one is asked for, the offered point being where
    // the list began.
    if (!hasTable(list.header)) {
        AcGePoint3d point;
        const int status =
            getWCSpoint(point, L"\nCanto superior esquerdo da tabela <junto à primeira peça>: ");
        if (status == RTCAN) return;
        if (status == RTNORM) {
            list.header.point = point;
            if (!writeHeader(list.id, list.header)) return;
        }
    }
    draw(list);
}

void exportTo(const MaterialList& list, const Format& format) {
    if (format.write == nullptr) {
        protocol::fail(L"Esta versão do programa não grava planilhas " +
                       std::wstring(format.shown.name) + L"; use a opção CSV.");
        return;
    }
    const std::optional<std::filesystem::path> destination =
        askDestination((L"\nArquivo " + std::wstring(format.shown.name) + L": ").c_str(),
                       {(L"." + std::wstring(format.shown.extension)).c_str()});
    if (!destination) return;
    const bool plan = namesPlan(*destination);
    if (plan ? writePlan(*destination, rows(list.id)) : format.write(*destination, listingOf(list)))
        acutPrintf(L"\n%ls em %ls.\n", plan ? L"Plano de corte gravado" : L"Lista gravada",
                   texts::shown(*destination).c_str());
    else
        protocol::fail(L"Não foi possível gravar " + texts::shown(*destination) +
                       L"; verifique a pasta e a permissão.");
}

int erasedCount(const MaterialList& list) {
    const std::vector<Linha> all = rows(list.id);
    return static_cast<int>(std::count_if(all.begin(), all.end(), erased));
}

void tellErased(const MaterialList& list) {
    if (const int n = erasedCount(list); n > 0)
        acutPrintf(
            L"\nLinhas de peças ou marcas apagadas, fora dos totais: %d. A opção Limpar as "
            L"retira.\n",
            n);
}

void purge(const MaterialList& list) {
    const int n = erasedCount(list);
    if (n == 0) {
        acutPrintf(L"\nNenhuma linha de peça ou marca apagada.\n");
        return;
    }
    for (const Linha& l : rows(list.id))
        if (erased(l))
            acutPrintf(L"\n%ls: %ls, %ls", l.marca.c_str(), designationOf(l).c_str(),
                       observacaoOf(l).c_str());
    const std::wstring question = L"\nRetirar da lista (linhas: " + std::to_wstring(n) + L")";
    if (confirm(question, Answer::Yes) != Answer::Yes) return;
    acutPrintf(L"\nLinhas retiradas: %d.\n", removeErased(list.id));
    if (hasTable(list.header)) draw(list);
}

/// Columns as typed, asked again until they can be shown; empty keys are the usual ones, nothing
/// that the user declined.
std::optional<std::wstring> askColumns() {
    for (;;) {
        ACHAR keys[133] = L"";
        const int status =
            acedGetString(1, L"\nColunas (chaves separadas por vírgula) ou <padrão>: ", keys);
        if (status == RTCAN) return {};
        if (status != RTNORM || texts::trimmed(keys).empty()) return std::wstring();
        // A longer answer is cut there.
        const Choice choice = std::wstring_view(keys).size() < std::size(keys) - 1
                                  ? chooseColumns(keys)
                                  : Choice{{}, L"A resposta passa de 131 caracteres."};
        if (choice.fault.empty()) return keysOf(choice.columns);
        protocol::refuse(choice.fault);
    }
}

void changeColumns(MaterialList list) {
    acutPrintf(L"\nColunas: %ls\n", keysOf(columnsOf(list.header)).c_str());
    const std::optional<std::wstring> keys = askColumns();
    if (!keys) return;
    list.header.columns = *keys == keysOf(usualColumns()) ? L"" : *keys;
    if (!writeHeader(list.id, list.header)) {
        protocol::fail(L"As colunas não puderam ser gravadas.");
        return;
    }
    if (hasTable(list.header)) draw(list);
}

}  // namespace

void materialListCommand() {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const std::wstring action = askAction();
    if (action.empty()) return;
    if (action == kNewList[0]) {
        if (const auto list = newList(*drawing, L"Perfil")) {
            offerNext(list->number);
            acutPrintf(L"\nLista de material %d criada.\n", list->number);
        }
        return;
    }
    const std::optional<MaterialList> list = chooseList(*drawing);
    if (!list) return;
    if (action == kPurge[0]) {
        purge(*list);
        return;
    }
    if (action == kChooseColumns[0]) {
        changeColumns(*list);
        return;
    }
    const auto format =
        std::ranges::find_if(kFormatTable, [&](const Format& f) { return action == f.shown.word; });
    if (format != kFormatTable.end())
        exportTo(*list, *format);
    else
        table(*list);
    tellErased(*list);
}

}  // namespace zp::matlist
