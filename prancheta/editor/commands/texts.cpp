// SPDX-License-Identifier: MIT
// What the commands that write and change texts share.
#include "prancheta/editor/commands/texts.h"

#include "dbdim.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/text_layout.h"
#include "prancheta/entities/weld_symbol.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr double kPaperHeight = 2.5;  ///< of letters, mm

}  // namespace

TextStyle textStyleOf(AcDbObjectId id) {
    TextStyle style;
    style.id = id;
    style.name = L"Standard";
    const AcDbObjectPointer<AcDbTextStyleTableRecord> record(id, AcDb::kForRead);
    if (record.openStatus() != Acad::eOk) return style;
    style.name = ObjectAccess::recordName(id);
    style.height = record->textSize();
    style.widthFactor = record->xScale();
    style.oblique = record->obliquingAngle();
    return style;
}

TextStyle currentTextStyle(const CommandContext& context) {
    return textStyleOf(context.database().textstyle());
}

AcDbObjectId textStyleNamed(const CommandContext& context, const std::wstring& name) {
    return ObjectAccess::lookup(context.database().textStyleTableId(), name);
}

Task<AcDbObjectId> askTextStyle(CommandContext context, AcDbObjectId byDefault) {
    for (;;) {
        const InputValue name = co_await context.ask(
            Prompt(InputKind::Text,
                   L"\nNome do estilo <" + ObjectAccess::recordName(byDefault) + L">: ")
                .wholeLine());
        if (name.status == RTCAN) co_return AcDbObjectId::kNull;
        const std::wstring wanted(trim(std::wstring_view(name.text)));
        if (name.status == RTNONE || wanted.empty()) co_return byDefault;
        const AcDbObjectId id = textStyleNamed(context, wanted);
        if (!id.isNull()) co_return id;
        context.editor().complain(
            L"O desenho não tem o estilo de texto \"" + wanted + L"\": ESTILO o cria.",
            Complaint::Refused);
    }
}

namespace {

/// TEXTSIZE follows the drawing's scale, which a sheet does not have.
double onPaper(const CommandContext& context) {
    const double scale = context.database().dimscale();
    return scale > 0.0 ? annotationScale(context) / scale : 1.0;
}

}  // namespace

double offeredTextHeight(const CommandContext& context) {
    return context.editor().variables().real(L"TEXTSIZE") * onPaper(context);
}

void keepTextHeight(const CommandContext& context, double height) {
    // It is positive.
    (void)context.editor().variables().set(L"TEXTSIZE", height / onPaper(context));
}

std::optional<std::vector<std::wstring>> linesInPlace(const std::wstring& answer) {
    if (answer.empty() || answer.back() != L'\n') return std::nullopt;
    std::vector<std::wstring> lines;
    for (std::size_t from = 0; from < answer.size();) {
        const std::size_t end = answer.find(L'\n', from);
        lines.push_back(answer.substr(from, end - from));
        from = end + 1;
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

Task<TypedLines> askTextLines(CommandContext context, std::wstring prompt, const TextFrame* frame) {
    TypedLines typed(RTNORM);
    for (;;) {
        Prompt line(InputKind::Text, typed.lines.empty() ? prompt : L"\nDigite o texto: ");
        line.wholeLine();
        if (typed.lines.empty()) line.inPlace(*frame);
        const InputValue answer = co_await context.ask(line);
        if (const auto all = linesInPlace(answer.text)) {
            typed.lines = *all;
            co_return typed;
        }
        typed.status = answer.status;
        if (answer.status != RTNORM || answer.text.empty()) co_return typed;
        typed.lines.push_back(answer.text);
    }
}

std::wstring joinParagraphs(const std::vector<std::wstring>& lines) {
    std::wstring contents;
    for (const std::wstring& line : lines) {
        if (&line != &lines.front()) contents += L"\\P";
        contents += line;
    }
    return contents;
}

namespace {

Words wordsOfText(const AcDbText& text) {
    Words words;
    words.text = text.textStringConst();
    const TextPlace place = placeOf(text);
    const AcGeVector3d middle = middleOf(text);
    const AcGeVector3d up = text.normal().crossProduct(place.direction);
    // Of a text seen from behind the left end is where its last letter stands.
    const double left = text.normal().z < 0.0 ? 1.0 : -1.0;
    words.frame.along = place.direction * -left;
    words.frame.height = text.height();
    words.frame.corner = place.start + place.direction * (middle.x * (1.0 + left)) +
                         up * (middle.y + text.height() / 2.0);
    return words;
}

Words wordsOfParagraphs(const AcDbMText& text) {
    Words words;
    words.text = text.contentsConst();
    words.paragraphs = words.frame.lines = true;
    const int place = text.attachment() - 1;
    const double width = text.width() > 0.0 ? text.width() : text.actualWidth();
    words.frame.along = text.direction();
    words.frame.height = text.textHeight();
    words.frame.width = text.width();
    words.frame.corner =
        text.location() - text.direction() * (width * (place % 3) / 2.0) +
        text.normal().crossProduct(text.direction()) * (text.actualHeight() * (place / 3) / 2.0);
    return words;
}

Words wordsAt(const AcGePoint3d& corner, double scale, std::wstring text) {
    Words words;
    words.text = std::move(text);
    words.frame.corner = corner;
    words.frame.height = kPaperHeight * scale;
    return words;
}

}  // namespace

std::vector<Words> wordsOf(const AcDbEntity& entity) {
    std::vector<Words> all;
    if (const auto* const text = AcDbText::cast(&entity)) {
        all.push_back(wordsOfText(*text));
    } else if (const auto* const paragraphs = AcDbMText::cast(&entity)) {
        all.push_back(wordsOfParagraphs(*paragraphs));
    } else if (const auto* const dimension = AcDbDimension::cast(&entity)) {
        const std::wstring text = dimension->dimensionTextConst();
        all.push_back(
            wordsAt(dimension->textPosition(), dimension->dimscale(), text.empty() ? L"<>" : text));
    } else if (const auto* const weld = WeldSymbol::cast(&entity)) {
        all.push_back(wordsAt(weld->elbow(), weld->scale(), weld->description()));
    } else if (const auto* const reference = AcDbBlockReference::cast(&entity)) {
        for (const AcDbAttribute* const attribute : attributesOf(*reference)) {
            all.push_back(wordsOfText(*attribute));
            all.back().tag = attribute->tagConst();
        }
    }
    for (Words& words : all) words.frame.text = words.text;
    return all;
}

Acad::ErrorStatus setWords(AcDbEntity& entity, std::size_t place, const std::wstring& text) {
    if (auto* const line = AcDbText::cast(&entity)) return line->setTextString(text.c_str());
    if (auto* const paragraphs = AcDbMText::cast(&entity))
        return paragraphs->setContents(text.c_str());
    if (auto* const dimension = AcDbDimension::cast(&entity))
        return dimension->setDimensionText(text == L"<>" ? L"" : text.c_str());
    if (auto* const weld = WeldSymbol::cast(&entity)) return weld->setDescription(text);
    auto* const reference = AcDbBlockReference::cast(&entity);
    if (reference == nullptr) return Acad::eNotApplicable;
    const std::vector<AcDbAttribute*> attributes = attributesForChange(*reference);
    return place < attributes.size() ? attributes[place]->setTextString(text.c_str())
                                     : Acad::eNotApplicable;
}

}  // namespace prancheta::commands
