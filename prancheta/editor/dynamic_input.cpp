// SPDX-License-Identifier: MIT
// The values beside the pointer.
#include "prancheta/editor/dynamic_input.h"

#include <cmath>

#include "acedads.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {
namespace {

enum class Form { None, Place, Polar, Corner, Length, Angle };

struct Layout {
    Form form = Form::None;
    AcGePoint3d base;       ///< world
    bool relative = false;  ///< `@` counts from the base
};

Layout layoutOf(const Editor& editor, const InputRequest& request) {
    if (editor.variables().number(L"DYNMODE") <= 0) return {};
    // A jig sets the last point to where its entity starts.
    const AcGePoint3d last = editor.ucs() * editor.lastPoint();
    const bool jig = request.kind == InputKind::Drag && request.dragged != nullptr;
    if (!request.base && !jig)
        return {request.kind == InputKind::Point ? Form::Place : Form::None, {}, false};
    Layout out{Form::None, request.base.value_or(last), false};
    out.relative = (out.base - last).length() <= 1e-9 * (1.0 + last.asVector().length());
    switch (request.kind) {
        case InputKind::Point:
        case InputKind::Drag:
            out.form = Form::Polar;
            break;
        case InputKind::Corner:
            out.form = Form::Corner;
            break;
        case InputKind::Distance:
            out.form = Form::Length;
            break;
        case InputKind::Angle:
            out.form = Form::Angle;
            break;
        default:
            break;
    }
    return out;
}

wchar_t separatorOf(Form form) {
    if (form == Form::Polar) return L'<';
    return form == Form::Place || form == Form::Corner ? L',' : L'\0';
}

std::wstring lengthText(double value) {
    ACHAR text[512];
    return acdbRToS(value, -1, -1, text) == RTNORM ? text : L"";
}

std::wstring angleText(const AcGeVector3d& v) {
    ACHAR text[512];
    return acdbAngToS(std::atan2(v.y, v.x), -1, -1, text) == RTNORM ? text : L"";
}

/// Digits, sign, point, and what belongs to a number's exponent.
bool isNumber(std::wstring_view text) {
    return text.find_first_not_of(L"0123456789.+-eE/") == text.npos &&
           (text.empty() || text.find_first_of(L"0123456789.-+") == 0);
}

/// The parts of what is typed, split where the fields meet; nothing when it has another form.
std::optional<std::vector<std::wstring>> partsOf(std::wstring_view text, Form form) {
    if (text.starts_with(L'@') && form != Form::Place) text.remove_prefix(1);
    const wchar_t separator = separatorOf(form);
    const std::size_t at = separator != 0 ? text.find(separator) : text.npos;
    std::vector<std::wstring> parts{std::wstring(text.substr(0, at))};
    if (at != text.npos) parts.emplace_back(text.substr(at + 1));
    for (const std::wstring& part : parts)
        if (!isNumber(part)) return {};
    return parts;
}

std::vector<std::wstring> pointerTexts(const Editor& editor, const Layout& layout,
                                       const AcGePoint3d& pointer) {
    const AcGeMatrix3d toUser = editor.ucs().inverse();
    const AcGePoint3d place = toUser * pointer;
    const AcGeVector3d reach = toUser * (pointer - layout.base);
    switch (layout.form) {
        case Form::Place:
            return {lengthText(place.x), lengthText(place.y)};
        case Form::Polar:
            return {lengthText(std::hypot(reach.x, reach.y)), angleText(reach)};
        case Form::Corner:
            return {lengthText(std::abs(reach.x)), lengthText(std::abs(reach.y))};
        case Form::Length:
            return {lengthText(std::hypot(reach.x, reach.y))};
        case Form::Angle:
            return {angleText(reach)};
        case Form::None:
            break;
    }
    return {};
}

}  // namespace

std::vector<DynamicField> dynamicFields(const Editor& editor, const InputRequest& request,
                                        const AcGePoint3d& pointer, const TypedLine& typed) {
    const Layout layout = layoutOf(editor, request);
    std::vector<DynamicField> fields;
    for (const std::wstring& text : pointerTexts(editor, layout, pointer))
        fields.push_back({text, false, false});
    const auto parts = partsOf(typed.text, layout.form);
    if (fields.empty() || !parts) return fields;
    for (std::size_t i = 0; i < parts->size() && i < fields.size(); ++i)
        if (!(*parts)[i].empty()) fields[i] = {(*parts)[i], true, false};
    const wchar_t separator = separatorOf(layout.form);
    const std::size_t at = separator != 0 ? typed.text.find(separator) : typed.text.npos;
    const bool second = at != typed.text.npos && typed.caret > at && fields.size() > 1;
    fields[second ? 1 : 0].active = true;
    return fields;
}

TypedLine nextField(const Editor& editor, const InputRequest& request, const TypedLine& typed) {
    const Layout layout = layoutOf(editor, request);
    const wchar_t separator = separatorOf(layout.form);
    if (separator == 0 || !partsOf(typed.text, layout.form)) return typed;
    const std::size_t at = typed.text.find(separator);
    if (at != typed.text.npos) {
        if (typed.caret <= at) return {typed.text, typed.text.size()};
        if (at > 0) return {typed.text, at};
        // A direction alone, to which a length comes.
        if (typed.text.size() == 1) return {};
        return layout.relative ? TypedLine{L"@" + typed.text, 1} : typed;
    }
    if (typed.text.empty())
        return layout.form == Form::Polar ? TypedLine{std::wstring(1, separator), 1} : typed;
    if (layout.form != Form::Place && !layout.relative) return typed;
    const bool marked = layout.form == Form::Place || typed.text.starts_with(L'@');
    const std::wstring text = (marked ? L"" : L"@") + typed.text + separator;
    return {text, text.size()};
}

std::wstring withoutEmptyField(std::wstring_view text) {
    if (text.starts_with(L"@<")) return std::wstring(text.substr(1));
    if (text.starts_with(L'@') && text.ends_with(L'<'))
        return std::wstring(text.substr(1, text.size() - 2));
    return std::wstring(text);
}

}  // namespace prancheta
