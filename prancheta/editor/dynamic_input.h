// SPDX-License-Identifier: MIT
// The values beside the pointer: what the pointer stands for, and what is typed in their place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prancheta/editor/user_interface.h"

namespace prancheta {

class Editor;

/// A line that is being typed; `caret` is where the next letter goes.
struct TypedLine {
    std::wstring text;
    std::size_t caret = 0;
    bool operator==(const TypedLine&) const = default;
};

struct DynamicField {
    std::wstring text;    ///< with the decimal point, by LUPREC and AUPREC
    bool typed = false;   ///< else it follows the pointer
    bool active = false;  ///< the next letter goes there
};

/// Length and angle from the base, the sides of a corner, X and Y without a base; none while
/// DYNMODE is not above 0 or nothing of the kind is asked for. What is typed in another form (an
/// option, a snap's name) stands in none of them.
std::vector<DynamicField> dynamicFields(const Editor& editor, const InputRequest& request,
                                        const AcGePoint3d& pointer, const TypedLine& typed);

/// The line as Tab leaves it, in the next field: "50" goes on as "@50<". The same line where there
/// is no other field, or where it is in none of them.
TypedLine nextField(const Editor& editor, const InputRequest& request, const TypedLine& typed);

/// The line as it is answered: a field that was left empty follows the pointer.
std::wstring withoutEmptyField(std::wstring_view text);

}  // namespace prancheta
