// SPDX-License-Identifier: MIT
// What the commands that write and change texts share.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// Values of a text style; the standard ones when it cannot be read.
struct TextStyle {
    AcDbObjectId id;
    std::wstring name;
    double height = 0.0;  ///< drawing units; 0: each text has its own
    double widthFactor = 1.0;
    double oblique = 0.0;  ///< radians
};
TextStyle textStyleOf(AcDbObjectId id);
TextStyle currentTextStyle(const CommandContext& context);
/// Of a name in the drawing; null when there is none.
AcDbObjectId textStyleNamed(const CommandContext& context, const std::wstring& name);
/// "Nome do estilo <Standard>:" until a style of the drawing is named; null after Esc. Enter takes
/// `byDefault`.
Task<AcDbObjectId> askTextStyle(CommandContext context, AcDbObjectId byDefault);

/// TEXTSIZE, drawing units.
double offeredTextHeight(const CommandContext& context);
/// What the user gives is offered the next time.
void keepTextHeight(const CommandContext& context, double height);

/// Lines until an empty one, or all at once from who edits in place; the first is asked with
/// `prompt`. `status` is RTCAN after Esc; lines typed before it are kept. The frame outlives the
/// questions.
struct TypedLines {
    TypedLines(int s) : status(s) {}
    int status;
    std::vector<std::wstring> lines;
};
Task<TypedLines> askTextLines(CommandContext context, std::wstring prompt, const TextFrame* frame);
/// Lines of an answer that was edited in place; nothing for one that was typed.
std::optional<std::vector<std::wstring>> linesInPlace(const std::wstring& answer);
/// As paragraphs of an MTEXT.
std::wstring joinParagraphs(const std::vector<std::wstring>& lines);

/// A text of an object: a TEXT's, an MTEXT's with its codes, the user's of a dimension, the line of
/// a weld, the value of an attribute.
struct Words {
    std::wstring text;
    std::wstring tag;         ///< of an attribute
    bool paragraphs = false;  ///< codes stand in it
    TextFrame frame;
};
/// In the object's order; none for one that has no text.
std::vector<Words> wordsOf(const AcDbEntity& entity);
/// Changes the text with this place among wordsOf(). eInvalidInput for a weld that is not
/// understood, eNotApplicable for an object that has no such text.
Acad::ErrorStatus setWords(AcDbEntity& entity, std::size_t place, const std::wstring& text);

}  // namespace prancheta::commands
