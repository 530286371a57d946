// SPDX-License-Identifier: MIT
// Ties by where things stand: a plate to the laced bar that it lies on, a mark to the piece at
// whose corner its tip is. A grid finds them, so that it costs the same however many there are.
#include "zp/matlist/revival.h"

#include <cmath>
#include <map>
#include <optional>

#include "protocol/attach.h"
#include "protocol/copies.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/copies.h"
#include "zp/objects/edit.h"
#include "zp/objects/links.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

class MarcaCopies : public protocol::EntityCopy {
public:
    std::wstring textOf(const AcDbEntity& entity) const override {
        const auto* const marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return {};
        copies::WordWriter words;
        const AcGePoint3d tip = marca->tip();
        const AcGePoint3d text = marca->textAt();
        for (const double v : {tip.x, tip.y, tip.z, text.x, text.y, text.z, marca->altura()})
            words.real(v);
        words.text(marca->marca());
        return words.words();
    }
    bool read(AcDbEntity& entity, const std::wstring& text) const override {
        auto* const marca = ZpMarca::cast(&entity);
        copies::WordReader words(text);
        AcGePoint3d tip;
        AcGePoint3d at;
        double altura = 0.0;
        std::wstring own;
        bool good = marca != nullptr;
        for (double* const v : {&tip.x, &tip.y, &tip.z, &at.x, &at.y, &at.z, &altura})
            good = good && words.real(*v) && std::isfinite(*v);
        if (!good || !words.text(own) || !(altura > 0.0)) return false;
        marca->place(tip, at, own, altura);
        return true;
    }
    bool isPiece() const override { return false; }
};

/// Things by the square of the plan that they stand in.
class Grid {
public:
    explicit Grid(double cell) : m_cell(cell) {}
    void add(const AcGePoint3d& p, std::size_t thing) {
        std::vector<std::size_t>& here = m_cells[{step(p.x), step(p.y)}];
        if (here.empty() || here.back() != thing) here.push_back(thing);
    }
    /// Calls `visit` for what stands in the square of the point and those around it.
    template <class Visit>
    void around(const AcGePoint3d& p, Visit&& visit) const {
        for (long long x = step(p.x) - 1; x <= step(p.x) + 1; ++x)
            for (long long y = step(p.y) - 1; y <= step(p.y) + 1; ++y)
                if (const auto cell = m_cells.find({x, y}); cell != m_cells.end())
                    for (const std::size_t thing : cell->second) visit(thing);
    }

private:
    long long step(double v) const { return std::llround(v / m_cell); }
    double m_cell;
    std::map<std::pair<long long, long long>, std::vector<std::size_t>> m_cells;
};

/// mm; more than half the depth of any built-up section.
constexpr double kBarCell = 2000.0;
/// How near what touches comes, mm.
constexpr double kTouch = 1e-3;
/// How near to a corner the tip of a mark is, mm.
constexpr double kAtCorner = 1e-3;

class Revivals {
public:
    Revivals(AcDbDatabase& drawing, std::span<const protocol::Revived> revived)
        : m_drawing(drawing), m_book(Book::of(drawing)), m_revived(revived) {}

    std::wstring run() {
        const Book::OwnWork own(m_book);
        for (std::size_t i = 0; i < m_revived.size(); ++i) note(i);
        for (const std::size_t i : m_chapas) tieChapa(i);
        for (const std::size_t i : m_pecas) enter(i);
        std::size_t loose = 0;
        for (const std::size_t i : m_marcas) loose += tieMarca(i) ? 0 : 1;
        if (loose == 0) return {};
        return std::to_wstring(loose) + (loose == 1
                                             ? L" marca não está na ponta de nenhuma peça."
                                             : L" marcas não estão na ponta de nenhuma peça.");
    }

private:
    AcDbObjectId id(std::size_t i) const { return m_revived[i].id; }

    void note(std::size_t i) {
        const AcDbObjectPointer<ZpObject> peca(id(i), AcDb::kForRead);
        if (peca.object() == nullptr) {
            if (id(i).objectClass()->isDerivedFrom(ZpMarca::desc())) m_marcas.push_back(i);
            return;
        }
        const Peca& p = Access::of(*peca.object());
        m_pecas.push_back(i);
        if (p.chapa()) m_chapas.push_back(i);
        for (const AcGePoint3d& corner : edit::cornersOf(*peca.object()).f)
            m_corners.add(corner, i);
        if (const std::wstring marca = copies::marcaIn(m_revived[i].text); !marca.empty())
            m_byMarca[marca].push_back(i);
        if (p.chapa() || member::of(*peca.object()).lacing.n == 0) return;
        const double length = p.inSecao() ? 0.0 : p.comprimento;
        for (double x = 0.0; x < length; x += kBarCell) m_laced.add(p.frame().toWorld(x, 0.0), i);
        m_laced.add(p.frame().toWorld(length, 0.0), i);
    }

