// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#include "prancheta/desktop/panels/material_rows.h"

#include <string_view>
#include <utility>

#include "prancheta/desktop/panels/text.h"
#include "protocol/report.h"
#include "rxdict.h"

namespace prancheta::desktop {

const std::array<MaterialColumnInfo, kMaterialColumns> kMaterialColumnInfos = {{
    {L"marca", "Marca", -1},
    {L"quantidade", "Quant.", 0},
    {L"descricao", "Descrição", -1},
    {L"dimensoes", "Dimensões", -1},
    {L"material", "Material", -1},
    {L"comprimento", "Compr. (mm)", 1},
    {L"peso_unitario", "Peso unit. (kg)", 2},
    {L"peso_total", "Peso total (kg)", 2},
    {L"area_pintura", "Pintura (m²)", 3},
    {L"observacao", "Observação", -1},
}};

namespace {

using std::wstring_view;

/// Takes the rows of the list named lista_material out of a report and leaves everything else.
class Reader : public protocol::PropertyVisitor {
public:
    std::vector<MaterialRow> rows;

    void number(const ACHAR* name, double value) override { put(name, value); }
    void integer(const ACHAR* name, long long value) override {
        if (inRow() && is(name, L"lista")) rows.back().list = static_cast<int>(value);
        if (inRow() && is(name, L"apagada")) rows.back().erased = value != 0;
        put(name, static_cast<double>(value));
    }
    void text(const ACHAR* name, const ACHAR* value) override {
        if (!inRow()) return;
        if (is(name, L"grupo")) rows.back().group = qt(value);
        if (const int column = columnOf(name); column >= 0)
            rows.back().texts[static_cast<std::size_t>(column)] = qt(value);
    }
    void point(const ACHAR*, const AcGePoint3d&) override {}
    void object(const ACHAR*, const AcDbObjectId& value) override {
        if (m_depth != kIds || value.isNull()) return;
        if (m_inIds) rows.back().ids.push_back(value);
        if (m_inPieces) m_pieces.push_back(value);
    }
    void beginList(const ACHAR* name) override {
        if (m_depth == kOutside) m_inList = is(name, L"lista_material");
        if (m_depth == kRow) {
            m_inIds = is(name, L"ids");
            m_inPieces = m_inList && is(name, L"pecas");
        }
        ++m_depth;
    }
    void endList() override { --m_depth; }
    void beginGroup(const ACHAR*) override {
        if (++m_depth == kRow && m_inList) rows.emplace_back();
    }
    /// A row whose pieces are known stands for them, not for what is tied to it in their place.
    void endGroup() override {
        if (inRow() && !m_pieces.empty()) rows.back().ids = std::exchange(m_pieces, {});
        --m_depth;
    }

private:
    enum Depth { kOutside, kList, kRow, kIds };

    static bool is(const ACHAR* name, wstring_view wanted) {
        return name != nullptr && wanted == name;
    }
    bool inRow() const { return m_inList && m_depth == kRow && !rows.empty(); }
    static int columnOf(const ACHAR* name) {
        for (int i = 0; i < kMaterialColumns; ++i)
            if (is(name, kMaterialColumnInfos[static_cast<std::size_t>(i)].name)) return i;
        return -1;
    }
    void put(const ACHAR* name, double value) {
        if (!inRow()) return;
        const int column = columnOf(name);
        if (column < 0) return;
        const auto i = static_cast<std::size_t>(column);
        rows.back().numbers[i] = value;
        rows.back().texts[i] = commaText(value, std::max(0, kMaterialColumnInfos[i].decimals));
    }

    int m_depth = kOutside;
    bool m_inList = false;
    bool m_inIds = false;
    bool m_inPieces = false;
    std::vector<AcDbObjectId> m_pieces;  ///< of the row that is being read
};

}  // namespace

std::vector<MaterialRow> materialRows(AcDbDatabase& database) {
    auto* const report =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    if (report == nullptr) return {};
    Reader reader;
    report->describe(database, reader);
    return std::move(reader.rows);
}

}  // namespace prancheta::desktop
