// SPDX-License-Identifier: MIT
// MTEXT: paragraphs of text in a frame.
#include <algorithm>
#include <cmath>

#include "dbmtext.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kMtextWords[] = {{L"Altura", L"Height"},     {L"Justificar", L"Justify"},
                                {L"Linha", L"Linespacing"}, {L"Rotação", L"Rotation"},
                                {L"Estilo", L"Style"},      {L"larGura", L"Width"}};
/// In the order of attachments.
constexpr Word kCorners[] = {{L"SE", L"TL"}, {L"SC", L"TC"}, {L"SD", L"TR"},
                             {L"ME", L"ML"}, {L"MC", L"MC"}, {L"MD", L"MR"},
                             {L"IE", L"BL"}, {L"IC", L"BC"}, {L"ID", L"BR"}};

/// The frame and what is written in it.
struct Sheet {
    AcGePoint3d first;
    AcGePoint3d opposite;
    std::optional<double> width;  ///< said instead of the opposite corner
    TextStyle style;
    double height = 2.5;
    double rotation = 0.0;  ///< from the world's X axis
    double spacing = 1.0;
    int attachment = AcDbMText::kTopLeft;
};

AcGeVector3d alongOf(const Sheet& sheet) {
    const SineCosine sc = sineCosine(sheet.rotation);
    return {sc.cosine, sc.sine, 0.0};
}

double widthOf(const Sheet& sheet) {
    if (sheet.width) return *sheet.width;
    return std::abs((sheet.opposite - sheet.first).dotProduct(alongOf(sheet)));
}

/// Top left corner, and how far the frame goes down.
AcGePoint3d cornerOf(const Sheet& sheet, double& down) {
    const AcGeVector3d along = alongOf(sheet);
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(along);
    const AcGeVector3d across = sheet.width ? along * *sheet.width : sheet.opposite - sheet.first;
    down = std::abs(across.dotProduct(up));
    return sheet.first + along * std::min(across.dotProduct(along), 0.0) +
           up * std::max(across.dotProduct(up), 0.0);
}

std::unique_ptr<AcDbMText> makeText(const Sheet& sheet, const std::wstring& contents) {
    auto text = std::make_unique<AcDbMText>();
    const AcGeVector3d along = alongOf(sheet);
    const int place = sheet.attachment - 1;
    const int row = place / 3;
    double down = 0.0;
    const AcGePoint3d corner = cornerOf(sheet, down);
    // None of these can refuse: the questions did.
    (void)text->setLocation(corner + along * (widthOf(sheet) * (place % 3) / 2.0) -
                            AcGeVector3d::kZAxis.crossProduct(along) * (down * row / 2.0));
    (void)text->setDirection(along);
    (void)text->setTextStyle(sheet.style.id);
    (void)text->setTextHeight(sheet.height);
    (void)text->setWidth(widthOf(sheet));
    (void)text->setLineSpacingFactor(sheet.spacing);
    (void)text->setAttachment(static_cast<AcDbMText::AttachmentPoint>(sheet.attachment));
    (void)text->setContents(contents.c_str());
    return text;
}

Task<int> askJustification(CommandContext context, Sheet* sheet) {
    const std::wstring present = kCorners[sheet->attachment - 1].local;
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword,
               L"\nJustificação [SE/SC/SD/ME/MC/MD/IE/IC/ID] <" + present + L">: ")
            .words(kCorners));
    for (int i = 0; i < 9; ++i)
        if (isWord(answer, kCorners[i].global)) sheet->attachment = i + 1;
    co_return answer.status;
}

Task<int> askSpacing(CommandContext context, Sheet* sheet) {
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Real, L"\nFator de espaçamento de linha <" +
                                                             lengthText(sheet->spacing) + L">: ")
                                     .bits(RSG_NOZERO | RSG_NONEG));
        const bool good = answer.number >= 0.25 && answer.number <= 4.0;
        if (answer.status == RTNORM && good) sheet->spacing = answer.number;
        if (answer.status != RTNORM || good) co_return answer.status;
        context.editor().complain(L"O fator vai de 0,25 a 4.", Complaint::Refused);
    }
}

