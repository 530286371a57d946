// SPDX-License-Identifier: MIT
// Block references that are parametric pieces.
#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/piece_in_filer.h"
#include "prancheta/dxf/piece_plan.h"
#include "prancheta/geometry/angles.h"
#include "rxdict.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

// INSERT without looking its block up: that of a piece is not read.
constexpr Field kPlacement[] = {marker("AcDbBlockReference"),
                                {2, Text, 0},
                                {10, PlanePoint, 0},
                                optionalField(41, Real, 0, 1.0),
                                optionalField(42, Real, 1, 1.0),
                                optionalField(43, Real, 2, 1.0),
                                optionalField(50, Degrees, 3, 0.0),
                                {210, Normal}};

/// Groups of the application in extended data; empty when it has none.
std::pair<const Tag*, const Tag*> applicationTags(const Tags& xdata, std::string_view application) {
    const Tag* first = nullptr;
    const Tag* const end = xdata.data() + xdata.size();
    for (const Tag* at = xdata.data(); at != end; ++at) {
        if (at->code != 1001) continue;
        if (first != nullptr) return {first, at};
        if (trim(at->value) == application) first = at + 1;
    }
    return {first, first != nullptr ? end : nullptr};
}

bool near(double a, double b) {
    return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)});
}

/// What an INSERT does to its block. A factor of z that was left at 1 beside others, as programs of
/// the plane leave it, goes along with them.
AcGeMatrix3d placementOf(const Values& v) {
    const double sx = v.reals[0];
    const double sy = v.reals[1];
    const bool flat = std::abs(v.reals[2]) == 1.0 && near(std::abs(sx), std::abs(sy));
    const double sz = flat ? std::copysign(std::abs(sx), v.reals[2]) : v.reals[2];
    AcGeMatrix3d scaling;
    scaling.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis * sx,
                           AcGeVector3d::kYAxis * sy, AcGeVector3d::kZAxis * sz);
    return AcGeMatrix3d::translation(v.points[0].asVector()) * planeToWorld(v.normal) *
           AcGeMatrix3d::rotation(v.reals[3], AcGeVector3d::kZAxis) * scaling;
}

/// An INSERT that repeats its block in columns and rows.
bool isArray(const Tags& body) {
    return std::any_of(body.begin(), body.end(), [](const Tag& tag) {
        long long count = 1;
        return (tag.code == 70 || tag.code == 71) && parseInteger(tag.value, count) && count > 1;
    });
}

}  // namespace

/// Compares the place of the INSERT in m_values with the one that was saved. `possible` is false
/// when the change is none that a piece can follow.
bool Loader::isMoved(const PieceFrame& saved, AcGeMatrix3d& move, bool& possible) const {
    possible = true;
    const Values& v = m_values;
    const double size = std::abs(saved.scale);
    const double turn = std::remainder(v.reals[3] - radiansOf(saved.degrees), kTwoPi);
    const bool same = near(v.points[0].x, saved.origin.x) && near(v.points[0].y, saved.origin.y) &&
                      near(v.points[0].z, saved.origin.z) && std::abs(turn) <= 1e-11 &&
                      near(v.reals[0], saved.scale) && near(v.reals[1], size) &&
                      near(v.reals[2], size) && v.normal.z == 1.0;
    if (same) return false;
    move = placementOf(v) * saved.matrix().inverse();
    AcGeTol tolerance;
    tolerance.setEqualVector(1e-6);
    possible = move.isUniScaledOrtho(tolerance);
    return true;
}

AcRxClass* Loader::pieceClass(std::string_view name) {
    const auto [at, isNew] = m_classes.try_emplace(std::string(name));
    if (isNew) {
        AcRxClass* const found = AcRxClass::cast(acrxClassDictionary->at(text(name).c_str()));
        if (found != nullptr && found->isDerivedFrom(AcDbEntity::desc())) at->second = found;
    }
    return at->second;
}

/// Why the fields could not be read; empty when they were.
std::string Loader::fillPiece(AcDbEntity& entity, const PieceRecord& record) {
    PieceInFiler filer(record, *this);
    const Acad::ErrorStatus es = entity.dxfInFields(&filer);
    if (es == Acad::eOk && filer.filerStatus() == Acad::eOk) return {};
    std::string why = toUtf8(filer.message());
    while (!why.empty() && why.back() == '.') why.pop_back();
    return why.empty() ? toUtf8(entity.isA()->name()) + ": o registro não pôde ser lido" : why;
}

std::unique_ptr<AcDbEntity> Loader::readPiece(std::string_view& pictureBlock) {
    const auto [first, last] = applicationTags(m_head.xdata, kPieceApplication);
    if (first == nullptr) return nullptr;
    const char* const at = first != last ? first->value.data() : nullptr;
    const auto refuse = [&](const std::string& why) {
        note(why + "; ficou como referência de bloco", at, m_head.handle);
        return nullptr;
    };
    if (!parsePieceRecord(first, last, m_piece))
        return refuse("o registro de uma peça está danificado");
    const std::string className = toUtf8(text(m_piece.className));
    if (m_piece.version != kPieceVersion)
        return refuse("a peça " + className + " é de uma versão mais nova do programa");
    if (m_piece.apart && !readPieceFields()) return refuse("faltam os campos da peça " + className);
    AcRxClass* const found = pieceClass(m_piece.className);
    if (found == nullptr) return refuse("a classe " + className + " não está carregada");
    if (isArray(m_head.body))
        return refuse("a peça " + className +
                      " foi repetida em linhas e colunas por outro programa");
    if (!readFields(kPlacement, m_head.body, *this, m_values, m_rest, m_fault)) return nullptr;
    AcGeMatrix3d move;
    bool possible = true;
    const bool moved = isMoved(m_piece.frame, move, possible);
    if (!possible) return refuse("a peça " + className + " foi deformada por outro programa");
    AcRxObject* const made = found->create();
    std::unique_ptr<AcDbEntity> piece(AcDbEntity::cast(made));
    if (piece == nullptr) {
        delete made;
        return refuse("a classe " + className + " não pode ser criada");
    }
    // A class of the host's own is filed by its groups, so nothing wrote such a record.
    if (!isPiece(*piece)) return refuse("a classe " + className + " não é de uma peça");
    if (const std::string why = fillPiece(*piece, m_piece); !why.empty()) return refuse(why);
    for (const Tag& tag : m_head.body)
        if (tag.code == 2) pictureBlock = trim(tag.value);
    // Moved when all is read: it may take linked objects along.
    if (moved) m_moved.push_back({piece.get(), move});
    return piece;
}

}  // namespace prancheta::dxf
