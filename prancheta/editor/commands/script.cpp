// SPDX-License-Identifier: MIT
// SCRIPT, RSCRIPT, RESUME, DELAY: files of keys that are typed by themselves.
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

CommandEnd fail(const CommandContext& context, std::wstring_view why) {
    context.editor().complain(why);
    return CommandEnd::Failed;
}

CommandEnd typeFile(const CommandContext& context, const std::filesystem::path& file) {
    const Result<std::string> content = readFile(file);
    if (!content) return fail(context, toWide(content.error().message()));
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::string_view keys = *content;
    if (keys.starts_with(kMark)) keys.remove_prefix(kMark.size());
    if (!context.editor().typing().runScript(toWide(keys)))
        return fail(context, L"Scripts chamaram uns aos outros vezes demais; " +
                                 toWide(file.string()) + L" não foi executado.");
    memory(context).script = file;
    return CommandEnd::Done;
}

}  // namespace

CommandTask script(CommandContext context) {
    const InputValue name = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite o nome do arquivo de script: ").wholeLine().required());
    if (name.status != RTNORM) co_return endOf(name.status);
    std::filesystem::path file = typedPath(name.text);
    if (!file.has_extension()) file += ".scr";
    std::error_code ignored;  // a file that is not there is told about below
    if (context.editor().typing().inScript() &&
        std::filesystem::equivalent(file, memory(context).script, ignored))
        co_return fail(context, L"Um script não pode repetir a si mesmo com SCRIPT.");
    co_return typeFile(context, file);
}

CommandTask rscript(CommandContext context) {
    if (context.editor().typing().inScript())
        co_return fail(context, L"Um script não pode repetir a si mesmo com RSCRIPT.");
    const std::filesystem::path file = memory(context).script;
    if (file.empty()) co_return fail(context, L"Nenhum script foi executado ainda.");
    co_return typeFile(context, file);
}

CommandTask resume(CommandContext context) {
    if (context.editor().typing().resumeScript()) co_return CommandEnd::Done;
    co_return fail(context, L"Não há script interrompido.");
}

CommandTask delay(CommandContext context) {
    const InputValue time = co_await context.ask(
        Prompt(InputKind::Integer, L"\nDigite o tempo de espera em milissegundos: ")
            .required()
            .bits(RSG_NONEG));
    if (time.status != RTNORM) co_return endOf(time.status);
    const std::chrono::milliseconds asked(static_cast<int>(time.number));
    if (context.editor().ui().pass(asked)) co_return CommandEnd::Done;
    context.editor().typing().stop();
    say(context, L"*Cancelar*");
    co_return CommandEnd::Cancelled;
}

}  // namespace prancheta::commands
