// SPDX-License-Identifier: MIT
// Lines and texts of tables and diagrams.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dbidar.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "zp/objects/secao/outline.h"

class AcDbEntity;

namespace zp::matlist {

enum class Align { Left = 0, Middle = 1, Right = 2 };

/// Puts lines and texts on one layer into a space, the current one when it is null, and keeps their
/// ids.
class Draughtsman {
public:
    Draughtsman(AcDbObjectId space, const wchar_t* layer) : m_space(space), m_layer(layer) {}
    /// What follows is turned about the point, radians.
    void turn(const AcGePoint3d& about, double angle);
    void line(const AcGePoint3d& a, const AcGePoint3d& b);
    /// `angle` in radians, about `where`.
    void text(const AcGePoint3d& where, const std::wstring& t, double altura, Align align,
              double angle = 0.0);
    /// Lines and arcs of a section, `factor` times as large, its origin at `at`.
    void outline(const secao::Outline& outline, const AcGePoint3d& at, double factor);
    void circle(const AcGePoint3d& centre, double radius);
    /// Arcs that bulge outwards along a rectangle, each about so long.
    void cloud(const AcGePoint3d& lower, const AcGePoint3d& upper, double arc);
    const std::vector<AcDbSoftPointerId>& ids() const { return m_ids; }

private:
    bool enter(AcDbEntity* entity, AcDbObjectId& id) const;
    void put(std::unique_ptr<AcDbEntity> entity);

    AcDbObjectId m_space;
    std::wstring m_layer;
    AcGeMatrix3d m_turn;
    std::vector<AcDbSoftPointerId> m_ids;
};

/// Of a table's column with texts of so many characters, `h` high.
double widthOf(std::size_t characters, double h);

}  // namespace zp::matlist
