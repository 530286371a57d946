// SPDX-License-Identifier: MIT
// TempVarOverride: another value for a host variable as long as a scope lasts.
#pragma once

#include <string>

#include "acedads.h"

namespace perfis {

/// Sets one host system variable and puts the former value back when destroyed.
class TempVarOverride {
public:
    /// `value` holds the new value in the member that the variable's own type asks for. A variable
    /// that the host does not know is left alone.
    TempVarOverride(const ACHAR* name, ads_u_val value);
    TempVarOverride(const TempVarOverride&) = delete;
    TempVarOverride& operator=(const TempVarOverride&) = delete;
    virtual ~TempVarOverride();

private:
    resbuf m_saved{};
    std::wstring m_name;
    bool m_known = false;
};

/// The value of a variable of whole numbers.
ads_u_val shortValue(short value);

}  // namespace perfis
