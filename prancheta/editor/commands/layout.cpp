// SPDX-License-Identifier: MIT
// LAYOUT: the sheets of the drawing, by name.
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/tab_questions.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/plotter.h"

namespace prancheta::commands {

namespace {

constexpr Word kLayoutOptions[] = {{L"Nova", L"New"},
                                   {L"Copiar", L"Copy"},
                                   {L"Renomear", L"Rename"},
                                   {L"Apagar", L"Delete"},
                                   {L"Definir", L"Set"},
                                   {L"Papel", L"Paper"},
                                   {L"?", L"?"}};

/// Says why something did not come about.
CommandEnd refused(const CommandContext& context, const Error& error) {
    context.editor().complain(toWide(error.text), Complaint::Refused);
    return CommandEnd::Failed;
}

/// The tab that is shown, or the first sheet while that is the model.
Tab usualTab(const CommandContext& context) {
    const Spaces& spaces = context.editor().spaces();
    const Tab shown = tabOf(context.database(), spaces.tab());
    return spaces.onSheet() ? shown : tabsOf(context.database())[1];
}

/// A null block after Esc.
Task<Tab> askTab(CommandContext context, std::wstring question, Tab usual) {
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, question + L" <" + usual.name + L">: ").wholeLine());
        if (answer.status == RTCAN) co_return Tab();
        const std::wstring name(trim(answer.text));
        const Tab found = name.empty() ? usual : tabNamed(context.database(), name);
        if (!found.block.isNull()) co_return found;
        context.editor().complain(L"Não há o layout " + name + L".", Complaint::Refused);
    }
}

CommandTask addNew(CommandContext context) {
    const std::wstring name =
        co_await askTabName(context, L"\nNome do novo layout", freeTabName(context.database()));
    if (name.empty()) co_return CommandEnd::Cancelled;
    const Result<Tab> made = addTab(context.database(), name);
    if (!made) co_return refused(context, made.error());
    say(context, L"Layout " + name + L" criado.");
    co_return CommandEnd::Done;
}

/// A sheet and the name that it, or its copy, is to have.
struct Named {
    CommandEnd end = CommandEnd::Cancelled;
    Tab tab;
    std::wstring name;
};

struct NameQuestions {
    const wchar_t* which;
    const wchar_t* name;
    const char* notTheModel;
    bool offersFree;
};

/// `end` is Done when both are there; what was refused has been told.
Task<Named> askNamed(CommandContext context, NameQuestions questions) {
    Named named;
    named.tab = co_await askTab(context, questions.which, usualTab(context));
    if (named.tab.block.isNull()) co_return named;
    if (named.tab.block == context.database().core().modelSpaceId()) {
        named.end = refused(context, Error{questions.notTheModel});
        co_return named;
    }
    std::wstring usual;
    if (questions.offersFree) usual = freeTabName(context.database());
    named.name = co_await askTabName(context, questions.name, usual);
    if (!named.name.empty()) named.end = CommandEnd::Done;
    co_return named;
}

CommandTask copyOne(CommandContext context) {
    const Named copy = co_await askNamed(context, {L"\nLayout a copiar", L"\nNome da cópia",
                                                   "O modelo não pode ser copiado.", true});
    if (copy.end != CommandEnd::Done) co_return copy.end;
    const Result<Tab> made = copyTab(context.database(), copy.tab, copy.name);
    if (!made) co_return refused(context, made.error());
    say(context, L"Layout " + copy.name + L" copiado de " + copy.tab.name + L".");
    co_return CommandEnd::Done;
}

CommandTask renameOne(CommandContext context) {
    const Named asked = co_await askNamed(
        context,
        {L"\nLayout a renomear", L"\nNovo nome do layout", "O modelo não muda de nome.", false});
    if (asked.end != CommandEnd::Done) co_return asked.end;
    const Result<void> done = renameTab(context.database(), asked.tab, asked.name);
    if (!done) co_return refused(context, done.error());
    context.editor().spaces().tabsChanged();
    co_return CommandEnd::Done;
}

CommandTask eraseOne(CommandContext context) {
    const Tab tab = co_await askTab(context, L"\nLayout a apagar", usualTab(context));
    if (tab.block.isNull()) co_return CommandEnd::Cancelled;
    const bool shown = context.editor().spaces().tab() == tab.block;
    if (const Result<void> done = eraseTab(context.database(), tab); !done)
        co_return refused(context, done.error());
    context.editor().spaces().settle();
    say(context, L"Layout " + tab.name + L" apagado." + (shown ? L" O modelo é o atual." : L""));
    co_return CommandEnd::Done;
}

CommandTask setCurrentLayout(CommandContext context) {
    const Tab tab = co_await askTab(context, L"\nLayout a tornar atual", usualTab(context));
    if (tab.block.isNull()) co_return CommandEnd::Cancelled;
    context.editor().spaces().show(tab);
    co_return CommandEnd::Done;
}

Task<const Paper*> askPaper(CommandContext context) {
    std::wstring names;
    for (const Paper& each : papers()) names += (names.empty() ? L"" : L"/") + each.name;
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nFolha [" + names + L"] <A4>: ").wholeLine());
        if (answer.status == RTCAN) co_return nullptr;
        const Paper* const found = findPaper(answer.status == RTNONE ? L"A4" : answer.text);
        if (found != nullptr) co_return found;
        context.editor().complain(L"Não há folha com esse nome.", Complaint::Refused);
    }
}

/// Of the sheet that is shown.
CommandTask setPaper(CommandContext context) {
    if (!context.editor().spaces().onSheet())
        co_return refused(context, Error{"O modelo não tem papel; escolha um layout com Definir."});
    const Paper* const paper = co_await askPaper(context);
    if (paper == nullptr) co_return CommandEnd::Cancelled;
    const InputValue lies = co_await askOrientation(context);
    if (lies.status == RTCAN) co_return CommandEnd::Cancelled;
    const bool upright = isWord(lies, L"Portrait");
    const Result<void> done =
        setSheet(context.database(), context.editor().spaces().tab(),
                 upright ? paper->width : paper->height, upright ? paper->height : paper->width);
    if (!done) co_return refused(context, done.error());
    context.editor().ui().refresh();
    co_return CommandEnd::Done;
}

CommandTask listAll(CommandContext context) {
    for (const Tab& tab : tabsOf(context.database())) {
        const bool model = tab.block == context.database().core().modelSpaceId();
        const Box2d sheet = sheetOf(tab);
        const bool shown = tab.block == context.editor().spaces().tab();
        say(context, tab.name +
                         (model ? L""
                                : L"  " + toldLength(sheet.width()) + L" x " +
                                      toldLength(sheet.height()) + L" mm") +
                         (shown ? L"  (atual)" : L""));
    }
    co_return CommandEnd::Done;
}

struct LayoutOption {
    const wchar_t* global;
    CommandTask (*run)(CommandContext);
};
constexpr LayoutOption kRuns[] = {
    {L"New", addNew},           {L"Copy", copyOne},   {L"Rename", renameOne}, {L"Delete", eraseOne},
    {L"Set", setCurrentLayout}, {L"Paper", setPaper}, {L"?", listAll}};

}  // namespace

CommandTask layout(CommandContext context) {
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword,
               L"\nOpção de layout [Nova/Copiar/Renomear/Apagar/Definir/Papel/?] <Definir>: ")
            .words(kLayoutOptions));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    CommandTask (*run)(CommandContext) = setCurrentLayout;
    for (const LayoutOption& option : kRuns)
        if (isWord(answer, option.global)) run = option.run;
    const CommandEnd end = co_await run(context);
    co_return end;
}

}  // namespace prancheta::commands
