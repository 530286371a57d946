// SPDX-License-Identifier: MIT
// By which point a line of text stands.
#include "prancheta/editor/commands/justification.h"

namespace prancheta::commands {

namespace {

constexpr Justification kJustifications[] = {
    {{L"Esquerda", L"Left"}, L"\nEspecifique o ponto inicial do texto: ", 0, 0},
    {{L"Centro", L"Center"}, L"\nEspecifique o ponto central do texto: ", 1, 0},
    {{L"Direita", L"Right"}, L"\nEspecifique a extremidade direita da linha base do texto: ", 2, 0},
    {{L"Meio", L"Middle"}, L"\nEspecifique o ponto do meio do texto: ", 4, 0},
    {{L"SE", L"TL"}, L"\nEspecifique o ponto superior esquerdo do texto: ", 0, 3},
    {{L"SC", L"TC"}, L"\nEspecifique o ponto superior central do texto: ", 1, 3},
    {{L"SD", L"TR"}, L"\nEspecifique o ponto superior direito do texto: ", 2, 3},
    {{L"ME", L"ML"}, L"\nEspecifique o ponto médio esquerdo do texto: ", 0, 2},
    {{L"MC", L"MC"}, L"\nEspecifique o ponto médio central do texto: ", 1, 2},
    {{L"MD", L"MR"}, L"\nEspecifique o ponto médio direito do texto: ", 2, 2},
    {{L"IE", L"BL"}, L"\nEspecifique o ponto inferior esquerdo do texto: ", 0, 1},
    {{L"IC", L"BC"}, L"\nEspecifique o ponto inferior central do texto: ", 1, 1},
    {{L"ID", L"BR"}, L"\nEspecifique o ponto inferior direito do texto: ", 2, 1},
};

}  // namespace

std::span<const Justification> justifications() { return kJustifications; }

Task<InputValue> askJustifiedPoint(CommandContext context, const Justification** chosen) {
    Prompt prompt(
        InputKind::Keyword,
        L"\nDigite uma opção [Esquerda/Centro/Direita/Meio/SE/SC/SD/ME/MC/MD/IE/IC/ID]: ");
    for (const Justification& each : kJustifications) prompt.words({&each.word, 1});
    const InputValue option = co_await context.ask(prompt.required());
    if (option.status != RTKWORD) co_return option;
    for (const Justification& each : kJustifications)
        if (option.text == each.word.global) *chosen = &each;
    InputValue at = co_await context.ask(Prompt(InputKind::Point, (*chosen)->prompt).required());
    co_return at;
}

void placeText(AcDbText& text, const AcGePoint3d& at, const Justification& justification) {
    // None of these can refuse: the values come from the table.
    (void)text.setPosition(at);
    if (justification.horizontal == 0 && justification.vertical == 0) return;
    (void)text.setHorizontalMode(justification.horizontal);
    (void)text.setVerticalMode(justification.vertical);
    (void)text.setAlignmentPoint(at);
}

}  // namespace prancheta::commands
