// SPDX-License-Identifier: MIT
// QSAVE, SAVE, SAVEAS: the drawing's file.
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kNameWords[] = {{L"Versão", L"Version"}};
constexpr Word kChangedWords[] = {
    {L"Sobrescrever", L"Overwrite"}, {L"Outro", L"Another"}, {L"Cancelar", L"Cancel"}};
constexpr Word kVersionWords[] = {
    {L"R12", L"R12"}, {L"2000", L"2000"}, {L"2018", L"2018"}, {L"Modelo", L"Model"}};

/// What is saved: the drawing, or a copy that does not hold all of it, beside its own file.
struct SaveKind {
    dxf::SaveOptions options;
    bool modelOnly = false;
    bool isCopy() const { return modelOnly || options.version == dxf::Version::R12; }
    /// 0 to 3, of kFormats.
    std::size_t format() const {
        if (modelOnly) return 3;
        return options.version == dxf::Version::R12     ? 2
               : options.version == dxf::Version::R2000 ? 1
                                                        : 0;
    }
};

/// As files are chosen in a window.
constexpr FileFormat kFormats[] = {{L"DXF 2018", L""},
                                   {L"DXF 2000", L""},
                                   {L"Cópia em DXF R12, para máquinas de corte", L"-r12"},
                                   {L"Cópia só do modelo", L"-modelo"}};

SaveKind kindOf(std::size_t format) {
    SaveKind kind;
    if (format == 1) kind.options.version = dxf::Version::R2000;
    if (format == 2) kind.options.version = dxf::Version::R12;
    kind.modelOnly = format == 3;
    return kind;
}

bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

CommandEnd write(const CommandContext& context, const std::filesystem::path& path,
                 const dxf::SaveOptions& options) {
    const Result<void> saved = context.editor().file().save(path, options);
    if (!saved) {
        context.editor().complain(toWide(saved.error().message()));
        return CommandEnd::Failed;
    }
    say(context, L"Desenho salvo em " + toWide(context.editor().file().name().string()));
    return CommandEnd::Done;
}

CommandEnd writeCopy(const CommandContext& context, const std::filesystem::path& path,
                     const SaveKind& kind) {
    std::string lost;
    DrawingFile& file = context.editor().file();
    const Result<void> saved =
        kind.modelOnly ? file.saveModel(path, &lost) : file.saveCopy(path, kind.options, &lost);
    if (!saved) {
        context.editor().complain(toWide(saved.error().message()));
        return CommandEnd::Failed;
    }
    if (!lost.empty()) say(context, L"Aviso: " + toWide(lost) + L".");
    say(context,
        L"Cópia gravada em " + toWide(path.string()) + L"; o desenho fica no seu arquivo.");
    return CommandEnd::Done;
}

std::wstring changedText(const Editor& editor) {
    return toWide(editor.file().name().string()) +
           L" foi mudado por outro programa desde que foi aberto";
}

/// What to do about that, in a window or by text. A script, which expects no such question, is
/// refused.
Task<ChangedFile> askAboutChange(CommandContext context) {
    Editor& editor = context.editor();
    if (!editor.runner().interactive() || !editor.ui().attended()) {
        editor.complain(changedText(editor) +
                        L"; o desenho não foi salvo. Use SALVARCOMO para gravá-lo com outro nome.");
        co_return ChangedFile::Keep;
    }
    if (usesWindows(context))
        if (const auto chosen = editor.ui().replaceChangedFile()) co_return *chosen;
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword,
               L"\n" + changedText(editor) +
                   L". O que fazer? [Sobrescrever/Outro nome/Cancelar] <Cancelar>: ")
            .words(kChangedWords));
    if (isWord(answer, L"Overwrite")) co_return ChangedFile::Replace;
    co_return isWord(answer, L"Another") ? ChangedFile::SaveElsewhere : ChangedFile::Keep;
}

constexpr const wchar_t* kNoCopyThere =
    L"Este é o arquivo do desenho, e a cópia não guarda tudo: dê outro nome.";

CommandEnd writeKind(const CommandContext& context, const std::filesystem::path& path,
                     const SaveKind& kind) {
    return kind.isCopy() ? writeCopy(context, path, kind) : write(context, path, kind.options);
}

