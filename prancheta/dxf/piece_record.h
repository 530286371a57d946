// SPDX-License-Identifier: MIT
// The record of a parametric piece in the extended data of its block reference.
//
// A piece is one INSERT with these groups of application PRANCHETA:
//
//     1000 class name
//     1071 version of this layout, 1
//     1000 codes of the fields, in order, such as "=,90,70x3,10x2,40x14,1/2,330x3": a code, how
//     often it
//          comes in a row (x3), in how many parts a long text stands (/2); "=" is the subclass
//          marker with the class's own name. Longer than 250 bytes it goes on in further groups,
//          each but the last ending with a comma. "@" alone: the fields stand in an XRECORD named
//          PRANCHETA in the extension dictionary
//     the values: reals 1040, points 1010, whole numbers 1070 and 1071, truth values 1070, texts
//     1000,
//          references 1005
//     1002 {
//     1010 place of the INSERT as it was saved
//     1040 its rotation in degrees, 1040 its scale (negative: mirrored); left out from the end when
//     0 and 1 1002 }
//
// One list of codes for all fields costs a third of what a code beside each value would.
#pragma once

#include <string>
#include <vector>

#include "gemat3d.h"
#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {

constexpr const char* kPieceApplication = "PRANCHETA";
constexpr int kPieceVersion = 1;

/// Frame of a piece as an INSERT says it: plane, turned about z, scaled alike; a negative scale is
/// mirrored in the x axis of the block.
struct PieceFrame {
    AcGePoint3d origin;
    double degrees = 0.0;
    double scale = 1.0;

    AcGeMatrix3d matrix() const;
};

/// The frame of a matrix; false when no INSERT of this kind can say it.
bool frameOf(const AcGeMatrix3d& matrix, PieceFrame& frame);

/// True when a value in this group of extended data can be the value of a field of that code. An
/// object takes texts by pointer, so nothing else may pass for one.
bool fieldSuits(int code, int xdataCode);

/// A record of a file, taken apart.
struct PieceRecord {
    std::string_view className;
    long long version = 0;
    bool apart = false;       ///< fields in an XRECORD
    std::vector<Tag> values;  ///< values without the list of codes
    std::vector<std::pair<int, int>>
        codes;  ///< code and number of groups 1000; code -1: own marker
    PieceFrame frame;
};

/// Groups behind 1001 PRANCHETA. False when they are no record; one of another version is told by
/// its version only.
bool parsePieceRecord(const Tag* first, const Tag* last, PieceRecord& record);
/// Adds the fields from the groups of an XRECORD behind its marker.
bool parsePieceXrecord(const Tags& body, PieceRecord& record);

}  // namespace prancheta::dxf
