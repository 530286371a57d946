// SPDX-License-Identifier: MIT
// TEXT: lines of text, one below the other.
#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/editor/commands/justification.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

/// From one line to the next one, in heights.
constexpr double kLineSpacing = 5.0 / 3.0;
constexpr Word kJustify[] = {{L"Justificar", L"Justify"}};

struct Style {
    AcDbObjectId id;
    std::wstring name;
    double height = 0.0;  // 0: each text has its own
    double widthFactor = 1.0;
};

Style currentStyle(const CommandContext& context) {
    Style style{context.database().textstyle(), L"Standard"};
    AcDbObjectPointer<AcDbTextStyleTableRecord> record(style.id, AcDb::kForRead);
    if (record.openStatus() != Acad::eOk) return style;
    const ACHAR* name = nullptr;
    if (record->getName(name) == Acad::eOk) style.name = name;
    style.height = record->textSize();
    style.widthFactor = record->xScale();
    return style;
}

struct Placing {
    int status = RTCAN;
    AcGePoint3d point;
    const Justification* justification = &justifications().front();
};

Task<Placing> askPlace(CommandContext context) {
    Placing placing;
    InputValue answer = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto inicial do texto ou [Justificar]: ")
            .words(kJustify)
            .required());
    if (answer.status == RTKWORD)
        answer = co_await askJustifiedPoint(context, &placing.justification);
    placing.status = answer.status;
    placing.point = answer.point;
    co_return placing;
}

std::unique_ptr<AcDbText> makeText(const Placing& placing, const std::wstring& words,
                                   const Style& style, const Memory& kept) {
    const double height = style.height > 0.0 ? style.height : kept.textHeight;
    auto text = std::make_unique<AcDbText>(placing.point, words.c_str(), style.id, height,
                                           kept.textRotation);
    // None of these can refuse: the values come from the table and from the style.
    (void)text->setWidthFactor(style.widthFactor);
    placeText(*text, placing.point, *placing.justification);
    return text;
}

/// From a line's place to that of the line below it.
AcGeVector3d lineFeed(double height, double rotation) {
    const SineCosine sc = sineCosine(rotation);
    return AcGeVector3d(sc.sine, -sc.cosine, 0.0) * (height * kLineSpacing);
}

}  // namespace

CommandTask text(CommandContext context) {
    Memory& kept = memory(context);
    const Style style = currentStyle(context);
    say(context, L"Estilo atual do texto:  \"" + style.name + L"\"  Altura do texto:  " +
                     toldLength(style.height > 0.0 ? style.height : kept.textHeight));

    Placing placing = co_await askPlace(context);
    if (placing.status != RTNORM) co_return endOf(placing.status);
    if (style.height <= 0.0) {
        const InputValue height = co_await context.ask(
            Prompt(InputKind::Distance,
                   L"\nEspecifique a altura <" + lengthText(kept.textHeight) + L">: ")
                .from(placing.point)
                .bits(RSG_NOZERO | RSG_NONEG));
        if (height.status == RTCAN) co_return CommandEnd::Cancelled;
        if (height.status == RTNORM) kept.textHeight = height.number;
    }
    const InputValue rotation = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique o ângulo de rotação do texto <" +
                                     directionText(kept.textRotation) + L">: ")
            .from(placing.point)
            .absolute());
    if (rotation.status == RTCAN) co_return CommandEnd::Cancelled;
    if (rotation.status == RTNORM) kept.textRotation = rotation.number;

    for (;;) {
        const InputValue words =
            co_await context.ask(Prompt(InputKind::Text, L"\nDigite o texto: ").wholeLine());
        if (words.status != RTNORM || words.text.empty()) co_return endOf(words.status);
        std::unique_ptr<AcDbText> line = makeText(placing, words.text, style, kept);
        placing.point += lineFeed(line->height(), kept.textRotation);
        if (addEntity(context, std::move(line)).isNull()) co_return CommandEnd::Failed;
    }
}

}  // namespace prancheta::commands
