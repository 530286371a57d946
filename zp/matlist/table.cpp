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

namespace zp::lista {
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
    for (const AcDbSoftPointerId& id : header.tabela) {
        AcDbEntity* parte = nullptr;
        if (acdbOpenAcDbEntity(parte, id, AcDb::kForWrite) != Acad::eOk) continue;
        (void)parte->erase();  // open for write and alive
        (void)parte->close();
    }
}

/// Puts lines and texts on one layer into the drawing and keeps their ids.
class Draughtsman {
public:
    explicit Draughtsman(const wchar_t* camada) : m_layer(camada) {}
    void linha(const AcGePoint3d& a, const AcGePoint3d& b) {
        poe(std::make_unique<AcDbLine>(a, b));
    }
    void texto(const AcGePoint3d& onde, const std::wstring& t, double altura, bool toTheRight) {
        if (t.empty()) return;
        auto entidade = std::make_unique<AcDbText>(onde, t.c_str(), AcDbObjectId::kNull, altura);
        if (toTheRight) {
            (void)entidade->setHorizontalMode(2);
            (void)entidade->setAlignmentPoint(onde);
        }
        poe(std::move(entidade));
    }
    std::vector<AcDbSoftPointerId> ids() const { return m_ids; }

private:
    void poe(std::unique_ptr<AcDbEntity> entidade) {
        (void)entidade->setLayer(m_layer);  // a layer that cannot be leaves the current one
        AcDbObjectId id;
        if (append(entidade.get(), id) != RTNORM) return;
        (void)entidade.release()->close();
        m_ids.push_back(AcDbSoftPointerId(id));
    }
    const wchar_t* m_layer;
    std::vector<AcDbSoftPointerId> m_ids;
};

std::vector<Line> linesOf(const std::vector<Linha>& linhas) {
    std::vector<Line> lines{lineOf(headingOf)};
    for (const Linha& l : linhas)
        lines.push_back(lineOf([&](const Column& c) { return wordsOf(cellOf(l, c), c); }));
    const std::array<double, kColumns> totals = totalsOf(linhas);
    lines.push_back(lineOf([&](const Column& c) {
        const auto i = static_cast<std::size_t>(&c - kColumnTable.data());
        return c.shown.summed ? wordsOf(totals[i], c)
               : i == 0       ? std::wstring(kTotal)
                              : std::wstring();
    }));
    return lines;
}

}  // namespace

bool drawTable(const Lista& lista) {
    std::optional<Header> header = readHeader(lista.id);
    if (!header) return false;
    const std::vector<Line> cells = linesOf(linhas(lista.id));

    const double h = 2.5 * GetScale();
    std::array<double, kColumns + 1> x{};
    x[0] = header->ponto.x;
    for (std::size_t i = 0; i < kColumns; ++i) {
        std::size_t maior = 0;
        for (const Line& c : cells) maior = std::max(maior, c[i].size());
        // cppcheck-suppress containerOutOfBounds ; x has one more than kColumns
        x[i + 1] = x[i] + h * (0.9 * static_cast<double>(maior) + 1.6);
    }
    eraseTable(*header);
    Draughtsman d(ZpLayerToUsr(L"LISTA"));
    const double passo = 2.0 * h;
    const double z = header->ponto.z;
    const auto y = [&](std::size_t n) { return header->ponto.y - passo * static_cast<double>(n); };
    for (std::size_t n = 0; n <= cells.size(); ++n)
        d.linha({x.front(), y(n), z}, {x.back(), y(n), z});
    for (const double coluna : x) d.linha({coluna, y(0), z}, {coluna, y(cells.size()), z});
    for (std::size_t n = 0; n < cells.size(); ++n)
        for (std::size_t i = 0; i < kColumns; ++i) {
            const bool direita = kColumnTable[i].shown.decimals >= 0 && n > 0;
            const double onde = direita ? x[i + 1] - 0.8 * h : x[i] + 0.8 * h;
            d.texto({onde, y(n + 1) + 0.5 * h, z}, cells[n][i], h, direita);
        }
    header->tabela = d.ids();
    return writeHeader(lista.id, *header);
}

}  // namespace zp::lista
