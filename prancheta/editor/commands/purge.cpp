// SPDX-License-Identifier: MIT
// PURGE: takes away layers, blocks, styles and linetypes that nothing needs.
#include <optional>
#include <unordered_set>

#include "prancheta/base/text.h"
#include "prancheta/base/wildcard.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/record_users.h"

namespace prancheta::commands {

namespace {

struct RecordKind {
    Word word;
    AcDbObjectId (AcDbDatabase::*table)() const;
    const wchar_t* the;
    const wchar_t* one;
    const wchar_t* many;
};
constexpr RecordKind kRecordKinds[] = {
    {{L"Blocos", L"Blocks"}, &AcDbDatabase::blockTableId, L"o bloco", L"bloco", L"blocos"},
    {{L"CAmadas", L"LAyers"}, &AcDbDatabase::layerTableId, L"a camada", L"camada", L"camadas"},
    {{L"Estilos", L"STyles"},
     &AcDbDatabase::textStyleTableId,
     L"o estilo de texto",
     L"estilo de texto",
     L"estilos de texto"},
    {{L"Tipos", L"LTypes"},
     &AcDbDatabase::linetypeTableId,
     L"o tipo de linha",
     L"tipo de linha",
     L"tipos de linha"},
    {{L"cOtas", L"Dimstyles"},
     &AcDbDatabase::dimStyleTableId,
     L"o estilo de cota",
     L"estilo de cota",
     L"estilos de cota"},
};
constexpr Word kAllKinds = {L"TUdo", L"All"};

/// What the writers of dimensions count on without naming it.
constexpr const wchar_t* kPointsLayer = L"Defpoints";

struct Purge {
    RecordUsers users;
    std::wstring which;  ///< global word
    std::wstring names = L"*";
    bool confirms = true;
    std::unordered_set<AcDbStub*> kept;  ///< that the user wants, or that refused
    std::size_t counts[std::size(kRecordKinds)] = {};
};

bool mayGo(const Purge& purge, AcDbObjectId id) {
    const std::wstring name = ObjectAccess::recordName(id);
    return !id.isErased() && !purge.kept.contains(id) && !name.starts_with(L'*') &&
           !isReservedName(name) && !equalNoCase(name, kPointsLayer) &&
           fitsWildcards(name, purge.names) && purge.users.isUnused(id);
}

/// In the order of the tables; what becomes unused on the way comes with the next round.
Ids unused(const CommandContext& context, const Purge& purge, const RecordKind& kind) {
    Ids found;
    if (purge.which != kAllKinds.global && purge.which != kind.word.global) return found;
    const AcDbObjectPointer<AcDbSymbolTable> table((context.database().*kind.table)(),
                                                   AcDb::kForRead);
    if (table.openStatus() != Acad::eOk) return found;
    for (const AcDbObjectId id : ObjectAccess::records(*table.object()))
        if (mayGo(purge, id)) found.push_back(id);
    return found;
}

bool erase(Purge& purge, AcDbObjectId id) {
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk || record->erase() != Acad::eOk) {
        purge.kept.insert(id);  // what is current
        return false;
    }
    purge.users.gone(id);
    return true;
}

/// One round over a kind; how many went, or nothing after Esc.
Task<std::optional<std::size_t>> purgeKind(CommandContext context, Purge* purge,
                                           const RecordKind* kind) {
    std::size_t gone = 0;
    for (const AcDbObjectId id : unused(context, *purge, *kind)) {
        if (purge->confirms) {
            const InputValue yes =
                co_await askYesNo(context,
                                  L"\nLimpar " + std::wstring(kind->the) + L" \"" +
                                      ObjectAccess::recordName(id) + L"\"?",
                                  Choice::No);
            if (yes.status == RTCAN) co_return std::optional<std::size_t>();
            if (yes.number == 0.0) purge->kept.insert(id);
            if (yes.number == 0.0) continue;
        }
        if (erase(*purge, id)) ++gone;
    }
    co_return gone;
}

void tellCounts(const CommandContext& context, const Purge& purge) {
    std::wstring line;
    for (std::size_t i = 0; i < std::size(kRecordKinds); ++i)
        if (purge.counts[i] > 0)
            line += (line.empty() ? L"" : L", ") +
                    counted(purge.counts[i], kRecordKinds[i].one, kRecordKinds[i].many);
    say(context, line.empty() ? L"Nada foi limpo: não há nada sem uso com esses nomes."
                              : L"Limpeza: " + line + L".");
}

Task<int> askWhat(CommandContext context, Purge* purge) {
    std::vector<Word> words;
    for (const RecordKind& kind : kRecordKinds) words.push_back(kind.word);
    words.push_back(kAllKinds);
    const InputValue which = co_await context.ask(
        Prompt(InputKind::Keyword,
               L"\nO que limpar [Blocos/CAmadas/Estilos/Tipos de linha/cOtas/TUdo]: ")
            .words(words)
            .required());
    if (which.status != RTKWORD) co_return RTCAN;
    purge->which = which.text;
    const InputValue names =
        co_await context.ask(Prompt(InputKind::Text, L"\nNomes a limpar <*>: ").wholeLine());
    if (names.status == RTCAN) co_return RTCAN;
    if (names.status == RTNORM) purge->names = names.text;
    const InputValue yes = co_await askYesNo(context, L"\nConfirmar cada nome?", Choice::Yes);
    purge->confirms = yes.number != 0.0;
    co_return yes.status;
}

}  // namespace

CommandTask purge(CommandContext context) {
    Purge purge{RecordUsers(context.database()), {}, L"*", true, {}, {}};
    if (co_await askWhat(context, &purge) == RTCAN) co_return CommandEnd::Cancelled;
    std::size_t gone = 1;
    while (gone > 0) {
        gone = 0;
        for (std::size_t i = 0; i < std::size(kRecordKinds); ++i) {
            const std::optional<std::size_t> some =
                co_await purgeKind(context, &purge, &kRecordKinds[i]);
            if (!some) co_return CommandEnd::Cancelled;
            purge.counts[i] += *some;
            gone += *some;
        }
    }
    tellCounts(context, purge);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
