// SPDX-License-Identifier: MIT
// What the members of material lists are cut from: plates as they are, bent bars as the strips of
// their single shapes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

struct FlatPart {
    std::wstring marca;
    std::wstring name;  ///< "U 200x75x3"; of a plate empty
    std::wstring material;
    long long count = 0;  ///< of all members
    double length = 0.0;  ///< mm, as the width and the thickness
    double width = 0.0;
    double espessura = 0.0;
    bool oblique = false;  ///< its ends are cut after it was bent
};
/// Of rows that count, in their order.
struct FlatParts {
    std::vector<FlatPart> parts;
    /// Marks of rows of which nothing is drawn, or no view along the length: nobody knows their
    /// sheet.
    std::vector<std::wstring> leftOut;
};
FlatParts flatPartsOf(const std::vector<Linha>& rows);

/// "P1: 4 x chapa 3 x 340,1 x 2000, A36 (U 200x75x3)"
std::wstring wordsOf(const FlatPart& part);

/// Name for a part's file in a folder, one for each part, and without what file systems refuse.
std::vector<std::filesystem::path> fileNamesOf(const std::vector<FlatPart>& parts);

/// What stands where files for these parts would, and is none of theirs: a drawing, perhaps the
/// very one. `destination` is a folder or one file for all; empty when nothing is in the way.
std::filesystem::path inTheWay(const std::filesystem::path& destination, bool together,
                               const std::vector<FlatPart>& parts);

/// A file for each part; outlines on CORTE, the mark inside on GRAVACAO, wordsOf below on NOTA.
/// The first file that could not be written; empty when all are.
std::filesystem::path writeEach(const std::filesystem::path& folder,
                                const std::vector<FlatPart>& parts);
/// The same in one file, one above the other.
bool writeTogether(const std::filesystem::path& file, const std::vector<FlatPart>& parts);

/// Answers a host that asks for the files; takes the answer away.
void installCutFiles();
void uninstallCutFiles();

}  // namespace zp::matlist
