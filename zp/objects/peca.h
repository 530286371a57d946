// SPDX-License-Identifier: MIT
// State of a piece, its frame in the drawing, and its links with dimensions and plates.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "gemat3d.h"
#include "perfis/entities/zpobject.h"
#include "zp/objects/secao/secao.h"

namespace zp {

/// Frame of a piece: origin at the start, x along the axis, y to the left of it, or to the right
/// when the piece was mirrored. z is the drawing's.
struct Frame {
    AcGePoint3d origin;
    AcGeVector3d x = AcGeVector3d::kXAxis;
    AcGeVector3d y = AcGeVector3d::kYAxis;

    /// From the piece's coordinates (x along the member) to the world's.
    AcGePoint3d toWorld(double px, double py, double pz = 0.0) const;
    /// Back again.
    AcGeVector3d toLocal(const AcGePoint3d& p) const;
};

/// Unit vector of an angle; exact at multiples of a right angle.
AcGeVector3d direction(double angle);
/// Angle of a direction in XY, [0, 2 pi), exact at multiples of a right angle.
double angleOf(const AcGeVector3d& v);

/// One defining point of something linked, in the piece's frame: offset from the start or from the
/// end.
struct LearntPoint {
    AcGeVector3d offset;
    bool atEnd = false;
};

/// Up to four of them; the marks of the end share one byte, because a drawing has as many links as
/// dimensions.
class LearntPoints {
public:
    class Place {
    public:
        Place(LearntPoints& points, std::size_t i) : m_points(points), m_i(i) {}
        operator LearntPoint() const { return std::as_const(m_points)[m_i]; }
        Place& operator=(const LearntPoint& p) {
            m_points.m_offsets[m_i] = p.offset;
            m_points.flagEnd(m_i, p.atEnd);
            return *this;
        }

    private:
        LearntPoints& m_points;
        std::size_t m_i;
    };
    static constexpr std::size_t size() { return 4; }
    LearntPoint operator[](std::size_t i) const { return {m_offsets[i], (m_atEnds >> i & 1) != 0}; }
    Place operator[](std::size_t i) { return {*this, i}; }
    void flagEnd(std::size_t i, bool atEnd) {
        const auto bit = static_cast<std::uint8_t>(1U << i);
        m_atEnds = static_cast<std::uint8_t>(atEnd ? m_atEnds | bit : m_atEnds & ~bit);
    }
    void scale(double k) {
        for (AcGeVector3d& offset : m_offsets) offset *= k;
    }

private:
    std::array<AcGeVector3d, 4> m_offsets;
    std::uint8_t m_atEnds = 0;
};

struct Link {
    enum class Role : std::uint8_t {
        Cota = 0,     ///< a dimension of this piece
        Follows = 1,  ///< a piece that goes where this one goes
        Owner = 2,    ///< the piece that this one follows
    };
    AcDbSoftPointerId id;
    [[no_unique_address]] LearntPoints points;
    Role role = Role::Cota;
    /// Points in use: the dimension's (two measured, one on the line, the text's when it was placed
    /// by hand) or the piece's start, for a plate also one as far from it as the plate is large.
    std::uint8_t count = 0;
    bool mirrored = false;  ///< of a piece: mirrored relative to this one
    double angle = 0.0;     ///< of a piece: relative to this one
};

/// How a built-up piece was laced: height A and width C of its plates in mm, parts n between them,
/// planes as its command numbers them (0 where it gives no choice). n = 0: it was not, or nobody
/// knows; in a section, which does not show how its plates are spread, C may be 0.
struct Lacing {
    double A = 0.0;
    double C = 0.0;
    int n = 0;
    int planes = 0;
    double L1 = 0.0;  ///< spacing that was made for another length, mm; 0: (length - C) / n
    bool operator==(const Lacing&) const = default;
};

/// What a drawn piece stands for in the job. Copies of the piece keep it.
struct Member {
    AcDbSoftPointerId row;  ///< record in a material list; null in another drawing than the list's
    bool listed = false;    ///< belongs to a row, be it one of another drawing
    int count = 1;          ///< members that this drawing counts for; 0: a further view of one
    std::wstring grade;     ///< of its steel; empty: the drawing's
    Lacing lacing;
    bool operator==(const Member&) const = default;
};

/// What the trade calls the size that a piece was drawn with, and what its table printed then, of
/// one single shape. Copies keep it, so that a drawing says the same on every machine.
struct Commercial {
    std::wstring name;     ///< "W 150 x 13,0"; empty: the size has none
    double kgMetro = 0.0;  ///< kg/m; 0: the table prints none
    secao::Printed printed;
    bool operator==(const Commercial&) const = default;
};

/// Plane that ends a piece where its axis ends: how much further out the piece reaches per mm of
/// the section, before the section's own turn. Zero: square. cortes.h says it in the piece's view.
struct Corte {
    double x = 0.0;
    double y = 0.0;
    bool operator==(const Corte&) const = default;
};

/// Where a piece's mass comes from.
enum class MassSource {
    Tabela,     ///< printed for the size, in a table or in the catalogue that it was picked from
    Geometria,  ///< area of the outline
};

struct Peca {
    secao::Kind kind = secao::Kind::None;
    std::uint8_t form = 1;  ///< points of the constructor
    std::uint8_t vista = 0;
    std::uint8_t count = 0;
    std::uint8_t tipoBarra = 0;
    std::uint8_t series = 0;
    bool mirrored = false;
    bool barraStale = false;  ///< bar data in the drawing are to be written again
    double angle = 0.0;
    double comprimento = 0.0;     ///< of the axis, mm
    std::array<Corte, 2> cortes;  ///< at the start, at the end
    AcGePoint3d start;
    std::array<AcGePoint3d, 2> points;               ///< as handed to the constructor
    std::array<double, secao::kMaxValues> given{};   ///< as handed to the constructor
    std::array<double, secao::kMaxValues> actual{};  ///< after scaling and changes
    std::unique_ptr<std::vector<Link>> links;
    std::unique_ptr<Member> member;  ///< null: nothing of it is known
    /// Null: of no table. Changed through published.h.
    std::shared_ptr<const Commercial> commercial;
    mutable std::shared_ptr<const secao::Secao> cachedSecao;

