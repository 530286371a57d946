// SPDX-License-Identifier: MIT
// A question from its first prompt to an answer that makes sense, whoever gives it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gemat3d.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta {

/// What typed answers are read against.
struct InputFrame {
    AcGePoint3d lastPoint;   ///< user coordinates; updated by every accepted point
    AcGeMatrix3d ucs;        ///< from user to world coordinates
    double angleBase = 0.0;  ///< ANGBASE, radians
    bool clockwise = false;  ///< ANGDIR
    int angleUnits = 0;      ///< AUNITS: what a plain number means
    bool ortho = false;
    double snapAngle = 0.0;  ///< SNAPANG, radians: turns the directions of `ortho`
    int runningSnaps = 0;    ///< modes that act on typed points, too (programs, OSNAPCOORD)
    std::optional<AcGePoint3d>
        pointer;  ///< world; where the pointer stands, for direct distance entry
    /// Nearest snap point of the modes (bits of OSMODE) to a world point, with the prompt's base
    /// for perpendiculars and tangents; empty function: no snapping.
    std::function<std::optional<AcGePoint3d>(const AcGePoint3d&, int, SnapReach,
                                             const std::optional<AcGePoint3d>& base)>
        snap;
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
    InputValue value;  ///< Answered; Again: a point that was taken on the way, status RTNORM then
    std::wstring message;  ///< Refused: why
};

/// Takes raw inputs until they make an answer. Second points, point filters, middle of two points,
/// offset from a point and snap words are steps inside one question.
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
    /// A step inside the question.
    struct Modifier {
        Step step;
        std::wstring axes;                // of a filter: the coordinates taken from the first point
        std::vector<AcGePoint3d> points;  // world
    };

    Reading giveText(std::wstring_view text, InputFrame& frame);
    Reading givePlainText(std::wstring_view text) const;
    Reading giveEmpty() const;
    Reading givePick(const RawInput& input, InputFrame& frame);
    Reading giveTypedPoint(std::wstring_view text, InputFrame& frame);
    Reading givePoint(const AcGePoint3d& world, InputFrame& frame);
    Reading acceptPoint(const AcGePoint3d& world, const InputFrame& frame);
    Reading acceptEntity(AcDbObjectId id, const AcGePoint3d& world) const;
    std::optional<Reading> giveNumber(std::wstring_view text, const InputFrame& frame) const;
    std::optional<Reading> giveObject(std::wstring_view text, const InputFrame& frame);
    Reading checkNumber(double number) const;
    Reading refuse() const;
    /// No first point yet and no step inside: words and numbers are answers.
    bool atStart() const { return m_modifiers.empty() && !m_first; }
    bool takesPoints() const;
    bool startModifier(std::wstring_view text);
    std::optional<AcGePoint3d> combined(const InputFrame& frame) const;
    AcGePoint3d directDistance(double distance, const InputFrame& frame) const;
    AcGePoint3d onLockedDirection(const AcGePoint3d& world, const InputFrame& frame) const;
    double angleOf(const AcGePoint3d& from, const AcGePoint3d& to, const InputFrame& frame) const;
    void showCurrent();

    InputRequest m_request;
    InputRequest m_current;
    std::vector<Modifier> m_modifiers;
    std::optional<AcGePoint3d> m_first;   // of two points, world
    std::optional<double> m_lockedAngle;  // radians, user system
    bool m_shift = false;                 // was said to be held for the next pick
};

}  // namespace prancheta
