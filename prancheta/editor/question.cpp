// SPDX-License-Identifier: MIT
// A question from its first prompt to an answer that makes sense.
#include "prancheta/editor/question.h"

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/typed_input.h"

namespace prancheta {
namespace {

Reading answered(InputValue value) { return {Reading::Kind::Answered, std::move(value), {}}; }

Reading refused(std::wstring message) { return {Reading::Kind::Refused, {}, std::move(message)}; }

Reading answeredWord(std::wstring text) {
    InputValue value;
    value.status = RTKWORD;
    value.text = std::move(text);
    return answered(std::move(value));
}

Reading answeredNumber(double number) {
    InputValue value;
    value.status = RTNORM;
    value.number = number;
    return answered(std::move(value));
}

}  // namespace

Question::Question(InputRequest request) : m_request(std::move(request)), m_current(m_request) {
    if (m_request.flags & RSG_NONULL) m_request.nullAllowed = false;
    showCurrent();
}

bool Question::takesPoints() const {
    switch (m_request.kind) {
        case InputKind::Point:
        case InputKind::Corner:
        case InputKind::Distance:
        case InputKind::Angle:
        case InputKind::Entity:
        case InputKind::Selection:
        case InputKind::Drag:
            return true;
        default:
            return false;
    }
}

Reading Question::refuse() const {
    if (!m_modifiers.empty()) return refused(L"Ponto inválido.");
    switch (m_request.kind) {
        case InputKind::Distance:
            return refused(L"Requer distância numérica ou dois pontos.");
        case InputKind::Angle:
            return refused(L"Requer um ângulo válido ou segundo ponto.");
        case InputKind::Integer:
            return refused(L"Requer um inteiro.");
        case InputKind::Real:
            return refused(L"Requer um valor numérico.");
        case InputKind::Keyword:
            return refused(L"Palavra-chave de opção inválida.");
        case InputKind::Text:
            return refused(L"Requer um texto.");
        case InputKind::Selection:
        case InputKind::Entity:
            return refused(L"Seleção inválida.");
        default:
            return refused(L"Ponto inválido.");
    }
}

Reading Question::give(const RawInput& input, InputFrame& frame) {
    switch (input.kind) {
        case RawInput::Kind::Cancel:
        case RawInput::Kind::EndOfInput: {
            InputValue value;
            value.status = RTCAN;
            return answered(std::move(value));
        }
        case RawInput::Kind::Move:
            return {};
        case RawInput::Kind::Snap:
            m_current.snapModes = input.snapModes;
            return {};
        case RawInput::Kind::Pick:
            return givePick(input, frame);
        case RawInput::Kind::Text:
            break;
    }
    return giveText(input.text, frame);
}

Reading Question::giveAngle(double radians) {
    return m_request.kind == InputKind::Angle && atStart() ? checkNumber(radians) : refuse();
}

Reading Question::giveEmpty() const {
    if (!m_request.nullAllowed || !atStart()) return refuse();
    InputValue value;
    value.status = RTNONE;
    return answered(std::move(value));
}

Reading Question::givePlainText(std::wstring_view text) const {
    if (!m_request.blanksAllowed) {
        text = trim(text);
        text = text.substr(0, text.find(L' '));
    }
    if (text.empty()) return giveEmpty();
    if (const Keyword* k = matchKeyword(text, m_request.keywords)) {
        return answeredWord(k->global.empty() ? k->local : k->global);
    }
    InputValue value;
    value.status = RTNORM;
    value.text = text;
    return answered(std::move(value));
}

Reading Question::giveText(std::wstring_view text, InputFrame& frame) {
    if (m_request.kind == InputKind::Text) return givePlainText(text);
    text = trim(text);
    if (text.empty()) return giveEmpty();
    if (atStart()) {
        if (const Keyword* k = matchKeyword(text, m_request.keywords)) {
            return answeredWord(k->global.empty() ? k->local : k->global);
        }
        if (std::optional<Reading> object = giveObject(text, frame)) return *object;
        if (std::optional<Reading> number = giveNumber(text, frame)) return *number;
    }
    Reading reading = takesPoints() ? giveTypedPoint(text, frame) : refuse();
    const bool other = (m_request.flags & RSG_OTHER) != 0 && atStart();
    if (reading.kind == Reading::Kind::Refused && other) return answeredWord(std::wstring(text));
    return reading;
}

std::optional<Reading> Question::giveObject(std::wstring_view text, const InputFrame& frame) {
    if (m_request.kind != InputKind::Selection && m_request.kind != InputKind::Entity) return {};
    if (equalNoCase(text, L"shift")) {
        m_shift = true;
        return Reading{};
    }
    AcDbObjectId id;
    if (const Adesk::UInt64 handle = readHandent(text); handle != 0 && frame.byHandle) {
        id = frame.byHandle(handle);
        if (id.isNull()) return refuse();
    } else if (m_request.kind == InputKind::Entity && frame.last &&
               (equalNoCase(text, L"_L") || equalNoCase(text, L"L"))) {
        id = frame.last();
        return acceptEntity(id, AcGePoint3d::kOrigin);
    }
    if (id.isNull()) return {};
    return acceptEntity(id, AcGePoint3d::kOrigin);
}

/// Nothing when the text has to be read as a point.
std::optional<Reading> Question::giveNumber(std::wstring_view text, const InputFrame& frame) const {
    switch (m_request.kind) {
        case InputKind::Integer: {
            const std::optional<long> value = readInteger(text);
            if (!value) return {};
            if (*value < -32768 || *value > 32767) {
                const bool positive = (m_request.flags & RSG_NONEG) != 0;
                const bool counts = (m_request.flags & RSG_NOZERO) != 0;
                return refused(std::wstring(L"Requer um inteiro entre ") +
                               (!positive ? L"-32768"
                                : counts  ? L"1"
                                          : L"0") +
                               L" e 32767.");
            }
            return checkNumber(static_cast<double>(*value));
        }
        case InputKind::Real:
        case InputKind::Distance: {
            const std::optional<double> value = readNumber(text);
            return value ? std::optional(checkNumber(*value)) : std::nullopt;
        }
        case InputKind::Angle: {
            const std::optional<double> typed = readAngle(text, frame.angleUnits);
            if (!typed) return {};
            if (m_request.absoluteAngle) return checkNumber(directionOf(*typed, frame));
            return checkNumber(frame.clockwise ? -*typed : *typed);
        }
        default:
            return {};
    }
}

Reading Question::checkNumber(double number) const {
    if ((m_request.flags & RSG_NOZERO) && number == 0.0)
        return refused(L"O valor deve ser diferente de zero.");
    if ((m_request.flags & RSG_NONEG) && number < 0.0)
        return refused(L"O valor deve ser positivo.");
    return answeredNumber(number);
}

Reading Question::acceptEntity(AcDbObjectId id, const AcGePoint3d& world) const {
    InputValue value;
    value.status = RTNORM;
    value.point = world;
    value.removes = m_shift;
    if (!id.isNull()) {
        value.entities.push_back(id);
    } else if (m_request.kind == InputKind::Entity) {
        value.status = RTERROR;
    }
    return answered(std::move(value));
}

}  // namespace prancheta