    /// The plate lies on the picture of its bar, or touches it from outside, nearest to its middle.
    void tieChapa(std::size_t i) {
        std::optional<std::size_t> best;
        {
            const AcDbObjectPointer<ZpObject> chapa(id(i), AcDb::kForRead);
            double nearest = 0.0;
            m_laced.around(Access::of(*chapa.object()).start, [&](std::size_t bar) {
                const AcDbObjectPointer<ZpObject> opened(id(bar), AcDb::kForRead);
                const Peca& p = Access::of(*opened.object());
                const secao::Bounds box = edit::boxIn(p.frame(), *chapa.object());
                const secao::Bounds around = p.picture();
                if (box.x0 < around.x0 - kTouch || box.x1 > around.x1 + kTouch ||
                    box.y0 > around.y1 + kTouch || box.y1 < around.y0 - kTouch)
                    return;
                const double off =
                    std::abs(box.y0 + box.y1 - around.y0 - around.y1) / (around.y1 - around.y0);
                if (best && off >= nearest) return;
                best = bar;
                nearest = off;
            });
        }
        if (!best) return;
        const AcDbObjectPointer<ZpObject> bar(id(*best), AcDb::kForWrite);
        if (bar.object() != nullptr)
            (void)tie(*bar.object(), id(i),
                      Link::Role::Follows);  // one that follows nothing is drawn
    }

    /// Into the row of its mark, where that is of the same member or of nobody. What is left is
    /// taken in when the command ends, under another mark.
    void enter(std::size_t i) {
        const std::wstring marca = copies::marcaIn(m_revived[i].text);
        if (marca.empty()) return;
        AcDbObjectId row = rowOfMarca(m_drawing, marca);
        if (row.isNull()) {
            row = rowOfItsOwn(id(i), {});
            if (row.isNull() || !renameRow(row, marca)) return;
        } else if (!fits(i, row)) {
            return;
        }
        (void)enterRow(id(i), row, countOf(id(i)));  // else it is taken in later
    }
    bool fits(std::size_t i, AcDbObjectId row) const {
        const Ids& pecas = m_book.row(row)->pecas;
        if (pecas.empty()) return false;
        const AcDbObjectPointer<ZpObject> peca(id(i), AcDb::kForRead);
        const AcDbObjectPointer<ZpObject> other(*pecas.begin(), AcDb::kForRead);
        return peca.object() != nullptr && other.object() != nullptr &&
               member::same(*peca.object(), *other.object());
    }

    bool tieMarca(std::size_t i) {
        AcGePoint3d tip;
        std::wstring text;
        {
            const AcDbObjectPointer<ZpMarca> marca(id(i), AcDb::kForRead);
            tip = marca->tip();
            text = marca->marca();
        }
        AcDbObjectId found;
        m_corners.around(tip, [&](std::size_t other) {
            if (!found.isNull() || copies::marcaIn(m_revived[other].text) != text) return;
            const AcDbObjectPointer<ZpObject> peca(id(other), AcDb::kForRead);
            for (const AcGePoint3d& corner : edit::cornersOf(*peca.object()).f)
                if (corner.distanceTo(tip) <= kAtCorner) found = id(other);
        });
        const auto row = m_byMarca.find(text);
        if (found.isNull() && row != m_byMarca.end() && row->second.size() == 1)
            found = id(row->second.front());
        return matlist::tieMarca(id(i), found);
    }

    AcDbDatabase& m_drawing;
    Book& m_book;
    std::span<const protocol::Revived> m_revived;
    std::vector<std::size_t> m_pecas;   ///< in drawing order
    std::vector<std::size_t> m_chapas;  ///< among them
    std::vector<std::size_t> m_marcas;
    Grid m_corners{1.0};
    Grid m_laced{kBarCell};
    std::map<std::wstring, std::vector<std::size_t>> m_byMarca;
};

class Revival : public protocol::Revival {
public:
    std::wstring tie(AcDbDatabase& drawing,
                     std::span<const protocol::Revived> revived) const override {
        return Revivals(drawing, revived).run();
    }
};

// Kept by pointer in the class and in the registry.
MarcaCopies g_marcas;
Revival g_revival;

}  // namespace

void installRevival() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityCopyClass, g_marcas);
    acrxSysRegistry()->atPut(protocol::kRevivalKey, &g_revival);
}

void uninstallRevival() {
    protocol::detach(ZpMarca::desc(), protocol::kEntityCopyClass);
    acrxSysRegistry()->remove(protocol::kRevivalKey);
}

}  // namespace zp::matlist
