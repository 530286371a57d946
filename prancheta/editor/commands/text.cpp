// SPDX-License-Identifier: MIT
// TEXT: lines of text, one below the other.
#include "dbents.h"
#include "prancheta/editor/commands/justification.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

/// From one line to the next one, in heights.
constexpr double kLineSpacing = 5.0 / 3.0;
constexpr Word kTextPlaceWords[] = {{L"Justificar", L"Justify"}, {L"Estilo", L"Style"}};

/// How the next line is written.
struct Writing {
    int status = RTCAN;
    AcGePoint3d point;
    const Justification* justification = &justifications().front();
    TextStyle style;
    double height = 2.5;
    double rotation = 0.0;
    bool goesOn = false;  ///< below the last text, as that is
};

/// From a line's place to that of the line below it.
AcGeVector3d lineFeed(const Writing& writing) {
    const SineCosine sc = sineCosine(writing.rotation);
    return AcGeVector3d(sc.sine, -sc.cosine, 0.0) * (writing.height * kLineSpacing);
}

/// Below the text that was written last; false when it is gone.
bool goOn(const CommandContext& context, Writing& writing) {
    const AcDbObjectPointer<AcDbText> last(memory(context).lastText, AcDb::kForRead);
    if (last.openStatus() != Acad::eOk || last->database() != &context.database()) return false;
    for (const Justification& each : justifications())
        if (each.horizontal == last->horizontalMode() && each.vertical == last->verticalMode())
            writing.justification = &each;
    const bool left = writing.justification == &justifications().front();
    writing.style = textStyleOf(last->textStyle());
    writing.height = last->height();
    writing.rotation = last->rotation();
    writing.point = (left ? last->position() : last->alignmentPoint()) + lineFeed(writing);
    writing.goesOn = true;
    return true;
}

Task<Writing> askPlace(CommandContext context) {
    Writing writing;
    writing.style = currentTextStyle(context);
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Point,
                   L"\nEspecifique o ponto inicial do texto ou [Justificar/Estilo]: ")
                .words(kTextPlaceWords));
        if (isWord(answer, L"Style")) {
            const AcDbObjectId style = co_await askTextStyle(context, writing.style.id);
            if (style.isNull()) co_return writing;
            (void)context.database().setTextstyle(style);  // it is one of this drawing
            writing.style = textStyleOf(style);
            continue;
        }
        if (isWord(answer, L"Justify"))
            answer = co_await askJustifiedPoint(context, &writing.justification);
        writing.status = answer.status;
        writing.point = answer.point;
        if (answer.status != RTNONE) co_return writing;
        if (goOn(context, writing)) {
            writing.status = RTNORM;
            co_return writing;
        }
        context.editor().complain(L"Não há um texto anterior: indique o ponto.", Complaint::Again);
    }
}

/// Height and rotation; RTCAN after Esc.
Task<int> askSize(CommandContext context, Writing* writing) {
    Memory& kept = memory(context);
    writing->height =
        writing->style.height > 0.0 ? writing->style.height : offeredTextHeight(context);
    if (writing->style.height <= 0.0) {
        const InputValue height = co_await context.ask(
            Prompt(InputKind::Distance,
                   L"\nEspecifique a altura <" + lengthText(writing->height) + L">: ")
                .from(writing->point)
                .bits(RSG_NOZERO | RSG_NONEG));
        if (height.status == RTCAN) co_return RTCAN;
        if (height.status == RTNORM) keepTextHeight(context, writing->height = height.number);
    }
    const InputValue rotation = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique o ângulo de rotação do texto <" +
                                     directionText(kept.textRotation) + L">: ")
            .from(writing->point)
            .absolute());
    if (rotation.status == RTNORM) kept.textRotation = rotation.number;
    writing->rotation = kept.textRotation + userTurn(context);
    co_return rotation.status;
}

std::unique_ptr<AcDbText> makeText(const Writing& writing, const std::wstring& words) {
    auto text = std::make_unique<AcDbText>(writing.point, words.c_str(), writing.style.id,
                                           writing.height, writing.rotation);
    // None of these can refuse: the values come from the table and from the style.
    (void)text->setWidthFactor(writing.style.widthFactor);
    (void)text->setOblique(writing.style.oblique);
    placeText(*text, writing.point, *writing.justification);
    return text;
}

}  // namespace

CommandTask text(CommandContext context) {
    const TextStyle style = currentTextStyle(context);
    say(context, L"Estilo atual do texto:  \"" + style.name + L"\"  Altura do texto:  " +
                     toldLength(style.height > 0.0 ? style.height : offeredTextHeight(context)));
    Writing writing = co_await askPlace(context);
    if (writing.status != RTNORM) co_return endOf(writing.status);
    if (!writing.goesOn && co_await askSize(context, &writing) == RTCAN)
        co_return CommandEnd::Cancelled;
    for (;;) {
        const InputValue words =
            co_await context.ask(Prompt(InputKind::Text, L"\nDigite o texto: ").wholeLine());
        if (words.status != RTNORM || words.text.empty()) co_return endOf(words.status);
        memory(context).lastText = addEntity(context, makeText(writing, words.text));
        if (memory(context).lastText.isNull()) co_return CommandEnd::Failed;
        writing.point += lineFeed(writing);
    }
}

}  // namespace prancheta::commands
