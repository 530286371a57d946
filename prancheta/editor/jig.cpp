// SPDX-License-Identifier: MIT
// Dragging an entity that is not yet in the drawing.
#include <cstdarg>
#include <string>

#include "acutads.h"
#include "dbjig.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "prancheta/database/user_system.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/api/formatting.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/question.h"
#include "prancheta/editor/typed_input.h"
#include "prancheta/geometry/angles.h"

using prancheta::Editor;
using prancheta::InputFrame;
using prancheta::InputKind;
using prancheta::InputRequest;
using prancheta::InputValue;
using prancheta::Question;
using prancheta::RawInput;
using prancheta::Reading;

struct AcEdJig::Session {
    enum class State { Dragging, Answered, Cancelled };
    std::wstring prompt;
    std::wstring keywords;
    State state = State::Dragging;
    bool asked = false;           ///< the sampler asked for something in this round
    DragStatus answer = kNormal;  ///< status of the final answer
    std::optional<Question> question;

    InputRequest request(InputKind kind, const AcGePoint3d* base, UserInputControls controls,
                         AcDbEntity* entity) const;
    DragStatus finish(const InputValue& value);
    /// Next event: a position (kNormal, `value` filled), or the final answer.
    DragStatus next(const InputRequest& request, int controls, InputValue& value);
    DragStatus moved(const AcGePoint3d& point, const InputRequest& request,
                     InputValue& value) const;
    void takeRaw(const RawInput& input, int controls, InputValue& value);
    void take(Reading reading, const RawInput& input, InputValue& value);
};

InputRequest AcEdJig::Session::request(InputKind kind, const AcGePoint3d* base,
                                       UserInputControls controls, AcDbEntity* entity) const {
    InputRequest result;
    result.kind = kind;
    result.prompt = prompt;
    if (base != nullptr) result.base = *base;
    result.keywords = prancheta::readKeywordList(keywords);
    result.nullAllowed = (controls & kNullResponseAccepted) != 0;
    result.orthoAllowed = (controls & kGovernedByOrthoMode) != 0;
    if (controls & kNoZeroResponseAccepted) result.flags |= RSG_NOZERO;
    if (controls & kNoNegativeResponseAccepted) result.flags |= RSG_NONEG;
    if (controls & kAcceptOtherInputString) result.flags |= RSG_OTHER;
    result.dragged = entity;
    return result;
}

AcEdJig::DragStatus AcEdJig::Session::finish(const InputValue& value) {
    state = State::Answered;
    if (value.status == RTCAN) {
        state = State::Cancelled;
        return kCancel;
    }
    if (value.status == RTNONE) return kNull;
    if (value.status != RTKWORD) return kNormal;
    int index = kKW1;
    for (const prancheta::Keyword& k : prancheta::readKeywordList(keywords)) {
        if (k.global == value.text && index <= kKW9) return static_cast<DragStatus>(index);
        ++index;
    }
    return kOther;
}

void AcEdJig::Session::takeRaw(const RawInput& input, int controls, InputValue& value) {
    Editor& editor = *Editor::current();
    InputFrame frame = editor.runner().inputFrame(input);
    const AcGePoint3d before = frame.lastPoint;
    Reading reading = question->give(input, frame);
    // Only what is typed may not leave the plane: the base may lie at any height.
    const bool raised = input.kind == RawInput::Kind::Text &&
                        prancheta::readPoint(input.text, frame).raised &&
                        reading.kind != Reading::Kind::Refused && reading.value.status == RTNORM;
    if (raised && !(controls & kAccept3dCoordinates)) {
        editor.runner().refuse(input, L"Ponto inválido: coordenadas 3D não são aceitas aqui.");
        question.reset();
        return;
    }
    if (!(controls & kDontUpdateLastPoint)) editor.runner().keepLastPoint(frame, before);
    take(std::move(reading), input, value);
}

void AcEdJig::Session::take(Reading reading, const RawInput& input, InputValue& value) {
    if (reading.kind == Reading::Kind::Refused)
        Editor::current()->runner().refuse(input, reading.message);
    if (reading.kind != Reading::Kind::Answered) return;
    value = std::move(reading.value);
    answer = finish(value);
}

