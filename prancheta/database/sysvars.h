// SPDX-License-Identifier: MIT
// System variables: typed, by name, some kept in the drawing.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "gepnt3d.h"
#include "prancheta/base/result.h"

namespace prancheta {

/// short (RTSHORT), double (RTREAL), text (RTSTR), point (RT3DPOINT).
using VariableValue = std::variant<short, double, std::wstring, AcGePoint3d>;

enum class VariableHome { Session, Drawing };
enum class VariableAccess { ReadWrite, ReadOnly };

struct VariableInfo {
    std::wstring name;  ///< upper case
    VariableValue value;
    VariableHome home = VariableHome::Session;
    VariableAccess access = VariableAccess::ReadWrite;
    double minimum = -1e300;  ///< for numbers
    double maximum = 1e300;
};

/// All variables of the host for one database, in alphabetical order. Names are found without
/// regard to case.
class SystemVariables {
public:
    SystemVariables();

    const VariableInfo* find(std::wstring_view name) const;
    /// Checks type, range and access; the drawing's own (CLAYER, DIMSCALE, ...) are checked by
    /// their hook.
    Result<void> set(std::wstring_view name, const VariableValue& value);
    /// Without the read-only check: for the host itself.
    void force(std::wstring_view name, const VariableValue& value);
    const std::vector<VariableInfo>& all() const { return m_all; }

    short number(std::wstring_view name) const;
    /// In the unit that the table gives the variable; 0 for an unknown name.
    double real(std::wstring_view name) const;
    std::wstring text(std::wstring_view name) const;
    /// As the variable keeps it: LASTPOINT in user coordinates.
    AcGePoint3d point(std::wstring_view name) const;

    /// Called before a value changes (may refuse) and after it changed.
    using Check = std::function<Result<void>(const VariableInfo&, const VariableValue&)>;
    using Changed = std::function<void(const VariableInfo&)>;
    void setHooks(Check check, Changed changed);

    /// The database's own door, beside the editor's: may refuse; is told before a value is
    /// replaced; and gives a new value its final form (proper spelling of a layer's name). Only for
    /// variables kept in the drawing.
    struct DrawingHooks {
        Check check;
        Changed before;
        std::function<void(VariableInfo&)> changed;
    };
    void setDrawingHooks(DrawingHooks hooks) { m_drawing = std::move(hooks); }
    /// Shows a value that the database itself keeps elsewhere; no hook is called.
    void mirror(std::wstring_view name, VariableValue value);

private:
    VariableInfo* lookup(std::wstring_view name);
    void store(VariableInfo& info, const VariableValue& value);
    std::vector<VariableInfo> m_all;
    Check m_check;
    Changed m_changed;
    DrawingHooks m_drawing;
};

}  // namespace prancheta
