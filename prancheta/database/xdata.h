// SPDX-License-Identifier: MIT
// Extended data between typed lists and the groups in which they are kept.
#pragma once

#include "prancheta/base/result.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/value_list.h"

namespace prancheta {

constexpr std::size_t kMaxXdataBytes = 16383;
constexpr std::size_t kMaxXdataText = 255;  ///< of one text, as writtenSize() counts

/// Bytes that a text takes in a file at most: where texts are not UTF-8, a character outside
/// Latin-1 is written as \U+XXXX.
std::size_t writtenSize(std::string_view utf8);

/// Groups of a list that starts with 1001. eInvalidInput for a code, a value or an order that
/// extended data cannot hold.
Acad::ErrorStatus tagsOfList(const resbuf* list, RawTags& tags);

/// The other way; groups that make no sense are left out. `application` null: all.
ListOwner listOfTags(const RawTags& tags, const ACHAR* application);

/// Size by which the limit is counted: the binary size of the values, with one byte for each code.
std::size_t xdataSize(const RawTags& tags);
std::size_t xdataSize(const PackedTags& tags);

/// 1011 moves, 1012 and 1013 turn, 1012, 1041 and 1042 scale.
void transformXdata(RawTags& tags, const AcGeMatrix3d& m);

}  // namespace prancheta
