// SPDX-License-Identifier: MIT
// VPLAYER: layers frozen in viewports.
#include <algorithm>

#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr Word kVplayerOptions[] = {
    {L"?", L"?"}, {L"Congelar", L"Freeze"}, {L"Descongelar", L"Thaw"}};
constexpr Word kWhere[] = {{L"Todas", L"All"}, {L"Selecionar", L"Select"}, {L"Atual", L"Current"}};

void listFrozen(const CommandContext& context) {
    for (const AcDbObjectId& id : context.editor().spaces().viewports()) {
        const AcDbViewport& viewport = *viewportOf(id);
        std::wstring names;
        for (const AcDbObjectId& layer : viewport.frozenLayers())
            names += (names.empty() ? L"" : L", ") + layerName(layer);
        say(context, L"Janela " + std::to_wstring(viewport.number()) + L": " +
                         (names.empty() ? L"nenhuma camada congelada" : names));
    }
}

/// The viewports meant; `status` RTCAN after Esc.
Task<Selection> askWhere(CommandContext context) {
    Spaces& spaces = context.editor().spaces();
    const bool inside = !spaces.viewport().isNull();
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, std::wstring(L"\nEm quais janelas [Todas/Selecionar/Atual] <") +
                                       (inside ? L"Atual" : L"Selecionar") + L">: ")
            .words(kWhere));
    Selection chosen;
    chosen.status = answer.status == RTCAN ? RTCAN : RTNORM;
    if (answer.status == RTCAN) co_return chosen;
    if (isWord(answer, L"All")) {
        chosen.ids = spaces.viewports();
    } else if (inside && !isWord(answer, L"Select")) {
        chosen.ids = {spaces.viewport()};
    } else if (isWord(answer, L"Current")) {
        context.editor().complain(L"Nenhuma janela é a atual; entre numa com MSPACE.",
                                  Complaint::Refused);
    } else {
        spaces.leave();
        Selection picked = co_await selectViewports(context);
        co_return picked;
    }
    co_return chosen;
}

Task<int> change(CommandContext context, bool freeze) {
    const InputValue list = co_await context.ask(
        Prompt(InputKind::Text,
               std::wstring(L"\nCamadas a ") + (freeze ? L"congelar: " : L"descongelar: "))
            .required()
            .wholeLine());
    if (list.status != RTNORM) co_return RTCAN;
    const Ids layers = layersNamed(context, list.text);
    if (layers.empty()) co_return RTNORM;
    const Selection where = co_await askWhere(context);
    if (where.status == RTCAN) co_return RTCAN;
    changeViewports(context, where.ids, [&](AcDbViewport& viewport) {
        Ids frozen = viewport.frozenLayers();
        std::erase_if(frozen, [&](AcDbObjectId id) {
            return std::find(layers.begin(), layers.end(), id) != layers.end();
        });
        if (freeze) frozen.insert(frozen.end(), layers.begin(), layers.end());
        (void)viewport.setFrozenLayers(frozen);  // open for write
    });
    co_return RTNORM;
}

}  // namespace

CommandTask vplayer(CommandContext context) {
    if (!needsSheet(context, L"VPLAYER")) co_return CommandEnd::Failed;
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Keyword, L"\nOpção [?/Congelar/Descongelar] <sair>: ")
                .words(kVplayerOptions));
        if (answer.status != RTKWORD) co_return endOf(answer.status);
        if (isWord(answer, L"?")) {
            listFrozen(context);
            continue;
        }
        const int status = co_await change(context, isWord(answer, L"Freeze"));
        if (status == RTCAN) co_return CommandEnd::Cancelled;
    }
}

}  // namespace prancheta::commands