    /// In the order of the constructor; mm, radians, kg/m.
    std::span<const double> values() const { return {actual.data(), count}; }
    /// Roles of the values, in their order; null when the class has no such constructor.
    const secao::Roles* order() const { return secao::rolesOf(kind, form, count); }
    /// Place of a role among the values; -1 when the constructor has none.
    int place(secao::Role role) const { return secao::placeOf(order(), role); }
    /// The present value of a role; null when the constructor has none.
    double* value(secao::Role role) {
        const int i = place(role);
        return i < 0 ? nullptr : &actual[static_cast<std::size_t>(i)];
    }
    const double* value(secao::Role role) const { return const_cast<Peca*>(this)->value(role); }
    secao::RoleValues roles() const;
    const secao::Secao& secao() const;
    /// Mass of the whole section, kg/m: the table's, else the catalogue's, else the outline's. Not
    /// of plates, no more than what follows.
    double kgMetro() const;
    MassSource massSource() const;
    /// "W", "2L T"; sizes as numbers, "148x13".
    std::wstring perfil() const;
    std::wstring dimensoes() const;
    /// Name of the size in the trade, "W 150 x 13,0"; perfil and sizes where it has none. Of a
    /// built-up section its form, the single shape's name without its letter and the distances:
    /// "2L T 2\" x 1/4\" a=10".
    std::wstring designacao() const;
    /// Name of the single shape; empty where it has none.
    const std::wstring& name() const;
    bool chapa() const { return kind == secao::Kind::Chapa; }
    bool inSecao() const { return vista == 0; }
    Frame frame() const;
    /// World coordinates.
    AcGePoint3d end() const;
    /// The end moves along the axis; a constructor's length follows.
    void setComprimento(double fresh);
    /// Sizes, lacing and what is learnt of others, k times as large. The start stays.
    void scale(double k);
    /// Frame of the picture: that of the piece, for a plate with its own turn.
    Frame pictureFrame() const;
    /// Box of the picture in that frame, oblique ends included.
    secao::Bounds picture() const;

    void add(const Link& l);
    /// The same, not behind all others: `place` counts from 0.
    void insert(std::ptrdiff_t place, const Link& l);
    std::span<const Link> linked() const;
    Link* link(AcDbObjectId id);
    void untie(AcDbObjectId id);
};

struct Access {
    static Peca& of(ZpObject& object) { return *object.m_peca; }
    static const Peca& of(const ZpObject& object) { return *object.m_peca; }
};

}  // namespace zp
