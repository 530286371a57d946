// SPDX-License-Identifier: MIT
// Points inside a question: direct distance, direction locks, filters, two points for one number.
#include <cmath>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/question.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/typed_input.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

Reading Question::givePick(const RawInput& input, InputFrame& frame) {
    if (!takesPoints()) return refuse();
    if (!m_modifiers.empty() ||
        (m_request.kind != InputKind::Selection && m_request.kind != InputKind::Entity)) {
        return givePoint(onLockedDirection(input.point, frame), frame);
    }
    if (m_request.kind == InputKind::Entity) {
        m_shift = m_shift || input.removes;
        if (!input.entities.empty()) return acceptEntity(input.entities.front(), input.point);
        return acceptPoint(input.point, frame);
    }
    Reading reading;
    reading.kind = Reading::Kind::Answered;
    reading.value.status = RTNORM;
    reading.value.point = input.point;
    reading.value.entities = input.entities;
    reading.value.crossing = input.crossing;
    reading.value.removes = input.removes || m_shift;
    return reading;
}

Reading Question::giveTypedPoint(std::wstring_view text, InputFrame& frame) {
    if (startModifier(text)) return {};
    if (const std::optional<int> modes = prancheta::snapModes(text)) {
        if (*modes == kParallelSnap) {
            return {Reading::Kind::Refused,
                    {},
                    L"A captura Paralelo precisa de uma linha apontada na tela; não pode ser "
                    L"digitada."};
        }
        m_current.snapModes = *modes;
        return {};
    }
    const TypedPoint typed = readPoint(text, frame);
    switch (typed.kind) {
        case TypedPoint::Kind::None:
            return refuse();
        case TypedPoint::Kind::Direction:
            if (!m_current.base) return refuse();
            m_lockedAngle = typed.number;
            return {};
        case TypedPoint::Kind::Distance:
            if (!m_current.base) return refuse();
            return givePoint(directDistance(typed.number, frame), frame);
        case TypedPoint::Kind::Point:
            break;
    }
    // What is picked at a point is not looked for elsewhere.
    const bool picks =
        m_request.kind == InputKind::Selection || m_request.kind == InputKind::Entity;
    const int modes = m_current.snapModes.value_or(picks ? 0 : frame.runningSnaps);
    if (modes == 0 || !frame.snap) return givePoint(typed.world, frame);
    const SnapReach reach = m_current.snapModes ? SnapReach::Object : SnapReach::Aperture;
    const std::optional<AcGePoint3d> snapped =
        frame.snap(typed.world, modes, reach, m_current.base);
    if (!snapped && m_current.snapModes) {
        return {Reading::Kind::Refused,
                {},
                L"Nenhum ponto de captura encontrado no ponto especificado."};
    }
    return givePoint(snapped.value_or(typed.world), frame);
}

bool Question::startModifier(std::wstring_view text) {
    if (m_request.kind == InputKind::Selection) return false;
    std::wstring word = foldCase(text);
    if (!word.empty() && word.front() == L'_') word.erase(0, 1);
    if (word == L"from" || word == L"de") {
        m_modifiers.push_back({Step::From, {}, {}});
    } else if (word == L"m2p" || word == L"mtp") {
        m_modifiers.push_back({Step::MidOfTwo, {}, {}});
    } else if (word.size() >= 2 && word.size() <= 3 && word.front() == L'.' &&
               word.find_first_not_of(L"xyz", 1) == word.npos) {
        m_modifiers.push_back({Step::Filter, word.substr(1), {}});
    } else {
        return false;
    }
    showCurrent();
    return true;
}

/// The request as it stands after the present step: its prompt and its rubber band.
void Question::showCurrent() {
    m_current = m_request;
    // Where two points give a distance there is nothing to show before the first one.
    const bool measured = m_request.kind == InputKind::Distance && !m_request.base;
    if (measured && !m_first) m_current.preview = nullptr;
    if (m_modifiers.empty() && !m_first) return;
    // What the pointer gives now is not yet the answer that these show.
    m_current.moving = m_current.rotating = false;
    m_current.preview = nullptr;
    m_current.transforming = nullptr;
    if (m_modifiers.empty()) {
        m_current.prompt = L"\nEspecifique o segundo ponto: ";
        m_current.base = m_first;
        m_current.keywords = {};
        if (measured && m_request.preview)
            m_current.preview = [show = m_request.preview, from = *m_first](
                                    const AcGePoint3d& pointer, Picture& out) {
                show(AcGePoint3d::kOrigin + (pointer - from), out);
            };
        return;
    }
    const Modifier& top = m_modifiers.back();
    m_current.keywords = {};
    m_current.nullAllowed = false;
    const bool first = top.points.empty();
    switch (top.step) {
        case Step::From:
            m_current.prompt = first ? L"\nPonto base: " : L"\n<Deslocamento>: ";
            if (!first) m_current.base = top.points.front();
            break;
        case Step::MidOfTwo:
            m_current.prompt = first ? L"\nPrimeiro ponto do meio: " : L"\nSegundo ponto do meio: ";
            m_current.base.reset();
            break;
        case Step::Filter: {
            std::wstring missing;
            for (const wchar_t axis : {L'x', L'y', L'z'})
                if (top.axes.find(axis) == top.axes.npos) missing += axis;
            m_current.prompt =
                first ? L"\n." + top.axes + L" de: " : L"\n(falta " + upperCase(missing) + L"): ";
            break;
        }
    }
}

