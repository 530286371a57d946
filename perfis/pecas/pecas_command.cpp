// SPDX-License-Identifier: MIT
// PECAS: all pieces of a table, or none of them.
#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <numbers>

#include "acedads.h"
#include "dbapserv.h"
#include "files/replacement.h"
#include "perfis/dialogs/installation.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/pecas/commands.h"
#include "perfis/pecas/order.h"
#include "perfis/pecas/table.h"
#include "protocol/answers.h"
#include "protocol/pieces.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/asking.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

/// What a table is drawn from.
struct TableFile {
    std::wstring path;
    bool partial = false;
};

/// Said by a host; the next run of the command takes it.
std::optional<TableFile>& saidFile() {
    static std::optional<TableFile> file;
    return file;
}

std::optional<TableFile> askFile() {
    if (std::optional<TableFile> said = std::exchange(saidFile(), {})) return said;
    const auto typed = zp::matlist::askTyped(L"Arquivo das peças (CSV) e, se quiser, parcial: ");
    if (!typed || typed->empty()) return {};
    TableFile file{*typed, false};
    constexpr std::wstring_view kPartial = L" parcial";
    const std::size_t rest = file.path.size() - std::min(file.path.size(), kPartial.size());
    if (texts::equalIgnoringCase(std::wstring_view(file.path).substr(rest), kPartial)) {
        file.partial = true;
        file.path = texts::trimmed(file.path.substr(0, rest));
    }
    file.path = zp::matlist::withoutQuotes(std::move(file.path));
    return file;
}

/// A row whose piece can be drawn.
struct ReadyRow {
    const TableRow* row;
    ReadyPeca ready;
    std::unique_ptr<ZpObject> model;  ///< as it is drawn at the origin, not turned
};

/// The pieces of all rows, with all that is wrong with them.
class Pecas {
public:
    Pecas(PecaTable& table, AcDbDatabase& drawing) : m_table(table), m_drawing(drawing) {
        for (const TableRow& row : table.rows) prepare(row);
        std::ranges::stable_sort(m_table.faults, {}, &TableFault::line);
    }
    std::vector<ReadyRow>& rows() { return m_rows; }

private:
    void prepare(const TableRow& row) {
        ReadyRow ready{&row, {}, nullptr};
        std::wstring fault = makeReady(row.piece, m_designations, ready.ready);
        if (fault.empty()) {
            ready.model = std::move(ready.ready.run->accepted().peca);
            fault = marcaOfRow(ready);
        }
        if (fault.empty())
            m_rows.push_back(std::move(ready));
        else
            m_table.faults.push_back({row.line, m_table.columnOf(fault), fault});
    }
    /// Also against the rows above.
    std::wstring marcaOfRow(const ReadyRow& ready) {
        const std::wstring& marca = ready.ready.marca;
        if (marca.empty()) return {};
        const auto [above, fresh] = m_marcas.try_emplace(marca, m_rows.size());
        if (fresh) {
            std::wstring fault = marcaFault(ready.ready, m_drawing);
            if (!fault.empty()) m_marcas.erase(above);
            return fault;
        }
        const ReadyRow& other = m_rows[above->second];
        if (zp::member::same(*other.model, *ready.model)) return {};
        return L"marca=" + marca + L" já é de outra peça, na linha " +
               std::to_wstring(other.row->line) + L".";
    }

    PecaTable& m_table;
    AcDbDatabase& m_drawing;
    Designations m_designations;
    std::vector<ReadyRow> m_rows;
    std::map<std::wstring, std::size_t> m_marcas;  ///< rows by their marks
};

AcGeMatrix3d turned(const TableRow& row, const AcGePoint3d& about) {
    return AcGeMatrix3d::rotation(std::numbers::pi * (row.degrees / 180.0), AcGeVector3d::kZAxis,
                                  about);
}

/// Box of the picture about the point that a piece is placed by, as it is turned.
zp::secao::Bounds boxOf(const ReadyRow& ready) {
    zp::secao::Bounds box;
    const AcGeMatrix3d turn = turned(*ready.row, AcGePoint3d::kOrigin);
    for (AcGePoint3d corner : zp::edit::facesOf(*ready.model).f) {
        corner.transformBy(turn);
        box.include(corner.x, corner.y);
    }
    return box;
}

/// Places for the rows that say none: a grid of equal cells, as wide as high, below all that
/// stands.
class Grid {
public:
    explicit Grid(const std::vector<ReadyRow>& rows) : m_gap(kGap * GetScale()) {
        double left = 0.0;
        std::optional<double> lowest;
        const auto stands = [&](double x, double y) {
            left = lowest ? std::min(left, x) : x;
            lowest = lowest ? std::min(*lowest, y) : y;
        };
        std::size_t count = 0;
        for (const ReadyRow& ready : rows) {
            const zp::secao::Bounds box = boxOf(ready);
            if (ready.row->x) {
                stands(*ready.row->x + box.x0, *ready.row->y + box.y0);
                continue;
            }
            ++count;
            m_width = std::max(m_width, box.largura());
            m_height = std::max(m_height, box.altura());
        }
        if (count == 0) return;
        resbuf corner{};
        constexpr double kNothing = 1e19;  // of an empty drawing
        if (acedGetVar(L"EXTMIN", &corner) == RTNORM &&
            std::abs(corner.resval.rpoint[0]) < kNothing)
            stands(corner.resval.rpoint[0], corner.resval.rpoint[1]);
        m_width += m_gap;
        m_height += m_gap;
        m_columns = std::max<std::size_t>(
            1, static_cast<std::size_t>(
                   std::lround(std::sqrt(static_cast<double>(count) * m_height / m_width))));
        m_corner = {left, lowest ? *lowest - m_height : 0.0, 0.0};
    }