Task<int> askNumber(CommandContext context, const Sheet* sheet, InputKind kind,
                    std::wstring question, double* value) {
    Prompt prompt(kind, question);
    prompt.from(sheet->first).bits(kind == InputKind::Distance ? RSG_NONEG : 0);
    if (kind == InputKind::Angle) prompt.absolute();
    const InputValue answer = co_await context.ask(prompt);
    if (answer.status == RTNORM) *value = answer.number;
    co_return answer.status;
}

/// One option; RTCAN after Esc.
Task<int> askOption(CommandContext context, std::wstring option, Sheet* sheet) {
    if (option == L"Justify") co_return co_await askJustification(context, sheet);
    if (option == L"Linespacing") co_return co_await askSpacing(context, sheet);
    if (option == L"Rotation") {
        double rotation = sheet->rotation - userTurn(context);
        const int status = co_await askNumber(
            context, sheet, InputKind::Angle,
            L"\nÂngulo de rotação <" + directionText(rotation) + L">: ", &rotation);
        sheet->rotation = rotation + userTurn(context);
        co_return status;
    }
    if (option == L"Width") {
        double width = 0.0;
        const int status =
            co_await askNumber(context, sheet, InputKind::Distance, L"\nLargura <0>: ", &width);
        if (status != RTCAN) sheet->width = width;
        co_return status;
    }
    if (option == L"Style") {
        const AcDbObjectId style = co_await askTextStyle(context, sheet->style.id);
        if (style.isNull()) co_return RTCAN;
        sheet->style = textStyleOf(style);
        if (sheet->style.height > 0.0) sheet->height = sheet->style.height;
        co_return RTNORM;
    }
    double height = 0.0;
    const int status =
        co_await askNumber(context, sheet, InputKind::Distance,
                           L"\nAltura <" + lengthText(sheet->height) + L">: ", &height);
    if (height > 0.0) keepTextHeight(context, sheet->height = height);
    co_return status;
}

/// The opposite corner or a width, and the options said before.
Task<int> askFrame(CommandContext context, Sheet* sheet) {
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Corner,
                                        L"\nCanto oposto ou [Altura/Justificar/espaçamento de "
                                        L"Linha/Rotação/Estilo/larGura]: ")
                                     .from(sheet->first)
                                     .words(kMtextWords)
                                     .required());
        if (answer.status == RTNORM) sheet->opposite = answer.point;
        if (answer.status != RTKWORD) co_return answer.status;
        if (co_await askOption(context, answer.text, sheet) == RTCAN) co_return RTCAN;
        if (sheet->width) co_return RTNORM;
    }
}

}  // namespace

CommandTask mtext(CommandContext context) {
    Sheet sheet;
    sheet.style = currentTextStyle(context);
    sheet.height = sheet.style.height > 0.0 ? sheet.style.height : offeredTextHeight(context);
    sheet.rotation = positiveAngle(userTurn(context));
    say(context, L"Estilo atual do texto:  \"" + sheet.style.name + L"\"  Altura do texto:  " +
                     toldLength(sheet.height));
    const InputValue first =
        co_await context.ask(Prompt(InputKind::Point, L"\nPrimeiro canto: ").required());
    if (first.status != RTNORM) co_return endOf(first.status);
    sheet.first = first.point;
    const int framed = co_await askFrame(context, &sheet);
    if (framed != RTNORM) co_return endOf(framed);
    TextFrame frame;
    double down = 0.0;
    frame.corner = cornerOf(sheet, down);
    frame.along = alongOf(sheet);
    frame.height = sheet.height;
    frame.width = widthOf(sheet);
    frame.lines = true;
    const TypedLines typed = co_await askTextLines(context, L"\nDigite o texto: ", &frame);
    if (typed.lines.empty()) {
        say(context, L"Sem texto: nada foi desenhado.");
        co_return endOf(typed.status);
    }
    const AcDbObjectId id = addEntity(context, makeText(sheet, joinParagraphs(typed.lines)));
    co_return id.isNull() ? CommandEnd::Failed : endOf(typed.status);
}

}  // namespace prancheta::commands
