// SPDX-License-Identifier: MIT
// A question from its first prompt to an answer that makes sense, whoever gives it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gemat3d.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta {

/// What typed answers are read against.
struct InputFrame {
    AcGePoint3d lastPoint;  ///< user coordinates; updated by every accepted point
    AcGeMatrix3d ucs;       ///< from user to world coordinates
    double angleBase = 0.0;  ///< ANGBASE, radians
    bool clockwise = false;  ///< ANGDIR
    bool ortho = false;
    std::optional<AcGePoint3d> pointer;  ///< world; where the pointer stands, for direct distance entry
    /// Nearest snap point of the modes (bits of OSMODE) to a world point; empty function: no snapping.
    std::function<std::optional<AcGePoint3d>(const AcGePoint3d&, int)> snap;
    /// Topmost entity at a world point.
    std::function<AcDbObjectId(const AcGePoint3d&)> pick;
    /// Entity of a handle; null id when there is none.
    std::function<AcDbObjectId(Adesk::UInt64)> byHandle;
    /// Last created entity.
    std::function<AcDbObjectId()> last;
};

/// What became of one input.
struct Reading {
    enum class Kind { Answered, Again, Refused };
    Kind kind = Kind::Again;
    InputValue value;      ///< Answered
    std::wstring message;  ///< Refused: why; Again: what to tell, may be empty
};

/// Takes raw inputs until they make an answer. Second points, point filters, middle of two points, offset
/// from a point and snap words are steps inside one question.
class Question {
public:
    explicit Question(InputRequest request);

    /// What to show now: the request itself, or the step inside it.
    const InputRequest& current() const { return m_current; }
    const InputRequest& request() const { return m_request; }
    Reading give(const RawInput& input, InputFrame& frame);
    /// An angle in radians, not to be read by ANGBASE and ANGDIR.
    Reading giveAngle(double radians);

private:
    enum class Step { From, MidOfTwo, Filter };
    /// A step inside the question; `points` are in user coordinates.
    struct Modifier {
        Step step;
        std::wstring axes;  // of a filter: the coordinates taken from the first point
        std::vector<AcGePoint3d> points;
    };

    Reading giveText(const std::wstring& text, InputFrame& frame);
    Reading giveEmpty() const;
    Reading givePoint(AcGePoint3d world, InputFrame& frame);
    Reading acceptPoint(const AcGePoint3d& world, const InputFrame& frame);
    Reading giveNumber(double number, InputFrame& frame);
    Reading giveSelection(const std::wstring& text, InputFrame& frame);
    Reading checkNumber(double number) const;
    Reading refuse() const;
    bool takesPoints() const;
    bool startModifier(const std::wstring& text);
    std::optional<Reading> readSnapWord(const std::wstring& text);
    std::optional<AcGePoint3d> combine(const Modifier& modifier) const;
    AcGePoint3d directDistance(double distance, const InputFrame& frame) const;
    void showCurrent();

    InputRequest m_request;
    InputRequest m_current;
    std::vector<Modifier> m_modifiers;
    std::optional<AcGePoint3d> m_first;      // of two points, world
    std::optional<double> m_lockedAngle;     // radians, user system
};

}  // namespace prancheta
