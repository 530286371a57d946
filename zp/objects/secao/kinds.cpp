// SPDX-License-Identifier: MIT
// What is read from the table of section classes.
#include <algorithm>

#include "zp/objects/secao/table.h"

namespace zp::secao {
namespace {

using enum Role;

/// A class in another's place does not compile, nor does one without its row.
constexpr bool inOrder() {
    for (std::size_t i = 0; i < kTable.size(); ++i)
        if (static_cast<std::size_t>(kTable[i].kind) != i) return false;
    return true;
}
static_assert(inOrder());

}  // namespace

const Description& description(Kind kind) { return row(kind); }

const Roles* rolesOf(Kind kind, int points, int values) {
    const Description& d = description(kind);
    for (const Roles& p : points == 2 ? d.twoPoints : d.onePoint)
        if (values > 0 && count(p) == values) return &p;
    return nullptr;
}

int placeOf(const Roles* roles, Role role) {
    if (roles == nullptr) return -1;
    const auto place = std::ranges::find(*roles, role);
    return place != roles->end() ? static_cast<int>(place - roles->begin()) : -1;
}

RoleValues roleValuesOf(Kind kind, int points, std::span<const double> values) {
    RoleValues roleValues;
    const Roles* roles = rolesOf(kind, points, static_cast<int>(values.size()));
    if (roles == nullptr) return roleValues;
    for (std::size_t i = 0; i < values.size(); ++i) roleValues[(*roles)[i]] = values[i];
    roleValues[Zero] = 0.0;
    const Description& d = description(kind);
    roleValues.variant = roles == &d.onePoint[1] || roles == &d.twoPoints[1] ? 1 : 0;
    return roleValues;
}

int power(Role role) {
    switch (role) {
        case Ang1:
        case Ang2:
        case Species:
        case Type:
        case Giro:
        case Rot1:
        case Rot2:
        case Zero:
        case End:
            return 0;
        case M:
        case A:
            return 2;
        default:
            return 1;
    }
}

}  // namespace zp::secao
