// SPDX-License-Identifier: MIT
// Scoped override of a host system variable.
#include "perfis/output/temp_var_override.h"

#include "acutmem.h"

namespace perfis {

TempVarOverride::TempVarOverride(const ACHAR* name, ads_u_val value) : m_name(name) {
    m_known = acedGetVar(m_name.c_str(), &m_saved) == RTNORM;
    if (!m_known) return;
    resbuf changed{};
    changed.restype = m_saved.restype;
    changed.resval = value;
    (void)acedSetVar(m_name.c_str(), &changed);
}

TempVarOverride::~TempVarOverride() {
    if (!m_known) return;
    // Nothing can be done about a host that refuses its own value.
    (void)acedSetVar(m_name.c_str(), &m_saved);
    if (m_saved.restype == RTSTR) acutDelString(m_saved.resval.rstring);
}

ads_u_val shortValue(short value) {
    ads_u_val result{};
    result.rint = value;
    return result;
}

}  // namespace perfis
