// SPDX-License-Identifier: MIT
// What a release of the format does not know yet.
#pragma once

#include <optional>
#include <string_view>

#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// $ACADVER of the release without subclasses, handles and owners.
inline constexpr std::string_view kR12 = "AC1009";

/// For the groups that all entities have before those of their type.
inline constexpr std::string_view kAnyEntity = "";

/// True for a group of a record of this type (DXF name, or kAnyEntity) that is newer than the
/// release.
bool isUnknownGroup(std::string_view acadVersion, std::string_view type, int code);

/// Takes such groups out of a run of groups, extended data left alone.
void dropUnknownGroups(std::string_view acadVersion, std::string_view type, RawTags& tags);

/// What an entity of this type, or a layer, loses with a group that the release does not know, as
/// users call it; empty for groups that are known, usual, or belong to one that is counted.
std::string_view lossOf(std::string_view acadVersion, std::string_view type, const RawTag& tag);

/// Index nearest to a true colour (420) among tags [first, last); nothing when there is none, or
/// when the release knows true colours.
std::optional<int> indexOfTrueColor(std::string_view acadVersion, const RawTags& tags,
                                    std::size_t first, std::size_t last);

}  // namespace prancheta::dxf