    AcGePoint3d placeOf(const ReadyRow& ready) {
        if (ready.row->x) return {*ready.row->x, *ready.row->y, 0.0};
        const zp::secao::Bounds box = boxOf(ready);
        const auto column = static_cast<double>(m_next % m_columns);
        const auto row = static_cast<double>(m_next / m_columns);
        ++m_next;
        return {m_corner.x + column * m_width - box.x0, m_corner.y - row * m_height - box.y0, 0.0};
    }

private:
    /// Room for dimensions and marks, times the drawing scale.
    static constexpr double kGap = 60.0;
    double m_gap;
    double m_width = 0.0;
    double m_height = 0.0;
    std::size_t m_columns = 1;
    std::size_t m_next = 0;
    AcGePoint3d m_corner;
};

void turnAll(const TableRow& row, const AcGePoint3d& about, const DrawnPeca& drawn) {
    if (row.degrees == 0.0) return;
    const AcGeMatrix3d turn = turned(row, about);
    std::vector<AcDbObjectId> ids{drawn.peca};
    const Companions& with = drawn.companions;
    ids.insert(ids.end(), with.others.begin(), with.others.end());
    ids.insert(ids.end(), with.cotas.begin(), with.cotas.end());
    ids.insert(ids.end(), with.marcas.begin(), with.marcas.end());
    for (const AcDbObjectId& id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.object() != nullptr) (void)entity->transformBy(turn);  // open for write
    }
}

/// Marks that are asked for are given first: the next free one is none of them.
std::size_t drawRows(std::vector<ReadyRow>& rows) {
    Grid grid(rows);
    std::vector<std::pair<ReadyRow*, AcGePoint3d>> places;
    for (ReadyRow& ready : rows) places.emplace_back(&ready, grid.placeOf(ready));
    std::ranges::stable_partition(
        places, [](const auto& place) { return !place.first->ready.marca.empty(); });
    std::size_t drawn = 0;
    for (const auto& [ready, point] : places) {
        const std::optional<DrawnPeca> peca = ready->ready.run->drawAcceptedAt(point);
        if (!peca) continue;
        turnAll(*ready->row, point, *peca);
        ++drawn;
    }
    return drawn;
}

std::wstring counted(std::size_t n, const wchar_t* one, const wchar_t* several) {
    return std::to_wstring(n) + (n == 1 ? one : several);
}

/// Each fault once, those beyond a screenful are counted.
void tellFaults(const std::vector<TableFault>& faults, bool partial) {
    constexpr std::size_t kMostTold = 20;
    const auto tell = [partial](const std::wstring& text) {
        if (partial)
            acutPrintf(L"\n%ls", text.c_str());
        else
            protocol::fail(text);
    };
    for (std::size_t i = 0; i < std::min(faults.size(), kMostTold); ++i) {
        const TableFault& fault = faults[i];
        tell(L"linha " + std::to_wstring(fault.line) +
             (fault.column.empty() ? L"" : L", coluna " + fault.column) + L": " + fault.text);
    }
    if (faults.size() > kMostTold)
        tell(L"... e mais " + std::to_wstring(faults.size() - kMostTold) + L" erros.");
}

void drawTable(AcDbDatabase& drawing) {
    const std::optional<TableFile> file = askFile();
    if (!file) return;
    const std::optional<std::string> bytes = files::readRegular(texts::pathOf(file->path));
    if (!bytes) {
        protocol::fail(file->path + L": o arquivo não pode ser lido; confira o nome e a pasta.");
        return;
    }
    PecaTable table = readTable(*bytes);
    Pecas pecas(table, drawing);
    const std::size_t faults = table.faults.size();
    tellFaults(table.faults, file->partial);
    if (faults > 0 && !file->partial) {
        protocol::fail(file->path + L": nada foi desenhado, por " +
                       counted(faults, L" erro", L" erros") +
                       L"; corrija a tabela, ou diga parcial.");
        return;
    }
    if (pecas.rows().empty() && faults == 0) {
        protocol::fail(file->path + L": a tabela não tem peças.");
        return;
    }
    const std::size_t drawn = drawRows(pecas.rows());
    acutPrintf(
        L"\n%ls%ls.\n", counted(drawn, L" peça desenhada", L" peças desenhadas").c_str(),
        faults > 0
            ? (L"; " + counted(faults, L" erro ficou de fora", L" erros ficaram de fora")).c_str()
            : L"");
}

class Table : public protocol::PieceTable {
public:
    const ACHAR* command() const override { return kPecasCommand; }
    void take(const ACHAR* file, bool partial) override { saidFile() = TableFile{file, partial}; }
};
Table g_table;  // kept by pointer in the registry

}  // namespace

void pecasCommand() {
    try {
        AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
        if (drawing != nullptr && requiredInstallationFolder()) drawTable(*drawing);
    } catch (const std::exception&) {
        reportNoMemory();
    }
}

void installPieceTable() { acrxSysRegistry()->atPut(protocol::kPieceTableKey, &g_table); }
void removePieceTable() { acrxSysRegistry()->remove(protocol::kPieceTableKey); }

}  // namespace perfis
