// SPDX-License-Identifier: MIT
// What a cutting plan on the sheet was made of, so that a later list is known to be another one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "zp/matlist/zpmatlist.h"

class AcDbEntity;

namespace zp::matlist {

struct PlanStamp {
    int list = 0;           ///< number of the list
    std::wstring products;  ///< digest of what was cut: designation, material, lengths, pieces
    bool operator==(const PlanStamp&) const = default;
};

PlanStamp planStampOf(int list, const std::vector<Linha>& rows);
/// Copies of the entity keep it. The entity is in a drawing.
void stamp(AcDbObjectId entity, const PlanStamp& stamp);
/// Nothing for an entity without one.
std::optional<PlanStamp> stampOf(const AcDbEntity& entity);

}  // namespace zp::matlist
