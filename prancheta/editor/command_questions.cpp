// SPDX-License-Identifier: MIT
// Questions: to the user, to what is typed ahead, to a program that feeds tokens.
#include <algorithm>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/command_runner.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/typed_input.h"

namespace prancheta {

void CommandRunner::refuse(const RawInput& input, std::wstring_view why) {
    const bool enter = input.kind == RawInput::Kind::Text && trim(input.text).empty();
    m_editor.complain(why, enter ? Complaint::Again : Complaint::Refused);
}

bool CommandRunner::interactive() const {
    return m_tokens == nullptr && !m_editor.typing().pending();
}

bool CommandRunner::echo() const {
    return m_tokens == nullptr || m_editor.database().core().variables().number(L"CMDECHO") != 0;
}

InputFrame CommandRunner::inputFrame(const RawInput& input) const {
    InputFrame frame;
    const SystemVariables& variables = m_editor.database().core().variables();
    frame.lastPoint = variables.point(L"LASTPOINT");
    frame.ucs = m_editor.ucs();
    frame.angleBase = variables.real(L"ANGBASE");
    frame.clockwise = variables.number(L"ANGDIR") != 0;
    frame.angleUnits = variables.number(L"AUNITS");
    frame.ortho = variables.number(L"ORTHOMODE") != 0;
    if (frame.ortho) frame.snapAngle = variables.real(L"SNAPANG");
    const int asTyped = variables.number(L"OSNAPCOORD");
    const bool snapsTyped = asTyped == 0 || (asTyped == 2 && m_editor.typing().inScript());
    if (snapsTyped && input.kind == RawInput::Kind::Text) {
        const int running = variables.number(L"OSMODE");
        if ((running & kSnapsOff) == 0) frame.runningSnaps = running;
    }
    frame.pointer = input.pointer ? input.pointer : m_pointer;
    frame.snap = [this](const AcGePoint3d& p, int modes, SnapReach reach,
                        const std::optional<AcGePoint3d>& base) {
        return snapPoint(m_editor, p, modes, reach, base);
    };
    frame.pick = [this](const AcGePoint3d& p) { return entityAt(m_editor, p); };
    frame.last = [this] { return lastEntity(m_editor); };
    frame.byHandle = [this](Adesk::UInt64 handle) {
        AcDbStub* stub = m_editor.database().core().find(handle);
        const bool entity =
            stub != nullptr && !stub->erased && AcDbEntity::cast(stub->object) != nullptr;
        return entity ? AcDbObjectId(stub) : AcDbObjectId::kNull;
    };
    return frame;
}

void CommandRunner::keepLastPoint(const InputFrame& frame, const AcGePoint3d& before) {
    const AcGePoint3d& now = frame.lastPoint;
    if (now.x == before.x && now.y == before.y && now.z == before.z) return;
    m_editor.database().core().variables().force(L"LASTPOINT", now);
}

RawInput CommandRunner::askRaw(const InputRequest& request) {
    if (request.kind != InputKind::Drag) recordPrompt(request);
    RawInput input;
    if (std::optional<RawInput> typed = m_editor.typing().take(request)) {
        input = std::move(*typed);
    } else if (!m_running.empty() && m_running.back()->transparent) {
        InputRequest inner = request;
        const std::size_t text =
            std::min(inner.prompt.find_first_not_of(L'\n'), inner.prompt.size());
        inner.prompt.insert(text, L">>");
        input = m_editor.ui().ask(inner);
    } else {
        input = m_editor.ui().ask(request);
    }
    const bool placed = input.kind == RawInput::Kind::Pick || input.kind == RawInput::Kind::Move;
    if (placed) m_pointer = input.point;
    if (input.pointer) m_pointer = input.pointer;
    return input;
}

/// One input of the user; the answer when the question has one.
std::optional<InputValue> CommandRunner::round(Question& question) {
    const RawInput input = askRaw(question.current());
    if (tookTransparent(question, input)) return {};
    InputFrame frame = inputFrame(input);
    const AcGePoint3d before = frame.lastPoint;
    Reading reading = question.give(input, frame);
    keepLastPoint(frame, before);
    if (reading.kind == Reading::Kind::Refused) {
        refuse(input, reading.message);
        return {};
    }
    if (reading.kind == Reading::Kind::Again) {
        if (reading.value.status == RTNORM) recordAnswer(InputKind::Point, reading.value);
        return {};
    }
    recordAnswer(question.request().kind, reading.value);
    if (reading.value.status == RTCAN) m_editor.print(L"*Cancelar*\n");
    return std::move(reading.value);
}

bool CommandRunner::tookTransparent(const Question& question, const RawInput& input) {
    const std::wstring_view typed = trim(input.text);
    const bool words =
        question.request().kind != InputKind::Text && input.kind == RawInput::Kind::Text;
    if (!words || !typed.starts_with(L'\'')) return false;
    const std::wstring outer = m_running.empty() ? std::wstring() : m_running.back()->shownName;
    const std::size_t level = m_running.size();
    // What a program still has to say is not meant for this command.
    TokenStream* const tokens = std::exchange(m_tokens, nullptr);
    const bool started = startNamed(typed, Origin::Transparent);
    while (m_running.size() > level && waiting() != nullptr) serve(*waiting());
    m_tokens = tokens;
    if (started && !outer.empty()) m_editor.print(L"Continuando o comando " + outer + L".\n");
    return true;
}

std::optional<Reading> CommandRunner::readToken(Question& question) {
    if (m_tokens == nullptr || m_tokens->empty()) return {};
    const ProgramToken& token = m_tokens->take();
    if (token.pause()) return {};
    echoToken(question, token);
    return giveToken(question, token);
}

InputValue CommandRunner::ask(const InputRequest& request) {
    Question question(request);
    while (std::optional<Reading> reading = readToken(question)) {
        if (reading->kind == Reading::Kind::Answered) return std::move(reading->value);
        if (reading->kind == Reading::Kind::Again) continue;
        InputValue value;
        value.status = RTERROR;
        return value;
    }
    for (;;) {
        if (std::optional<InputValue> value = round(question)) return std::move(*value);
    }
}

}  // namespace prancheta