Reading Question::givePoint(const AcGePoint3d& world, InputFrame& frame) {
    AcGePoint3d at = world;
    m_current.snapModes = m_request.snapModes;
    m_lockedAngle.reset();
    while (!m_modifiers.empty()) {
        m_modifiers.back().points.push_back(at);
        const std::optional<AcGePoint3d> result = combined(frame);
        if (!result) break;
        at = *result;
        m_modifiers.pop_back();
    }
    if (m_request.kind != InputKind::Selection) frame.lastPoint = frame.ucs.inverse() * at;
    if (m_modifiers.empty()) return acceptPoint(at, frame);
    showCurrent();
    Reading reading;
    reading.value.status = RTNORM;
    reading.value.point = at;
    return reading;
}

/// Point of the innermost modifier, once it has its two points.
std::optional<AcGePoint3d> Question::combined(const InputFrame& frame) const {
    const Modifier& m = m_modifiers.back();
    if (m.points.size() < 2) return {};
    const AcGePoint3d& a = m.points[0];
    const AcGePoint3d& b = m.points[1];
    if (m.step == Step::From) return b;
    if (m.step == Step::MidOfTwo) return a + (b - a) * 0.5;
    const AcGeMatrix3d toUser = frame.ucs.inverse();
    const AcGePoint3d from = toUser * a;
    AcGePoint3d result = toUser * b;
    if (m.axes.find(L'x') != m.axes.npos) result.x = from.x;
    if (m.axes.find(L'y') != m.axes.npos) result.y = from.y;
    if (m.axes.find(L'z') != m.axes.npos) result.z = from.z;
    return frame.ucs * result;
}

Reading Question::acceptPoint(const AcGePoint3d& world, const InputFrame& frame) {
    const bool distance = m_request.kind == InputKind::Distance;
    if (m_request.kind == InputKind::Entity) {
        return acceptEntity(frame.pick ? frame.pick(world) : AcDbObjectId::kNull, world);
    }
    Reading reading;
    reading.value.status = RTNORM;
    reading.value.point = world;
    reading.value.removes = m_shift;
    if (!distance && m_request.kind != InputKind::Angle) {
        reading.kind = Reading::Kind::Answered;
        return reading;
    }
    const std::optional<AcGePoint3d> base = m_first ? m_first : m_request.base;
    if (!base) {
        m_first = world;
        showCurrent();
        return reading;
    }
    AcGeVector3d reach = world - *base;
    if (m_request.flags & RSG_2D) reach.z = 0.0;
    Reading result = checkNumber(distance ? reach.length() : angleOf(*base, world, frame));
    result.value.point = world;
    result.value.byPoint = true;
    return result;
}

double Question::angleOf(const AcGePoint3d& from, const AcGePoint3d& to,
                         const InputFrame& frame) const {
    const AcGeVector3d v = frame.ucs.inverse() * (to - from);
    if (v.x == 0.0 && v.y == 0.0) return 0.0;
    const double direction = std::atan2(v.y, v.x);
    return positiveAngle(m_request.absoluteAngle ? direction : direction - frame.angleBase);
}

/// Along the rubber band: the locked direction, else towards the pointer (by the nearest axis under
/// ORTHO), else the X axis.
AcGePoint3d Question::directDistance(double distance, const InputFrame& frame) const {
    const AcGePoint3d base = *m_current.base;
    AcGeVector3d direction = AcGeVector3d::kXAxis;
    if (m_lockedAngle) {
        const SineCosine sc = sineCosine(*m_lockedAngle);
        direction = AcGeVector3d(sc.cosine, sc.sine, 0.0);
    } else if (frame.pointer) {
        AcGeVector3d towards = frame.ucs.inverse() * (*frame.pointer - base);
        if (frame.ortho && m_current.orthoAllowed) {
            towards = alongNearerAxis(towards, frame.snapAngle);
            towards.z = 0.0;
        }
        if (!towards.isZeroLength()) direction = towards.normal();
    }
    return base + frame.ucs * (direction * distance);
}

AcGePoint3d Question::onLockedDirection(const AcGePoint3d& world, const InputFrame& frame) const {
    if (!m_lockedAngle || !m_current.base) return world;
    const SineCosine sc = sineCosine(*m_lockedAngle);
    const AcGeVector3d direction = frame.ucs * AcGeVector3d(sc.cosine, sc.sine, 0.0);
    return *m_current.base + direction * (world - *m_current.base).dotProduct(direction);
}

}  // namespace prancheta
