// SPDX-License-Identifier: MIT
// Reading and changing the groups of a foreign entity.
#pragma once

#include <string_view>
#include <vector>

#include "gepnt3d.h"
#include "prancheta/database/database_core.h"

namespace prancheta {

/// Number of a group, 0 when it is none.
double tagNumber(const RawTag& tag);
int tagWhole(const RawTag& tag);

/// First group of this code; the fallback when there is none.
double findNumber(const RawTags& tags, int code, double fallback);
int findWhole(const RawTags& tags, int code, int fallback);
std::wstring findText(const RawTags& tags, int code);

/// Name of a block or another record, as its table has it; empty when there is none.
std::wstring findName(const RawTags& tags, int code);

/// Point whose x is group `i`; y and z are the groups with code + 10 and + 20 right after it.
AcGePoint3d pointAt(const RawTags& tags, std::size_t i);
/// Number of groups that the point takes: 1, 2 or 3.
std::size_t pointLength(const RawTags& tags, std::size_t i);
/// Writes the coordinates that are there.
void setPointAt(RawTags& tags, std::size_t i, const AcGePoint3d& p);

/// First point of this code; the fallback when there is none.
AcGePoint3d findPoint(const RawTags& tags, int code, const AcGePoint3d& fallback = {});
/// All points of this code, in file order.
std::vector<AcGePoint3d> findPoints(const RawTags& tags, int code);
/// In the unit of the file, in its order.
std::vector<double> findNumbers(const RawTags& tags, int code);

/// A group that has this value already stays as it is written.
void setNumber(RawTag& tag, double value);
/// First group of this code; at the end when there is none.
void setFirst(RawTags& tags, int code, double value);

/// Texts and groups in the fields of an object.
void writeBytes(AcDbDwgFiler& filer, const std::string& text);
Acad::ErrorStatus readBytes(AcDbDwgFiler& filer, std::string& text);
void writeTags(AcDbDwgFiler& filer, const RawTags& tags);
Acad::ErrorStatus readTags(AcDbDwgFiler& filer, RawTags& tags);

}  // namespace prancheta
