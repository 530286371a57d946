// SPDX-License-Identifier: MIT
// What is wrong with the job that a drawing shows: rows, marks, dimensions, plates and pieces that
// do not fit together.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "perfis/entities/zpobject.h"
#include "protocol/check.h"

namespace zp::matlist {

class Book;

enum class Fault {
    RowWithoutPeca,
    RowSaysOther,  ///< than its pieces, or than a mark drawn at them
    EqualWithTwoMarcas,
    OneMarcaForTwo,
    MarcaOnNothing,
    PecaWithoutMarca,
    CotaSaysOther,
    CotaOfNothing,
    ChapaOutside,
    ChapasCoincide,
    OnePlaneOfTwo,
    BarsOverlap,
    TableStale,   ///< or a cutting plan
    BlockScaled,  ///< with listed pieces in it
    SizeUnknown,
    TableSaysOther,  ///< of a size than a piece keeps
};

/// As protocol::Finding, kept.
struct Finding {
    Fault kind;
    protocol::Severity severity;
    std::vector<AcDbObjectId> objects;
    std::wstring marca;
    AcGePoint3d place;
    std::wstring text;
    std::wstring remedy;
};

/// All findings: faults before hints, then by kind, mark and age. Nothing is changed. O(n log n).
std::vector<Finding> check(AcDbDatabase& drawing);

/// "U 200x75x3", by the name that the size has in the trade where the piece knows it.
std::wstring sizeOf(const ZpObject& peca);

/// The catalogues of sizes, read for one check.
class Catalogues {
public:
    virtual ~Catalogues() = default;
    /// The nearest size that a catalogue holds, as sizeOf has it, for one that none holds; nothing
    /// for a size that is in one, and for pieces without a catalogue. The piece is open for read.
    virtual std::optional<std::wstring> nearestTo(const ZpObject& peca) = 0;
};
using CataloguesMaker = std::unique_ptr<Catalogues> (*)();
/// Told by the module that reads the catalogues; null takes it away.
void setCatalogues(CataloguesMaker maker);

/// The command CONFERIR.
inline constexpr const ACHAR* kCheckCommand = L"CONFERIR";
void checkCommand();

/// True for a bar with plates in two planes that is seen on one of them, and whose plates count for
/// one. The bar is readable.
bool showsOnePlane(Book& book, const ZpObject& barra);
/// Answers a host that asks for the findings; takes the answer away.
void installCheck();
void uninstallCheck();

}  // namespace zp::matlist
