// SPDX-License-Identifier: MIT
// What acedCommand feeds to the command line.
#include "prancheta/editor/program_input.h"

#include "adscodes.h"
#include "dbmain.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/selection_sets.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/variables.h"

namespace prancheta {
namespace {

bool readToken(const resbuf& value, ProgramToken& token) {
    switch (value.restype) {
        case RTSTR:
            token.text = value.resval.rstring != nullptr ? value.resval.rstring : L"";
            return true;
        case RTREAL:
        case RTORINT:
            token.kind = ProgramToken::Kind::Real;
            token.number = value.resval.rreal;
            return true;
        case RTANG:
            token.kind = ProgramToken::Kind::Angle;
            token.number = value.resval.rreal;
            return true;
        case RTSHORT:
            token.kind = ProgramToken::Kind::Integer;
            token.number = value.resval.rint;
            return true;
        case RTLONG:
            token.kind = ProgramToken::Kind::Integer;
            token.number = value.resval.rlong;
            return true;
        case RTPOINT:
        case RT3DPOINT: {
            token.kind = ProgramToken::Kind::Point;
            const double* p = value.resval.rpoint;
            token.point = AcGePoint3d(p[X], p[Y], value.restype == RTPOINT ? 0.0 : p[Z]);
            return true;
        }
        case RTENAME: {
            token.kind = ProgramToken::Kind::Objects;
            AcDbObjectId id;
            if (acdbGetObjectId(id, value.resval.rlname) != Acad::eOk) return false;
            token.objects.push_back(id);
            return true;
        }
        case RTPICKS: {
            token.kind = ProgramToken::Kind::Objects;
            const auto* set =
                Editor::current()->programs().selectionSets().find(value.resval.rlname);
            if (set == nullptr) return false;
            token.objects = *set;
            return true;
        }
        default:
            return false;
    }
}

std::wstring typedText(const ProgramToken& token) {
    switch (token.kind) {
        case ProgramToken::Kind::Text:
            return token.text;
        case ProgramToken::Kind::Point:
            return variableText(token.point);
        case ProgramToken::Kind::Objects: {
            std::wstring names;
            for (const AcDbObjectId& id : token.objects)
                names += L"<" + handleText(id.handle()) + L">";
            return names;
        }
        default:
            return numberTextWide(token.number);
    }
}

EventValue eventOf(const ProgramToken& token) {
    switch (token.kind) {
        case ProgramToken::Kind::Text:
            return eventText(token.text);
        case ProgramToken::Kind::Integer:
            return {static_cast<long long>(token.number)};
        case ProgramToken::Kind::Point:
            return eventPoint(token.point);
        case ProgramToken::Kind::Objects: {
            if (token.objects.size() == 1) return eventHandle(token.objects.front());
            EventList list;
            for (const AcDbObjectId& id : token.objects) list.push_back(eventHandle(id));
            return {std::move(list)};
        }
        default:
            return {token.number};
    }
}

}  // namespace

bool readTokens(const resbuf* list, std::vector<ProgramToken>& tokens) {
    bool nested = false;
    for (; list != nullptr; list = list->rbnext) {
        if (list->restype == RTNONE || list->restype == 0) break;
        if (list->restype == RTLB || list->restype == RTLE) {
            nested = list->restype == RTLB;
            continue;
        }
        ProgramToken token;
        if (!readToken(*list, token)) return false;
        // An entity in a list is followed by the point where it was picked.
        if (nested && token.kind == ProgramToken::Kind::Point && !tokens.empty() &&
            tokens.back().kind == ProgramToken::Kind::Objects) {
            tokens.back().point = token.point;
            continue;
        }
        tokens.push_back(std::move(token));
    }
    return true;
}

void recordTokens(const std::vector<ProgramToken>& tokens) {
    if (!recording()) return;
    EventList items;
    for (const ProgramToken& token : tokens) items.push_back(eventOf(token));
    record({"envia", {{"itens", {std::move(items)}}}});
}

void CommandRunner::echoToken(const Question& question, const ProgramToken& token) {
    if (echo()) m_editor.print(question.current().prompt + typedText(token) + L"\n");
}

Reading CommandRunner::giveToken(Question& question, const ProgramToken& token) {
    RawInput input;
    input.kind = RawInput::Kind::Text;
    InputFrame frame = inputFrame(input);
    const SystemVariables& variables = m_editor.database().core().variables();
    const int modes = variables.number(L"OSMODE");
    const bool snaps = (modes & kSnapsOff) == 0 && variables.number(L"OSNAPCOORD") != 1;
    frame.runningSnaps = snaps ? modes : 0;
    const AcGePoint3d before = frame.lastPoint;
    const InputKind kind = question.request().kind;
    Reading refused{Reading::Kind::Refused, {}, L"Entrada de programa recusada."};
    switch (token.kind) {
        case ProgramToken::Kind::Angle:
            return question.giveAngle(token.number);
        case ProgramToken::Kind::Objects:
            if (kind != InputKind::Selection && kind != InputKind::Entity) return refused;
            // A pick without entities would be a pick of what lies at its point.
            if (token.objects.empty()) return refused;
            for (const AcDbObjectId& id : token.objects)
                if (!id.isValid() || id.isErased()) return refused;
            input.kind = RawInput::Kind::Pick;
            input.entities = token.objects;
            input.point = m_editor.ucs() * token.point;
            break;
        case ProgramToken::Kind::Point: {
            input.kind = RawInput::Kind::Pick;
            input.point = m_editor.ucs() * token.point;
            const bool picks = kind == InputKind::Selection || kind == InputKind::Entity;
            if (frame.runningSnaps == 0 || picks) break;
            const std::optional<AcGePoint3d> snapped = frame.snap(
                input.point, frame.runningSnaps, SnapReach::Aperture, question.current().base);
            input.point = snapped.value_or(input.point);
            break;
        }
        default:
            input.text = typedText(token);
    }
    Reading reading = question.give(input, frame);
    keepLastPoint(frame, before);
    return reading;
}

int CommandRunner::startFromToken(const ProgramToken& token) {
    if (token.kind != ProgramToken::Kind::Text || token.pause()) return RTERROR;
    if (trim(token.text).empty()) return RTNORM;
    if (echo()) m_editor.print(L"Comando: " + token.text + L"\n");
    return startNamed(token.text, Origin::Program) ? RTNORM : RTERROR;
}

int CommandRunner::feed(RunningCommand& command, TokenStream& stream) {
    const ProgramToken& token = stream.take();
    if (token.pause()) {
        std::optional<InputValue> value;
        while (!value) value = round(*command.question);
        const bool cancelled = value->status == RTCAN;
        takeAnswer(command, std::move(*value));
        return cancelled ? RTCAN : RTNORM;
    }
    echoToken(*command.question, token);
    Reading reading = giveToken(*command.question, token);
    if (reading.kind == Reading::Kind::Answered) takeAnswer(command, std::move(reading.value));
    if (reading.kind != Reading::Kind::Refused) return RTNORM;
    m_editor.print(reading.message + L"\n");
    InputValue cancel;
    cancel.status = RTCAN;
    takeAnswer(command, std::move(cancel));
    return RTERROR;
}

int CommandRunner::sendTokens(std::vector<ProgramToken> tokens) {
    if (dcl::openDialogs() > 0 || m_editor.modules().initialising()) return RTERROR;
    if (tokens.empty()) {
        cancelWaiting();
        return RTNORM;
    }
    TokenStream stream{std::move(tokens)};
    TokenStream* const outer = std::exchange(m_tokens, &stream);
    int status = RTNORM;
    while (!stream.empty() && status == RTNORM) {
        RunningCommand* command = waiting();
        status = command != nullptr ? feed(*command, stream) : startFromToken(stream.take());
    }
    m_tokens = outer;
    return status;
}

}  // namespace prancheta
