// SPDX-License-Identifier: MIT
// User input of the C-style interface.
#include <cwchar>

#include "acedads.h"
#include "geassign.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/typed_input.h"

namespace {

using prancheta::Editor;
using prancheta::InputKind;
using prancheta::InputRequest;
using prancheta::InputValue;

constexpr std::size_t kTextBuffer = 133;  // characters of the callers' buffers, end mark included

void copyText(const std::wstring& from, ACHAR* to) {
    const std::size_t length = from.copy(to, kTextBuffer - 1);
    to[length] = 0;
}

/// Request with what acedInitGet left for this call.
InputRequest request(Editor& editor, InputKind kind, const ads_real* base, const ACHAR* prompt) {
    InputRequest result;
    prancheta::ProgramInterface::InitGet init = editor.programs().takeInitGet();
    result.kind = kind;
    result.prompt = prompt != nullptr ? prompt : L"";
    result.keywords = std::move(init.keywords);
    result.flags = init.bits;
    result.nullAllowed = (init.bits & RSG_NONULL) == 0;
    if (base != nullptr) result.base = editor.ucs() * asPnt3d(base);
    return result;
}

/// The editor, when it may ask now.
Editor* asker() {
    Editor* editor = Editor::current();
    if (editor == nullptr) return nullptr;
    if (prancheta::dcl::openDialogs() == 0) return editor;
    (void)editor->programs().takeInitGet();
    return nullptr;
}

int finish(Editor& editor, const InputValue& value) {
    if (value.status == RTKWORD) editor.programs().setLastKeyword(value.text);
    return value.status;
}

int getPoint(InputKind kind, const ads_point base, const ACHAR* prompt, ads_point result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    const InputValue value = editor->runner().ask(request(*editor, kind, base, prompt));
    if (value.status == RTNORM) asPnt3d(result) = editor->ucs().inverse() * value.point;
    return finish(*editor, value);
}

int getNumber(const InputRequest& question, Editor& editor, ads_real* result) {
    const InputValue value = editor.runner().ask(question);
    if (value.status == RTNORM) *result = value.number;
    return finish(editor, value);
}

int getAngle(const ads_point base, const ACHAR* prompt, ads_real* result, bool absolute) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    InputRequest question = request(*editor, InputKind::Angle, base, prompt);
    question.absoluteAngle = absolute;
    return getNumber(question, *editor, result);
}

}  // namespace

int acedInitGet(int bits, const ACHAR* keywords) {
    Editor* editor = Editor::current();
    if (editor == nullptr || prancheta::dcl::openDialogs() > 0) return RTERROR;
    editor->programs().setInitGet(
        {bits, prancheta::readKeywordList(keywords != nullptr ? keywords : L"")});
    return RTNORM;
}

int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result) {
    return getPoint(InputKind::Point, base, prompt, result);
}

int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result) {
    return base == nullptr ? RTERROR : getPoint(InputKind::Corner, base, prompt, result);
}

int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    return getNumber(request(*editor, InputKind::Distance, base, prompt), *editor, result);
}

int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result) {
    return getAngle(base, prompt, result, false);
}

int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result) {
    return getAngle(base, prompt, result, true);
}

int acedGetInt(const ACHAR* prompt, int* result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    const InputValue value =
        editor->runner().ask(request(*editor, InputKind::Integer, nullptr, prompt));
    if (value.status == RTNORM) *result = static_cast<int>(value.number);
    return finish(*editor, value);
}

int acedGetReal(const ACHAR* prompt, ads_real* result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    return getNumber(request(*editor, InputKind::Real, nullptr, prompt), *editor, result);
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    InputRequest question = request(*editor, InputKind::Text, nullptr, prompt);
    question.keywords = {};
    question.blanksAllowed = cronly != 0;
    const InputValue value = editor->runner().ask(question);
    if (value.status == RTCAN || value.status == RTERROR) return value.status;
    copyText(value.text, result);
    return RTNORM;
}

int acedGetKword(const ACHAR* prompt, ACHAR* result) {
    Editor* editor = asker();
    if (editor == nullptr || result == nullptr) return RTERROR;
    const InputValue value =
        editor->runner().ask(request(*editor, InputKind::Keyword, nullptr, prompt));
    if (value.status != RTKWORD) return finish(*editor, value);
    (void)finish(*editor, value);
    copyText(value.text, result);
    return RTNORM;
}

int acedGetInput(ACHAR* text) {
    Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr) return RTERROR;
    copyText(editor->programs().lastKeyword(), text);
    return RTNORM;
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
    constexpr short kEmptyPick = 7;
    constexpr short kNullResponse = 52;
    Editor* editor = asker();
    if (editor == nullptr || entity == nullptr || point == nullptr) return RTERROR;
    InputRequest question = request(*editor, InputKind::Entity, nullptr,
                                    prompt != nullptr ? prompt : L"\nSelecione objeto: ");
    question.snapModes = 0;
    const InputValue value = editor->runner().ask(question);
    prancheta::SystemVariables& variables = editor->variables();
    if (value.status == RTNONE || value.status == RTERROR) {
        const bool nothing = value.status == RTNONE;
        variables.force(L"ERRNO", nothing ? kNullResponse : kEmptyPick);
        return RTERROR;
    }
    if (value.status == RTNORM) {
        ads_name name;
        if (acdbGetAdsName(name, value.entities.front()) != Acad::eOk) return RTERROR;
        ads_name_set(name, entity);
        asPnt3d(point) = editor->ucs().inverse() * value.point;
    }
    return finish(*editor, value);
}
