// SPDX-License-Identifier: MIT
// WBLOCK: a block, some objects or the whole drawing as a file of its own.
#include <filesystem>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/document.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

struct Target {
    int status = RTCAN;
    std::filesystem::path path;
};

Task<Target> askTarget(CommandContext context) {
    Target target;
    if (const auto chosen = chosenFile(context, {FileQuestion::Purpose::Save, {}})) {
        if (!chosen->empty()) target = {RTNORM, withExtension(*chosen)};
        co_return target;
    }
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, L"\nNome do arquivo: ").wholeLine());
        target.status = answer.status;
        if (answer.status != RTNORM) co_return target;
        target.path = withExtension(typedPath(answer.text));
        const std::filesystem::path& own = context.editor().file().name();
        std::error_code error;
        if (!own.empty() && std::filesystem::equivalent(own, target.path, error)) {
            context.editor().complain(
                L"Este é o arquivo do próprio desenho: dê outro nome, ou use SALVAR.",
                Complaint::Refused);
            continue;
        }
        if (!std::filesystem::exists(target.path, error)) co_return target;
        const InputValue replace = co_await askYesNo(
            context, L"\n" + toWide(target.path.string()) + L" já existe. Deseja substituí-lo?",
            Choice::No);
        target.status = replace.status == RTCAN ? RTCAN : RTNORM;
        if (replace.status == RTCAN || replace.number != 0.0) co_return target;
    }
}

/// What goes into the file.
struct Content {
    CommandEnd end = CommandEnd::Cancelled;
    bool whole = false;  ///< the drawing as it is
    Ids ids;
    AcGePoint3d base;
    bool erase = false;
};

/// False, after saying so, for a name that no block has.
bool takeBlock(const CommandContext& context, const std::wstring& name, Content& content) {
    const AcDbObjectId block = blockNamed(context, name);
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    if (block.isNull() || record.openStatus() != Acad::eOk) {
        context.editor().complain(L"Não há bloco de nome \"" + name +
                                      L"\". Use ? para ver os que há, ou Enter para escolher "
                                      L"objetos.",
                                  Complaint::Refused);
        return false;
    }
    content.ids = contentOf(block);
    content.base = record->origin();
    return true;
}

Task<Content> askObjectsToWrite(CommandContext context) {
    Content content;
    const InputValue base =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonto base: ").required());
    if (base.status != RTNORM) co_return content;
    content.base = base.point;
    SelectOptions options;
    options.dropLocked = false;
    options.prompt = L"\nSelecione objetos ou [REter/Apagar] <REter>: ";
    options.words = {{L"REter", L"REtain"}, {L"Apagar", L"Delete"}};
    const Selection chosen = co_await selectObjects(context, options);
    content.end = endOf(chosen.status);
    content.ids = chosen.ids;
    content.erase = chosen.word == L"Delete";
    co_return content;
}

Task<Content> askContent(CommandContext context, std::wstring fileName) {
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text,
                   L"\nNome do bloco ou [?/= (o do arquivo)/* (desenho inteiro)] <objetos>: ")
                .wholeLine());
        Content content;
        if (answer.status == RTCAN) co_return content;
        if (answer.status != RTNORM || answer.text.empty()) {
            content = co_await askObjectsToWrite(context);
            co_return content;
        }
        content.end = CommandEnd::Done;
        if (answer.text == L"?") {
            listBlocks(context);
        } else if (answer.text == L"*") {
            content.whole = true;
            co_return content;
        } else if (takeBlock(context, answer.text == L"=" ? fileName : answer.text, content)) {
            co_return content;
        }
    }
}

/// The content with its base point at the origin, in the units and scales of the drawing.
Result<void> write(const CommandContext& context, const Content& content,
                   const std::filesystem::path& path, std::size_t& written) {
    if (content.whole) return context.editor().file().saveCopy(path);
    AcDbDatabase drawing;
    DatabaseCore& core = drawing.core();
    core.undo().setRecording(false);
    for (const VariableInfo& variable : context.database().core().variables().all())
        if (variable.home == VariableHome::Drawing &&
            variable.access == VariableAccess::ReadWrite &&
            !std::holds_alternative<std::wstring>(variable.value))
            (void)core.variables().set(variable.name, variable.value);  // its own default stays
    std::size_t left = 0;
    Ids copies = cloneFrom(context, content.ids, core.modelSpaceId(), left);
    (void)transformCopies(context, copies,
                          AcGeMatrix3d::translation(AcGePoint3d::kOrigin - content.base));
    sayLeft(context, left);
    written = copies.size();
    return dxf::save(drawing, path);
}

}  // namespace

CommandTask wblock(CommandContext context) {
    const Target target = co_await askTarget(context);
    if (target.status != RTNORM) co_return endOf(target.status);
    const Content content = co_await askContent(context, toWide(target.path.stem().string()));
    if (content.end != CommandEnd::Done) co_return content.end;
    if (content.ids.empty() && !content.whole) {
        say(context, L"Não há objetos a gravar; o arquivo não foi escrito.");
        co_return CommandEnd::Done;
    }
    std::size_t written = 0;
    const Result<void> saved = write(context, content, target.path, written);
    if (!saved) {
        context.editor().complain(toWide(saved.error().message()));
        co_return CommandEnd::Failed;
    }
    const std::wstring file = toWide(target.path.string());
    say(context, content.whole
                     ? L"Desenho gravado em " + file
                     : counted(written, L"objeto gravado em ", L"objetos gravados em ") + file);
    if (content.erase) eraseForOops(context, content.ids);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