/// Nothing when there is no such window.
std::optional<CommandEnd> saveInWindow(const CommandContext& context,
                                       const std::filesystem::path& present) {
    for (;;) {
        std::size_t format = 0;
        const auto chosen =
            chosenFile(context, {FileQuestion::Purpose::Save, present, kFormats, &format});
        if (!chosen) return {};
        if (chosen->empty()) return CommandEnd::Cancelled;
        const SaveKind kind = kindOf(format);
        const std::filesystem::path path = withExtension(*chosen);
        if (!kind.isCopy() || !sameFile(path, present)) return writeKind(context, path, kind);
        context.editor().alert(kNoCopyThere);
    }
}

/// Name and version; asks before it would replace a file that is not the drawing's own.
CommandTask saveUnderName(CommandContext context) {
    const std::filesystem::path present = context.editor().file().name();
    const std::filesystem::path named = present.empty() ? "Desenho1.dxf" : present;
    SaveKind kind;
    if (usesWindows(context))
        if (const auto end = saveInWindow(context, present)) co_return *end;
    for (;;) {
        std::filesystem::path proposed = named;
        if (kind.isCopy()) {
            proposed.replace_extension() += kFormats[kind.format()].mark;
            proposed += ".dxf";
        }
        const std::wstring shown = toWide(proposed.string());
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nSalvar desenho como ou [Versão] <" + shown + L">: ")
                .words(kNameWords)
                .wholeLine());
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (answer.status == RTKWORD) {
            const InputValue version = co_await context.ask(
                Prompt(InputKind::Keyword,
                       L"\nDigite o formato do arquivo [R12/2000/2018/só o Modelo] <2018>: ")
                    .words(kVersionWords));
            if (version.status == RTCAN) co_return CommandEnd::Cancelled;
            kind = {};
            kind.modelOnly = isWord(version, L"Model");
            kind.options.version = isWord(version, L"R12")    ? dxf::Version::R12
                                   : isWord(version, L"2000") ? dxf::Version::R2000
                                                              : dxf::Version::R2018;
            continue;
        }
        const std::wstring name = answer.status == RTNORM ? answer.text : shown;
        const std::filesystem::path path = withExtension(typedPath(name));
        if (kind.isCopy() && sameFile(path, present)) {
            context.editor().complain(kNoCopyThere, Complaint::Refused);
            continue;
        }
        std::error_code unreadable;  // then it cannot be replaced either, and saving says why
        if (std::filesystem::exists(path, unreadable) && !sameFile(path, present)) {
            const InputValue replace = co_await askYesNo(
                context, L"\n" + toWide(path.string()) + L" já existe. Deseja substituí-lo?",
                Choice::No);
            if (replace.status == RTCAN) co_return CommandEnd::Cancelled;
            if (replace.number == 0.0) continue;
        } else if (sameFile(path, present) && context.editor().file().changedOutside()) {
            const ChangedFile what = co_await askAboutChange(context);
            if (what == ChangedFile::Keep) co_return CommandEnd::Cancelled;
            if (what == ChangedFile::SaveElsewhere) continue;
        }
        co_return writeKind(context, path, kind);
    }
}

}  // namespace

std::filesystem::path typedPath(std::wstring_view text) {
    text = trim(text);
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"')
        text = text.substr(1, text.size() - 2);
    return resolvePath(text);
}

std::filesystem::path withExtension(std::filesystem::path path) {
    if (!equalNoCase(toWide(path.extension().string()), L".dxf")) path += ".dxf";
    return path;
}

bool usesWindows(const CommandContext& context) {
    Editor& editor = context.editor();
    return editor.runner().interactive() && editor.variables().number(L"FILEDIA") != 0;
}

std::optional<std::filesystem::path> chosenFile(const CommandContext& context,
                                                const FileQuestion& question) {
    if (!usesWindows(context)) return {};
    return context.editor().ui().chooseFile(question);
}

CommandTask qsave(CommandContext context) {
    if (!context.editor().file().name().empty()) {
        ChangedFile what = ChangedFile::Replace;
        if (context.editor().file().changedOutside()) what = co_await askAboutChange(context);
        if (what == ChangedFile::Replace) co_return write(context, {}, {});
        if (what == ChangedFile::Keep) co_return CommandEnd::Cancelled;
    }
    const CommandEnd end = co_await saveUnderName(context);
    co_return end;
}

CommandTask save(CommandContext context) { return saveUnderName(context); }

CommandTask saveas(CommandContext context) { return saveUnderName(context); }

}  // namespace prancheta::commands
