// SPDX-License-Identifier: MIT
// ATTDEF: what a block is to ask for when it is inserted.
#include "dbents.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/justification.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

struct Mode {
    Word word;
    int bit;
};
constexpr Mode kModes[] = {
    {{L"Invisível", L"Invisible"}, AcDbAttributeText::kInvisible},
    {{L"Constante", L"Constant"}, AcDbAttributeText::kConstant},
    {{L"Verificar", L"Verify"}, AcDbAttributeText::kVerifiable},
    {{L"Predefinido", L"Preset"}, AcDbAttributeText::kPreset},
};
constexpr Word kJustify[] = {{L"Justificar", L"Justify"}};

/// Letters of ASCII and Latin-1.
std::wstring upperCase(std::wstring_view text) {
    std::wstring upper(text);
    for (wchar_t& c : upper)
        if (const bool latin = c >= L'\u00e0' && c <= L'\u00fe' && c != L'\u00f7';
            latin || (c >= L'a' && c <= L'z'))
            c = static_cast<wchar_t>(c - 0x20);
    return upper;
}

/// Each word turns its mode round, until Enter; AFLAGS keeps them. RTCAN after Esc.
Task<int> askModes(CommandContext context) {
    SystemVariables& variables = context.editor().variables();
    for (;;) {
        const int modes = variables.number(L"AFLAGS");
        std::wstring present;
        for (const Mode& mode : kModes)
            if ((modes & mode.bit) != 0) present += L" " + std::wstring(mode.word.local);
        say(context, L"Modos do atributo:" + (present.empty() ? L" nenhum" : present));
        Prompt prompt(InputKind::Keyword,
                      L"\nMudar [Invisível/Constante/Verificar/Predefinido] <seguir>: ");
        for (const Mode& mode : kModes) prompt.words({&mode.word, 1});
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status != RTKWORD) co_return answer.status;
        for (const Mode& mode : kModes)
            if (isWord(answer, mode.word.global))
                variables.force(L"AFLAGS", static_cast<short>(modes ^ mode.bit));
    }
}

/// In capitals, as tags are compared. Not RTNORM: the command ends.
Task<InputValue> askTag(CommandContext context) {
    for (;;) {
        InputValue tag =
            co_await context.ask(Prompt(InputKind::Text, L"\nEtiqueta do atributo: ").wholeLine());
        if (tag.status != RTNORM) co_return tag;
        tag.text = upperCase(trim(std::wstring_view(tag.text)));
        if (AcDbAttributeDefinition().setTag(tag.text.c_str()) == Acad::eOk) co_return tag;
        context.editor().complain(L"A etiqueta não pode ter espaços; use por exemplo NOME_DA_OBRA.",
                                  Complaint::Refused);
    }
}

Task<InputValue> askWords(CommandContext context, std::wstring question) {
    InputValue words = co_await context.ask(Prompt(InputKind::Text, question).wholeLine());
    co_return words;
}

/// Place, height and rotation as TEXT asks for them; RTCAN after Esc.
Task<int> askPlace(CommandContext context, AcDbAttributeDefinition* definition) {
    Memory& kept = memory(context);
    const Justification* justification = &justifications().front();
    InputValue at = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto inicial do texto ou [Justificar]: ")
            .words(kJustify)
            .required());
    if (at.status == RTKWORD) at = co_await askJustifiedPoint(context, &justification);
    if (at.status != RTNORM) co_return RTCAN;
    const TextStyle style = currentTextStyle(context);
    double height = style.height > 0.0 ? style.height : offeredTextHeight(context);
    if (style.height <= 0.0) {
        const InputValue given = co_await context.ask(
            Prompt(InputKind::Distance, L"\nEspecifique a altura <" + lengthText(height) + L">: ")
                .from(at.point)
                .bits(RSG_NOZERO | RSG_NONEG));
        if (given.status == RTCAN) co_return RTCAN;
        if (given.status == RTNORM) keepTextHeight(context, height = given.number);
    }
    const InputValue turned = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique o ângulo de rotação do texto <" +
                                     directionText(kept.textRotation) + L">: ")
            .from(at.point)
            .absolute());
    if (turned.status == RTCAN) co_return RTCAN;
    if (turned.status == RTNORM) kept.textRotation = turned.number;
    (void)definition->setTextStyle(style.id);
    (void)definition->setHeight(height);  // above 0
    (void)definition->setRotation(kept.textRotation + userTurn(context));
    (void)definition->setWidthFactor(style.widthFactor);
    (void)definition->setOblique(style.oblique);
    placeText(*definition, at.point, *justification);
    co_return RTNORM;
}

}  // namespace

CommandTask attdef(CommandContext context) {
    if (co_await askModes(context) == RTCAN) co_return CommandEnd::Cancelled;
    const int modes = context.editor().variables().number(L"AFLAGS");
    const bool constant = (modes & AcDbAttributeText::kConstant) != 0;
    const InputValue tag = co_await askTag(context);
    if (tag.status != RTNORM) co_return endOf(tag.status);
    auto definition = std::make_unique<AcDbAttributeDefinition>();
    (void)definition->setTag(tag.text.c_str());  // was tried
    (void)definition->setModes(modes);           // AFLAGS has no other bits
    if (!constant) {
        const InputValue prompt =
            co_await askWords(context, L"\nPergunta do atributo <" + tag.text + L">: ");
        if (prompt.status == RTCAN) co_return CommandEnd::Cancelled;
        (void)definition->setPrompt(prompt.text.c_str());
    }
    const std::wstring question =
        constant ? L"\nValor do atributo: " : L"\nValor padrão do atributo: ";
    const InputValue value = co_await askWords(context, question);
    if (value.status == RTCAN) co_return CommandEnd::Cancelled;
    (void)definition->setTextString(value.text.c_str());
    if (co_await askPlace(context, definition.get()) == RTCAN) co_return CommandEnd::Cancelled;
    co_return addEntity(context, std::move(definition)).isNull() ? CommandEnd::Failed
                                                                 : CommandEnd::Done;
}

}  // namespace prancheta::commands
