// SPDX-License-Identifier: MIT
// Table of a material list.
#include "zp/matlist/table.h"

#include <algorithm>
#include <array>
#include <memory>

#include "adscodes.h"
#include "dbents.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/matlist/columns.h"

namespace zp::matlist {
namespace {

using Line = std::array<std::wstring, kColumns>;

/// One text a column.
template <class TextOf>
Line lineOf(TextOf textOf) {
    Line line;
    std::ranges::transform(kColumnTable, line.begin(), textOf);
    return line;
}

void eraseTable(const Header& header) {
    for (const AcDbSoftPointerId& id : header.table) {
        AcDbEntity* part = nullptr;
        if (acdbOpenAcDbEntity(part, id, AcDb::kForWrite) != Acad::eOk) continue;
        (void)part->erase();  // open for write and alive
        (void)part->close();
    }
}

/// Puts lines and texts on one layer into the drawing and keeps their ids.
class Draughtsman {
public:
    explicit Draughtsman(const wchar_t* layer) : m_layer(layer) {}
    void line(const AcGePoint3d& a, const AcGePoint3d& b) { put(std::make_unique<AcDbLine>(a, b)); }
    void text(const AcGePoint3d& where, const std::wstring& t, double altura, bool toTheRight) {
        if (t.empty()) return;
        auto entity = std::make_unique<AcDbText>(where, t.c_str(), AcDbObjectId::kNull, altura);
        if (toTheRight) {
            (void)entity->setHorizontalMode(2);
            (void)entity->setAlignmentPoint(where);
        }
        put(std::move(entity));
    }
    std::vector<AcDbSoftPointerId> ids() const { return m_ids; }

private:
    void put(std::unique_ptr<AcDbEntity> entity) {
        (void)entity->setLayer(m_layer);  // a layer that cannot be leaves the current one
        AcDbObjectId id;
        if (append(entity.get(), id) != RTNORM) return;
        (void)entity.release()->close();
        m_ids.push_back(AcDbSoftPointerId(id));
    }
    const wchar_t* m_layer;
    std::vector<AcDbSoftPointerId> m_ids;
};

std::vector<Line> linesOf(const std::vector<Linha>& rows) {
    std::vector<Line> lines{lineOf(headingOf)};
    for (const Linha& l : rows)
        lines.push_back(lineOf([&](const Column& c) { return wordsOf(cellOf(l, c), c); }));
    const std::array<double, kColumns> totals = totalsOf(rows);
    lines.push_back(lineOf([&](const Column& c) {
        const auto i = static_cast<std::size_t>(&c - kColumnTable.data());
        return c.shown.summed ? wordsOf(totals[i], c)
               : i == 0       ? std::wstring(kTotal)
                              : std::wstring();
    }));
    return lines;
}

}  // namespace

bool drawTable(const MaterialList& list) {
    std::optional<Header> header = readHeader(list.id);
    if (!header) return false;
    const std::vector<Line> cells = linesOf(rows(list.id));

    const double h = 2.5 * GetScale();
    std::array<double, kColumns + 1> x{};
    x[0] = header->point.x;
    for (std::size_t i = 0; i < kColumns; ++i) {
        std::size_t largest = 0;
        for (const Line& c : cells) largest = std::max(largest, c[i].size());
        // cppcheck-suppress containerOutOfBounds ; x has one more than kColumns
        x[i + 1] = x[i] + h * (0.9 * static_cast<double>(largest) + 1.6);
    }
    eraseTable(*header);
    Draughtsman d(ZpLayerToUsr(L"LISTA"));
    const double step = 2.0 * h;
    const double z = header->point.z;
    const auto y = [&](std::size_t n) { return header->point.y - step * static_cast<double>(n); };
    for (std::size_t n = 0; n <= cells.size(); ++n)
        d.line({x.front(), y(n), z}, {x.back(), y(n), z});
    for (const double column : x) d.line({column, y(0), z}, {column, y(cells.size()), z});
    for (std::size_t n = 0; n < cells.size(); ++n)
        for (std::size_t i = 0; i < kColumns; ++i) {
            const bool right = kColumnTable[i].shown.decimals >= 0 && n > 0;
            const double where = right ? x[i + 1] - 0.8 * h : x[i] + 0.8 * h;
            d.text({where, y(n + 1) + 0.5 * h, z}, cells[n][i], h, right);
        }
    header->table = d.ids();
    return writeHeader(list.id, *header);
}

}  // namespace zp::matlist
