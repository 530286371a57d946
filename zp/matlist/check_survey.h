// SPDX-License-Identifier: MIT
// The parts of a check, and what they share.
#pragma once

#include "zp/matlist/book.h"
#include "zp/matlist/check.h"
#include "zp/objects/peca.h"

namespace zp::matlist {

struct Survey {
    explicit Survey(AcDbDatabase& ofDrawing);

    AcDbDatabase& drawing;
    Book& book;
    std::vector<MaterialList> lists;
    std::vector<AcDbObjectId> pecas;   ///< all that stand, plates too, in whichever block
    std::vector<AcDbObjectId> chapas;  ///< the plates among them
    std::vector<AcDbObjectId> cotas;
    std::vector<AcDbObjectId> lines;
    std::vector<AcDbObjectId> insertions;
    std::vector<Finding> found;

    /// Mark of the row that the piece belongs to; empty when it is in no list.
    std::wstring marcaOf(AcDbObjectId peca) const;
    void fault(Fault kind, std::vector<AcDbObjectId> objects, std::wstring marca,
               const AcGePoint3d& place, std::wstring text, std::wstring remedy,
               protocol::Severity severity = protocol::Severity::Fault) {
        found.push_back({kind, severity, std::move(objects), std::move(marca), place,
                         std::move(text), std::move(remedy)});
    }
};

/// Lengths nearer than this are one, mm.
inline constexpr double kSameCheckedPlace = 0.01;

/// "U 200x75x3, 2162 mm".
std::wstring wordsOf(const ZpObject& peca);
std::wstring wordsOf(const Linha& row);
/// Middle of its picture, world coordinates.
AcGePoint3d middleOf(const ZpObject& peca);

void checkRows(Survey& survey);
void checkPecasWithoutMarca(Survey& survey);
void checkCotas(Survey& survey);
void checkChapas(Survey& survey);
void checkAxes(Survey& survey);
void checkSheet(Survey& survey);

}  // namespace zp::matlist
