// SPDX-License-Identifier: MIT
// DIMSTYLE: dimension styles by the command line.
#include <algorithm>

#include "prancheta/base/symbol_name.h"
#include "prancheta/base/text.h"
#include "prancheta/database/dim_variables.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/dimension_layout.h"

namespace prancheta::commands {

namespace {

constexpr Word kDimstyleWords[] = {{L"Salvar", L"Save"},   {L"Restaurar", L"Restore"},
                                   {L"EStado", L"STatus"}, {L"Variáveis", L"Variables"},
                                   {L"Aplicar", L"Apply"}, {L"?", L"?"}};

AcDbObjectId styleNamed(const CommandContext& context, std::wstring_view name) {
    return ObjectAccess::lookup(context.database().dimStyleTableId(), name);
}

void listStyles(const CommandContext& context) {
    const AcDbObjectPointer<AcDbDimStyleTable> table(context.database().dimStyleTableId(),
                                                     AcDb::kForRead);
    if (table.openStatus() != Acad::eOk) return;
    std::vector<std::wstring> names;
    for (const AcDbObjectId id : ObjectAccess::records(*table.object()))
        if (!id.isErased()) names.push_back(ObjectAccess::recordName(id));
    std::ranges::sort(names);
    say(context, L"Estilos de cota:");
    for (const std::wstring& name : names) say(context, L"    " + name);
}

std::wstring valueText(const DimVariable& variable, const AcDbDimStyleValues& values) {
    if (variable.real != nullptr) return toWide(numberText(values.*variable.real));
    if (variable.integer != nullptr) return std::to_wstring(values.*variable.integer);
    if (variable.text != nullptr) return L"\"" + values.*variable.text + L"\"";
    const AcDbObjectId block = values.*variable.block;
    return block.isNull() ? L"seta cheia" : ObjectAccess::recordName(block);
}

void listVariables(const CommandContext& context, AcDbObjectId id) {
    const AcDbObjectPointer<AcDbDimStyleTableRecord> style(id, AcDb::kForRead);
    if (style.openStatus() != Acad::eOk) return;
    say(context, L"Estilo de cota " + ObjectAccess::recordName(id) + L":");
    for (const DimVariable& variable : dimVariables()) {
        std::wstring name = variable.name;
        name.resize(10, L' ');
        say(context, L"    " + name + valueText(variable, style->values()));
    }
    say(context, L"    DIMTXSTY  " + ObjectAccess::recordName(style->dimtxsty()));
}

/// RTNORM with the name in `text`, RTNONE for Enter, RTCAN.
Task<InputValue> askName(CommandContext context, std::wstring question) {
    for (;;) {
        InputValue name = co_await context.ask(Prompt(InputKind::Text, question).wholeLine());
        if (name.status != RTNORM || name.text != L"?") co_return name;
        listStyles(context);
    }
}

/// The record gets what the current style says now, with the scale of the drawing.
void takeCurrent(const CommandContext& context, AcDbDimStyleTableRecord& to) {
    const AcDbObjectPointer<AcDbDimStyleTableRecord> from(context.database().dimstyle(),
                                                          AcDb::kForRead);
    if (from.openStatus() != Acad::eOk) return;
    AcDbDimStyleValues values = from->values();
    values.dimscale = context.database().dimscale();
    (void)to.setValues(values);  // open for write: cannot fail
    if (!from->dimtxsty().isNull()) (void)to.setDimtxsty(from->dimtxsty());
}

bool makeStyle(const CommandContext& context, const std::wstring& name) {
    AcDbObjectPointer<AcDbDimStyleTable> table(context.database().dimStyleTableId(),
                                               AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) return false;
    auto made = std::make_unique<AcDbDimStyleTableRecord>();
    AcDbObjectId id;
    if (made->setName(name.c_str()) != Acad::eOk || table->add(id, made.get()) != Acad::eOk)
        return false;
    AcDbDimStyleTableRecord* const added = made.release();
    takeCurrent(context, *added);
    return added->close() == Acad::eOk;
}

CommandTask saveStyle(CommandContext context) {
    const InputValue name = co_await askName(context, L"\nNome do novo estilo de cota ou [?]: ");
    if (name.status != RTNORM) co_return endOf(name.status);
    const AcDbObjectId known = styleNamed(context, name.text);
    if (!known.isNull()) {
        const InputValue again = co_await askYesNo(
            context, L"\nO estilo \"" + name.text + L"\" já existe. Redefinir?", Choice::No);
        if (again.number == 0.0) co_return endOf(again.status);
        if (known != context.database().dimstyle()) {
            const AcDbObjectPointer<AcDbDimStyleTableRecord> style(known, AcDb::kForWrite);
            if (style.openStatus() == Acad::eOk) takeCurrent(context, *style.object());
        }
    } else if (!makeStyle(context, name.text)) {
        context.editor().complain(L"\"" + name.text + L"\" não serve de nome para um estilo.",
                                  Complaint::Refused);
        co_return CommandEnd::Failed;
    }
    (void)context.database().setDimstyle(styleNamed(context, name.text));
    say(context, L"O estilo de cota atual é " + name.text + L".");
    co_return CommandEnd::Done;
}

/// A style by its name, or by Enter that of a picked dimension; null after Esc.
Task<AcDbObjectId> askStyle(CommandContext context) {
    for (;;) {
        const InputValue name =
            co_await askName(context, L"\nNome do estilo de cota, [?] ou <selecionar uma cota>: ");
        if (name.status == RTCAN) co_return AcDbObjectId();
        if (name.status == RTNORM) {
            const AcDbObjectId id = styleNamed(context, name.text);
            if (!id.isNull()) co_return id;
            context.editor().complain(L"Não existe o estilo de cota \"" + name.text + L"\".",
                                      Complaint::Refused);
            continue;
        }
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nSelecione uma cota: "));
        if (picked.status == RTCAN || picked.status == RTNONE) co_return AcDbObjectId();
        if (!picked.entities.empty()) {
            const AcDbObjectPointer<AcDbDimension> dimension(picked.entities.front(),
                                                             AcDb::kForRead);
            if (dimension.openStatus() == Acad::eOk)
                co_return dimension->dimensionStyle().isNull() ? context.database().dimstyle()
                                                               : dimension->dimensionStyle();
        }
        context.editor().complain(L"O objeto selecionado não é uma cota.", Complaint::Refused);
    }
}

CommandTask restore(CommandContext context) {
    const AcDbObjectId id = co_await askStyle(context);
    if (id.isNull()) co_return CommandEnd::Cancelled;
    (void)context.database().setDimstyle(id);
    say(context, L"O estilo de cota atual é " + ObjectAccess::recordName(id) + L".");
    co_return CommandEnd::Done;
}

/// Current style and scale; what the dimension says against its style goes.
Acad::ErrorStatus dressAgain(AcDbDimension& dimension, const AcDbDatabase& database) {
    forgetOverrides(dimension);
    (void)dimension.setDimensionStyle(database.dimstyle());  // open for write
    (void)dimension.setDimscale(0.0);
    if (dimension.dimscale() != database.dimscale())
        (void)dimension.setDimscale(database.dimscale());
    return Acad::eOk;
}

CommandTask apply(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    Ids dimensions;
    for (const AcDbObjectId id : chosen.ids)
        if (id.objectClass()->isDerivedFrom(AcDbDimension::desc())) dimensions.push_back(id);
    if (dimensions.empty()) {
        say(context, L"Nenhuma cota entre os objetos selecionados.");
        co_return CommandEnd::Done;
    }
    const AcDbDatabase& database = context.database();
    const auto refused = changeEach(dimensions, [&](AcDbEntity& entity, std::size_t) {
        return dressAgain(static_cast<AcDbDimension&>(entity), database);
    });
    say(context, counted(dimensions.size() - refused.size(), L"cota segue o estilo atual.",
                         L"cotas seguem o estilo atual."));
    co_return CommandEnd::Done;
}

}  // namespace

CommandTask dimstyle(CommandContext context) {
    say(context,
        L"Estilo de cota atual: " + ObjectAccess::recordName(context.database().dimstyle()));
    const InputValue option = co_await context.ask(
        Prompt(InputKind::Keyword,
               L"\nOpção de estilo de cota [Salvar/Restaurar/EStado/Variáveis/Aplicar/?] "
               L"<Restaurar>: ")
            .words(kDimstyleWords));
    if (option.status == RTCAN) co_return CommandEnd::Cancelled;
    if (isWord(option, L"Save")) co_return co_await saveStyle(context);
    if (isWord(option, L"Apply")) co_return co_await apply(context);
    if (isWord(option, L"?")) {
        listStyles(context);
        co_return CommandEnd::Done;
    }
    if (isWord(option, L"STatus")) {
        listVariables(context, context.database().dimstyle());
        co_return CommandEnd::Done;
    }
    if (!isWord(option, L"Variables")) co_return co_await restore(context);
    const AcDbObjectId id = co_await askStyle(context);
    if (id.isNull()) co_return CommandEnd::Cancelled;
    listVariables(context, id);
    co_return CommandEnd::Done;
}

CommandTask dimstyleInWindow(CommandContext context) {
    if (usesWindows(context) && context.editor().ui().showTool(Tool::DimensionStyles))
        co_return CommandEnd::Done;
    const CommandEnd end = co_await dimstyle(context);
    co_return end;
}

}  // namespace prancheta::commands
