// SPDX-License-Identifier: MIT
// System variables of the C-style interface.
#include "acedads.h"
#include "acutmem.h"
#include "geassign.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"

namespace {

using prancheta::Editor;
using prancheta::VariableInfo;
using prancheta::VariableValue;

/// Points of the plane: programs get them as 2D points.
bool isPlanePoint(std::wstring_view name) {
    for (const std::wstring_view plane :
         {L"SCREENSIZE", L"LIMMIN", L"LIMMAX", L"GRIDUNIT", L"SNAPBASE", L"SNAPUNIT"})
        if (name == plane) return true;
    return false;
}

int typeOf(const VariableInfo& info) {
    switch (info.value.index()) {
        case 0:
            return RTSHORT;
        case 1:
            return RTREAL;
        case 2:
            return RTSTR;
        default:
            return isPlanePoint(info.name) ? RTPOINT : RT3DPOINT;
    }
}

VariableValue valueOf(const resbuf& in) {
    switch (in.restype) {
        case RTSHORT:
            return in.resval.rint;
        case RTREAL:
            return in.resval.rreal;
        case RTSTR:
            return std::wstring(in.resval.rstring != nullptr ? in.resval.rstring : L"");
        default:
            return AcGePoint3d(in.resval.rpoint[X], in.resval.rpoint[Y],
                               in.restype == RTPOINT ? 0.0 : in.resval.rpoint[Z]);
    }
}

}  // namespace

int acedGetVar(const ACHAR* name, resbuf* out) {
    Editor* editor = Editor::current();
    if (editor == nullptr || name == nullptr || out == nullptr) return RTERROR;
    const VariableInfo* info = editor->variable(name);
    if (info == nullptr) return RTERROR;
    out->restype = static_cast<short>(typeOf(*info));
    switch (info->value.index()) {
        case 0:
            out->resval.rint = std::get<short>(info->value);
            return RTNORM;
        case 1:
            out->resval.rreal = std::get<double>(info->value);
            return RTNORM;
        case 2:
            out->resval.rstring = nullptr;
            return acutNewString(std::get<std::wstring>(info->value).c_str(),
                                 out->resval.rstring) == Acad::eOk
                       ? RTNORM
                       : RTERROR;
        default:
            ads_point_set(asDblArray(std::get<AcGePoint3d>(info->value)), out->resval.rpoint);
            return RTNORM;
    }
}

int acedSetVar(const ACHAR* name, const resbuf* in) {
    Editor* editor = Editor::current();
    if (editor == nullptr || name == nullptr || in == nullptr) return RTERROR;
    prancheta::SystemVariables& variables = editor->variables();
    const VariableInfo* info = variables.find(name);
    if (info == nullptr || in->restype != typeOf(*info)) return RTERROR;
    const std::wstring known = info->name;
    const VariableValue value = valueOf(*in);
    if (!variables.set(known, value)) return RTERROR;
    prancheta::recordVariable(known, value);
    return RTNORM;
}
