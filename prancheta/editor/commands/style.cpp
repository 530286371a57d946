// SPDX-License-Identifier: MIT
// STYLE: makes, changes and lists text styles.
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/base/symbol_name.h"
#include "prancheta/base/text.h"
#include "prancheta/database/names.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

/// What a style says of letters.
struct Letters {
    std::wstring font = L"txt";
    double height = 0.0;
    double widthFactor = 1.0;
    double oblique = 0.0;
};

Letters lettersOf(AcDbObjectId id) {
    Letters letters;
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(id, AcDb::kForRead);
    if (style.openStatus() != Acad::eOk) return letters;
    letters.font = style->fileName();
    letters.height = style->textSize();
    letters.widthFactor = style->xScale();
    letters.oblique = style->obliquingAngle();
    return letters;
}

void listStyles(const CommandContext& context) {
    AcDbTextStyleTable* table = nullptr;
    if (context.database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return;
    AcDbSymbolTableIterator* raw = nullptr;
    if (table->newIterator(raw) == Acad::eOk) {
        const std::unique_ptr<AcDbSymbolTableIterator> each(raw);
        for (; !each->done(); each->step()) {
            AcDbObjectId id;
            if (each->getRecordId(id) != Acad::eOk) continue;
            const Letters letters = lettersOf(id);
            say(context, L"\"" + textStyleOf(id).name + L"\"  fonte: " + letters.font +
                             L"  altura: " + lengthText(letters.height) + L"  largura: " +
                             lengthText(letters.widthFactor) + L"  inclinação: " +
                             turnText(context, letters.oblique));
        }
    }
    (void)table->close();
}

/// Name of the style to make or to change; empty after Esc or `?`.
Task<std::wstring> askName(CommandContext context) {
    const std::wstring present = currentTextStyle(context).name;
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nNome do estilo ou [?] <" + present + L">: ").wholeLine());
        if (answer.status == RTCAN) co_return std::wstring();
        const std::wstring name(trim(std::wstring_view(answer.text)));
        if (name.empty()) co_return present;
        if (name == L"?") {
            listStyles(context);
            co_return std::wstring();
        }
        if (isValidName(name, false)) co_return name;
        context.editor().complain(L"O nome de estilo \"" + name +
                                      L"\" não serve. Use de 1 a 255 caracteres, sem nenhum de " +
                                      toWide(kForbiddenInNames) + L".",
                                  Complaint::Refused);
    }
}

/// A number that `good` takes; Enter keeps it. RTCAN after Esc.
Task<int> askValue(CommandContext context, InputKind kind, std::wstring question, double* value,
                   bool (*good)(double), std::wstring refusal) {
    for (;;) {
        Prompt prompt(kind, question);
        if (kind == InputKind::Angle) prompt.absolute();
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status != RTNORM) co_return answer.status;
        double number = answer.number;
        if (kind == InputKind::Angle && number > kPi) number -= kTwoPi;
        if (good(number)) {
            *value = number;
            co_return RTNORM;
        }
        context.editor().complain(refusal, Complaint::Refused);
    }
}

Task<int> askLetters(CommandContext context, Letters* letters) {
    const InputValue font = co_await context.ask(
        Prompt(InputKind::Text, L"\nArquivo da fonte <" + letters->font + L">: ").wholeLine());
    if (font.status == RTCAN) co_return RTCAN;
    const std::wstring file(trim(std::wstring_view(font.text)));
    if (!file.empty()) letters->font = file;
    int status = co_await askValue(
        context, InputKind::Real,
        L"\nAltura (0: cada texto a sua) <" + lengthText(letters->height) + L">: ",
        &letters->height, [](double v) { return v >= 0.0; }, L"A altura não é negativa.");
    if (status == RTCAN) co_return RTCAN;
    status = co_await askValue(
        context, InputKind::Real,
        L"\nFator de largura <" + lengthText(letters->widthFactor) + L">: ", &letters->widthFactor,
        [](double v) { return v >= 0.01 && v <= 100.0; }, L"O fator vai de 0,01 a 100.");
    if (status == RTCAN) co_return RTCAN;
    co_return co_await askValue(
        context, InputKind::Angle,
        L"\nÂngulo de inclinação <" + turnText(context, letters->oblique) + L">: ",
        &letters->oblique, [](double v) { return std::abs(v) < 85.0 * kPi / 180.0; },
        L"A inclinação fica entre -85 e 85 graus.");
}

AcDbObjectId styleToWrite(const CommandContext& context, const std::wstring& name) {
    AcDbObjectId id = textStyleNamed(context, name);
    if (!id.isNull()) return id;
    AcDbTextStyleTable* table = nullptr;
    if (context.database().getSymbolTable(table, AcDb::kForWrite) != Acad::eOk) return id;
    auto record = std::make_unique<AcDbTextStyleTableRecord>();
    (void)record->setName(name.c_str());
    if (table->add(id, record.get()) == Acad::eOk) record.release()->close();
    (void)table->close();
    return id;
}

}  // namespace

CommandTask style(CommandContext context) {
    const std::wstring name = co_await askName(context);
    if (name.empty()) co_return CommandEnd::Done;
    const bool isNew = textStyleNamed(context, name).isNull();
    Letters letters = lettersOf(textStyleNamed(context, name));
    if (co_await askLetters(context, &letters) == RTCAN) co_return CommandEnd::Cancelled;
    const AcDbObjectId id = styleToWrite(context, name);
    {
        const AcDbObjectPointer<AcDbTextStyleTableRecord> record(id, AcDb::kForWrite);
        if (record.openStatus() != Acad::eOk) {
            say(context, L"O estilo \"" + name + L"\" não pôde ser gravado.");
            co_return CommandEnd::Failed;
        }
        (void)record->setFileName(letters.font.c_str());
        (void)record->setTextSize(letters.height);
        (void)record->setXScale(letters.widthFactor);
        (void)record->setObliquingAngle(letters.oblique);
    }
    (void)context.database().setTextstyle(id);
    say(context, L"\"" + name +
                     (isNew ? L"\" foi criado e é o estilo atual."
                            : L"\" foi alterado e é o estilo atual."));
    co_return CommandEnd::Done;
}

CommandTask styleInWindow(CommandContext context) {
    if (usesWindows(context) && context.editor().ui().showTool(Tool::TextStyles))
        co_return CommandEnd::Done;
    const CommandEnd end = co_await style(context);
    co_return end;
}

}  // namespace prancheta::commands
