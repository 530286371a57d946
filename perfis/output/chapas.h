// SPDX-License-Identifier: MIT
// Lacing plates along a member.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "perfis/entities/zpchapa.h"
#include "perfis/output/material_list.h"
#include "zp/objects/peca.h"

namespace perfis {

/// Truncated toward zero; a fraction of a half or more counts up. A negative number is truncated.
int Arredonda(double x);

/// Sizes of a plate in mm: along the member, thickness, across the member.
struct ChapaSize {
    double C = 0.0;
    double t = 0.0;
    double A = 0.0;
};

/// How one plate stands.
struct ChapaTurn {
    double rot1 = 0.0;
    double rot2 = 0.0;
};

/// A row of equal plates along a member.
struct ChapaRule {
    ZpObject::ZpVistas vista;  ///< of the plates
    double y;                  ///< of the row, from the member's point
    ChapaTurn ends;
    ChapaTurn between;
    /// What a plate takes up of its member's section as turned, mm; two where one is drawn for both
    /// flanges.
    std::vector<zp::secao::Bounds> bodies;
};

/// On edge, the intermediate plates with the angles of the end ones swapped.
ChapaRule onEdgeSwapped(double y, std::vector<zp::secao::Bounds> bodies);
/// On edge, all alike.
ChapaRule onEdge(double y, std::vector<zp::secao::Bounds> bodies);
/// Seen flat.
ChapaRule flat(double y, std::vector<zp::secao::Bounds> bodies);

/// Where plates stand along a member: its length and the spacing of the plates, mm.
struct ChapaSpacing {
    double comp = 0.0;
    double L1 = 0.0;
};

/// Where the plates of a row start, from the member's point along its axis, slot by slot: both
/// ends, then those between.
std::vector<double> chapaStations(const ChapaSpacing& spacing, double largura);

/// True when such a row has no more than 10,000 plates and none of them ends beyond its member.
bool rowHolds(const ChapaSpacing& spacing, double largura);

/// What was laid along a member.
struct LaidChapas {
    std::vector<AcDbObjectId> ids;
    /// One for each row of the material list.
    std::vector<ChapaRow> rows;
    /// From the left edge of the first plate to that of the next one along the member, when the
    /// member's dimensions show it; else 0.
    double pitch = 0.0;

    /// The plates of one row of the list: that of slot 1, or the only one, stands for them there.
    void add(const std::vector<AcDbObjectId>& chapas);
};

/// Where plates come to stand: each new one is put in the drawing, closed and tied to its member,
/// which is open for write.
class ChapaSupply {
public:
    virtual ~ChapaSupply() = default;
    virtual AcDbObjectId place(ZpObject& barra, std::unique_ptr<ZpChapa> chapa);

    /// A plate that would stand beyond an oblique end of its member is not placed.
    void leaveOut() { ++m_leftOut; }
    /// Tells the user how many were not.
    void tellLeftOut() const;

private:
    int m_leftOut = 0;
};

/// Lays the lacing plates of a piece that stands along X and is open; `point` is the piece's own.
using ChapaLaying =
    std::function<LaidChapas(ZpObject& peca, const AcGePoint3d& point, ChapaSupply& supply)>;

/// Makes plates for one member on the layer of "vista-chapa".
class ChapaMaker {
public:
    ChapaMaker(ZpObject& barra, const ChapaSize& size, ChapaSupply& supply)
        : m_barra(barra), m_size(size), m_supply(supply) {}

    /// One plate of the maker's size.
    AcDbObjectId chapa(const AcGePoint3d& point, ZpObject::ZpVistas vista, const ChapaTurn& turn);
    /// One plate of any values.
    AcDbObjectId chapa(AcGePoint3d point, ZpObject::ZpVistas vista, double d1, double d2, double d3,
                       const ChapaTurn& turn);
    /// Both end plates, then those between them, from the member's point on; without those that lie
    /// wholly beyond an oblique end. Slot 1 is the far end.
    std::vector<AcDbObjectId> row(const AcGePoint3d& point, const ChapaSpacing& spacing,
                                  const ChapaRule& rule);

private:
    bool isBeyondEnd(const ChapaRule& rule, double x) const;

    ZpObject& m_barra;
    ChapaSize m_size;
    ChapaSupply& m_supply;
};

/// Ties every plate to the member once more, after its dimensions.
void tieChapas(ZpObject& barra, const std::vector<AcDbObjectId>& chapas);

}  // namespace perfis
