// SPDX-License-Identifier: MIT
// ARX: modules loaded, unloaded and listed.
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"

namespace prancheta::commands {

namespace {

constexpr Word kArxWords[] = {
    {L"Carregar", L"Load"}, {L"Descarregar", L"Unload"}, {L"Listar", L"?"}, {L"?", L"?"}};

/// Why the file may not be loaded; empty when it may.
std::string refusalOf(Editor& editor, const std::filesystem::path& file) {
    switch (editor.modules().trustOf(file)) {
        case ModuleTable::Trust::Free:
            return {};
        case ModuleTable::Trust::Barred:
            return "o módulo foi recusado: só os de costume podem ser carregados (--sem-arx).";
        case ModuleTable::Trust::Unknown:
            break;
    }
    if (!editor.typing().inScript() || editor.ui().mayLoad(file)) return {};
    return "o módulo foi recusado: um script só carrega os da pasta do programa, os de --modulo e "
           "os das pastas da variável TRUSTEDPATHS.";
}

void listModules(const CommandContext& context) {
    const auto& modules = context.editor().modules().all();
    if (modules.empty()) say(context, L"Não há módulos carregados.");
    for (const std::unique_ptr<Module>& module : modules) say(context, L"  " + module->name);
}

}  // namespace

CommandTask arx(CommandContext context) {
    const InputValue option = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nDigite uma opção [?/Carregar/Descarregar/Listar]: ")
            .words(kArxWords));
    if (option.status != RTKWORD) co_return endOf(option.status);
    if (option.text == L"?") {
        listModules(context);
        co_return CommandEnd::Done;
    }
    const bool loading = option.text == L"Load";
    const InputValue name = co_await context.ask(
        Prompt(InputKind::Text, loading ? L"\nDigite o nome do arquivo a carregar: "
                                        : L"\nDigite o nome do arquivo a descarregar: ")
            .wholeLine()
            .required());
    if (name.status != RTNORM) co_return endOf(name.status);
    ModuleTable& modules = context.editor().modules();
    const std::filesystem::path path = typedPath(name.text);
    const std::string refusal = loading ? refusalOf(context.editor(), path) : std::string();
    const Result<void> done = !refusal.empty() ? Result<void>(Error{refusal, path.string()})
                              : loading        ? modules.load(path)
                                               : modules.unload(toWide(path.filename().string()));
    if (!done) {
        context.editor().complain(toWide(done.error().message()));
        co_return CommandEnd::Failed;
    }
    say(context, toWide(path.filename().string()) + (loading ? L" carregado." : L" descarregado."));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
