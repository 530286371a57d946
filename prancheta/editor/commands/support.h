// SPDX-License-Identifier: MIT
// What built-in commands share: questions, selections, transformations, new entities, numbers in
// prompts.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "adscodes.h"
#include "prancheta/editor/select.h"

namespace prancheta::commands {

using Ids = std::vector<AcDbObjectId>;

/// One option of a prompt: local and global word, capitals abbreviate.
struct Word {
    const wchar_t* local;
    const wchar_t* global;
};

/// Builds a request for CommandContext::ask; what is not said keeps the default of InputRequest.
class Prompt {
public:
    Prompt(InputKind kind, std::wstring prompt);
    /// Rubber band and direct distance entry start here.
    Prompt& from(const AcGePoint3d& base);
    Prompt& words(std::span<const Word> words);
    /// A bare Enter is no answer.
    Prompt& required();
    /// RSG_* bits.
    Prompt& bits(int flags);
    /// An angle counts from +X whatever ANGBASE says.
    Prompt& absolute();
    /// ORTHO does not hold the pointer.
    Prompt& anywhere();
    /// Blanks belong to the answer.
    Prompt& wholeLine();
    /// These entities follow the pointer: moved from the base, or turned about it.
    Prompt& moving(const Ids& ids);
    Prompt& turning(const Ids& ids);
    /// These entities are shown as the matrix for the pointer's place would leave them.
    Prompt& changing(const Ids& ids, std::function<AcGeMatrix3d(const AcGePoint3d&)> by);
    /// The entity that the pointer's place would give is shown; null for none.
    Prompt& showing(const CommandContext& context,
                    std::function<std::unique_ptr<AcDbEntity>(const AcGePoint3d&)> make);
    /// A text that may be edited where it stands.
    Prompt& inPlace(const TextFrame& frame);
    /// The pointer comes in world coordinates.
    Prompt& preview(std::function<void(const AcGePoint3d&, Picture&)> draw);
    /// Of the answer that Shift makes.
    Prompt& shiftPreview(std::function<void(const AcGePoint3d&, Picture&)> draw);
    operator InputRequest() const { return m_request; }

private:
    InputRequest m_request;
};

/// "Selecione objetos:" until Enter. For change: what lies on locked layers is left out.
Task<Selection> selectForChange(CommandContext context);
Task<Selection> selectToRead(CommandContext context);

/// Two points, the first one asked with `first`; `number` is their distance, `point` the second one
/// and `status` RTCAN when one was refused.
Task<InputValue> askTwoPoints(CommandContext context, std::wstring first, std::wstring second);

/// A number that is remembered: offered behind the question, and changed by any answer but Enter.
/// `status` RTCAN after Esc, else RTNORM.
Task<InputValue> askKept(CommandContext context, InputKind kind, std::wstring question, int bits,
                         double& kept);

/// [Sim/Não]; `number` is 1 for yes. Enter takes the default.
enum class Choice { No, Yes };
Task<InputValue> askYesNo(CommandContext context, std::wstring question, Choice byDefault);

/// One line of text on the command line.
void say(const CommandContext& context, std::wstring text);

/// How a command ends whose last answer had this status.
inline CommandEnd endOf(int status) {
    return status == RTCAN ? CommandEnd::Cancelled : CommandEnd::Done;
}
inline bool isWord(const InputValue& answer, std::wstring_view global) {
    return answer.status == RTKWORD && answer.text == global;
}

/// What is done to one of many entities, the `place`-th.
using Change = std::function<Acad::ErrorStatus(AcDbEntity& entity, std::size_t place)>;
/// Changes each in turn. The places of those that cannot be opened or refuse; these stay as they
/// were.
std::vector<std::size_t> changeEach(const Ids& ids, const Change& change);
/// What that would show of the first few hundred: more would hold up the pointer.
void showEach(const Ids& ids, const Change& change, Picture& out);

/// "2 objetos não puderam ser esticados."; nothing for 0.
void tellNotStretched(const CommandContext& context, std::size_t count);

/// Transforms every entity; says on the command line how many could not be.
void transformAll(const CommandContext& context, const Ids& ids, const AcGeMatrix3d& matrix);
/// Transformed copies. What cannot be transformed is not copied: it goes out of `ids`, so that it
/// is told once however often the rest is copied.
Ids copyAll(const CommandContext& context, Ids& ids, const AcGeMatrix3d& matrix);
/// False, after saying so, when `times` copies of each would be more than a slip with everything
/// selected may cost.
bool mayCopy(const CommandContext& context, double times, const Ids& ids);
/// Transforms copies that were just made; those that refuse are erased and told, and go out of
/// `copies`. Returns their places.
std::vector<std::size_t> transformCopies(const CommandContext& context, Ids& copies,
                                         const AcGeMatrix3d& matrix);
/// One of the two.
enum class Originals { Change, Stay };
void transformOrCopy(const CommandContext& context, Ids ids, const AcGeMatrix3d& matrix,
                     Originals originals);
/// Copies with their references among themselves translated, in the current space; empty, after
/// saying so, when they could not be made.
Ids cloneAll(const CommandContext& context, const Ids& ids);
/// Erases; returns those that were erased.
Ids eraseAll(const CommandContext& context, const Ids& ids);
/// The same as the last thing that a command does: OOPS brings them back.
void eraseForOops(const CommandContext& context, const Ids& ids);

/// Appends to the current space with the current layer, colour and linetype. Null, after saying so,
/// when that fails; the entity is deleted then.
AcDbObjectId addEntity(const CommandContext& context, std::unique_ptr<AcDbEntity> entity);

/// Drawing units of a millimetre on paper: DIMSCALE, through a viewport as its scale has it, and 1
/// on a sheet.
double annotationScale(const CommandContext& context);

/// How far the user's X axis is turned from the world's: what is added to a direction that the user
/// said, to have it in the world. Radians.
double userTurn(const CommandContext& context);

/// LASTANGLE: how the line or arc drawn last runs at its end; radians from the world's X axis.
void keepLastAngle(const CommandContext& context, double direction);

/// As LUNITS and LUPREC ask; drawing units.
std::wstring lengthText(double value);
/// The same with a decimal comma: for what is told, where lengthText() gives what could be typed.
std::wstring toldLength(double value);
/// As AUNITS, AUPREC, ANGBASE and ANGDIR ask: of a direction that counts from +X, and of a turn
/// from one direction to another; radians.
std::wstring directionText(double angle);
std::wstring turnText(const CommandContext& context, double angle);
std::wstring pointText(const AcGePoint3d& p);
/// "1 objeto" and "2 objetos": the number with the word that agrees with it.
std::wstring counted(std::size_t count, std::wstring_view one, std::wstring_view many);

/// Parts between commas, trimmed, empty ones left out.
std::vector<std::wstring> splitList(std::wstring_view list);

}  // namespace prancheta::commands