AcEdJig::DragStatus AcEdJig::Session::next(const InputRequest& request, int controls,
                                           InputValue& value) {
    Editor& editor = *Editor::current();
    asked = true;
    for (;;) {
        if (!question) {
            question.emplace(request);
            prancheta::recordPrompt(request);
        }
        if (std::optional<Reading> reading = editor.runner().readToken(*question)) {
            take(std::move(*reading), {}, value);
        } else {
            InputRequest shown = question->current();
            shown.kind = InputKind::Drag;
            shown.dragged = request.dragged;
            const RawInput input = editor.runner().askRaw(shown);
            if (input.kind == RawInput::Kind::Move) return moved(input.point, request, value);
            if (editor.runner().tookTransparent(*question, input)) continue;
            takeRaw(input, controls, value);
        }
        if (state == State::Dragging) continue;
        prancheta::recordAnswer(request.kind, value);
        if (state == State::Cancelled && !(controls & kDontEchoCancelForCtrlC))
            editor.print(L"*Cancelar*\n");
        return answer;
    }
}

/// A position on the way, as a value of the kind that is asked for.
AcEdJig::DragStatus AcEdJig::Session::moved(const AcGePoint3d& point, const InputRequest& request,
                                            InputValue& value) const {
    value.status = RTNORM;
    value.point = point;
    if (!request.base) return kNormal;
    value.number = request.base->distanceTo(point);
    if (request.kind == InputKind::Angle)
        value.number =
            prancheta::positiveAngle(acutAngle(asDblArray(*request.base), asDblArray(point)) -
                                     prancheta::turnOf(Editor::current()->ucs()));
    return kNormal;
}

AcEdJig::AcEdJig() : m_session(std::make_unique<Session>()) {}
AcEdJig::~AcEdJig() = default;

AcEdJig::DragStatus AcEdJig::sampler() { return kNoChange; }
Adesk::Boolean AcEdJig::update() { return Adesk::kFalse; }
AcDbEntity* AcEdJig::entity() const { return nullptr; }

AcEdJig::DragStatus AcEdJig::drag() {
    Editor* editor = Editor::current();
    if (editor == nullptr || prancheta::dcl::openDialogs() > 0) return kCancel;
    AcDbEntity* dragged = entity();
    if (dragged != nullptr && dragged->database() == nullptr && dragged->layerId().isNull())
        dragged->setDatabaseDefaults();
    Session& session = *m_session;
    session.state = Session::State::Dragging;
    session.question.reset();
    for (;;) {
        session.asked = false;
        const DragStatus sampled = sampler();
        if (session.state == Session::State::Cancelled) return kCancel;
        const bool final = session.state == Session::State::Answered;
        if (final && session.answer != kNormal) return session.answer;
        // A sampler that asks for nothing would go round for ever.
        if (!session.asked) return kOther;
        if (!final && sampled < kNormal && sampled != kNoChange) return sampled;
        // The last position counts, too, when the sampler found nothing new in it.
        if (final || sampled != kNoChange) {
            if (!update() && !final) return kOther;
            editor->ui().refresh();
        }
        if (final) return kNormal;
    }
}

AcDbObjectId AcEdJig::append() {
    AcDbObjectId id;
    AcDbEntity* dragged = entity();
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (dragged == nullptr || database == nullptr) return id;
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, database->currentSpaceId(), AcDb::kForWrite) != Acad::eOk) return id;
    const bool added = space->appendAcDbEntity(id, dragged) == Acad::eOk;
    space->close();
    if (!added) return AcDbObjectId::kNull;
    dragged->close();
    return id;
}

void AcEdJig::setDispPrompt(const ACHAR* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    m_session->prompt = prancheta::formatText(format, arguments);
    va_end(arguments);
}

void AcEdJig::setKeywordList(const ACHAR* keywords) {
    m_session->keywords = keywords != nullptr ? keywords : L"";
}

void AcEdJig::setUserInputControls(UserInputControls controls) { m_controls = controls; }

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value) {
    InputValue input;
    const InputRequest request = m_session->request(InputKind::Drag, nullptr, m_controls, entity());
    const DragStatus status = m_session->next(request, m_controls, input);
    if (status == kNormal) value = input.point;
    return status;
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value, const AcGePoint3d& base) {
    InputValue input;
    const InputRequest request = m_session->request(InputKind::Drag, &base, m_controls, entity());
    const DragStatus status = m_session->next(request, m_controls, input);
    if (status == kNormal) value = input.point;
    return status;
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& value, const AcGePoint3d& base) {
    InputValue input;
    const InputRequest request =
        m_session->request(InputKind::Distance, &base, m_controls, entity());
    const DragStatus status = m_session->next(request, m_controls, input);
    if (status == kNormal) value = input.number;
    return status;
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& value, const AcGePoint3d& base) {
    InputValue input;
    const InputRequest request = m_session->request(InputKind::Angle, &base, m_controls, entity());
    const DragStatus status = m_session->next(request, m_controls, input);
    if (status == kNormal) value = input.number;
    return status;
}
