// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#include "prancheta/desktop/panels/material_rows.h"

#include <string_view>
#include <utility>

#include "prancheta/desktop/panels/text.h"
#include "protocol/report.h"
#include "rxdict.h"

namespace prancheta::desktop {

namespace {

using std::wstring_view;

/// Takes the rows of the list named lista_material out of a report and leaves everything else.
class Reader : public protocol::PropertyVisitor {
public:
    explicit Reader(const std::vector<MaterialSchema::Column>& columns) : m_columns(columns) {}
    std::vector<MaterialRow> rows;

    void number(const ACHAR* name, double value) override { put(name, value); }
    void integer(const ACHAR* name, long long value) override {
        if (inRow() && is(name, L"lista")) rows.back().list = static_cast<int>(value);
        if (inRow() && is(name, L"apagada")) rows.back().erased = value != 0;
        put(name, static_cast<double>(value));
    }
    void text(const ACHAR* name, const ACHAR* value) override {
        if (!inRow() || value == nullptr) return;
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
        if (m_depth == kOutside) m_inList = is(name, protocol::kListKey);
        if (m_depth == kRow) {
            m_inIds = is(name, L"ids");
            m_inPieces = m_inList && is(name, L"pecas");
        }
        ++m_depth;
    }
    void endList() override { --m_depth; }
    void beginGroup(const ACHAR*) override {
        if (++m_depth != kRow || !m_inList) return;
        MaterialRow& row = rows.emplace_back();
        row.texts.resize(m_columns.size());
        row.numbers.resize(m_columns.size());
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
    int columnOf(const ACHAR* name) const {
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            if (name != nullptr && m_columns[i].key == name) return static_cast<int>(i);
        return -1;
    }
    void put(const ACHAR* name, double value) {
        if (!inRow()) return;
        const int column = columnOf(name);
        if (column < 0) return;
        const auto i = static_cast<std::size_t>(column);
        rows.back().numbers[i] = value;
        rows.back().texts[i] = commaText(value, std::max(0, m_columns[i].decimals));
    }

    const std::vector<MaterialSchema::Column>& m_columns;
    int m_depth = kOutside;
    bool m_inList = false;
    bool m_inIds = false;
    bool m_inPieces = false;
    std::vector<AcDbObjectId> m_pieces;  ///< of the row that is being read
};

const protocol::DrawingReport* drawingReport() {
    return static_cast<const protocol::DrawingReport*>(
        acrxSysRegistry()->at(protocol::kDrawingReportKey));
}

}  // namespace

MaterialSchema materialSchema() {
    const protocol::DrawingReport* const report = drawingReport();
    if (report == nullptr) return {};
    const protocol::ListSchema& told = report->schema();
    MaterialSchema schema{qt(told.command), qt(told.draw), {}, {}};
    for (const protocol::ListColumn& c : told.columns) {
        if (!c.usual) continue;
        const QString unit = qt(c.unit);
        const QString title =
            unit.isEmpty() ? qt(c.title) : QStringLiteral("%1 (%2)").arg(qt(c.title), unit);
        schema.columns.push_back({c.key, title, unit, c.decimals, c.width, c.summed});
    }
    for (const protocol::ListFormat& f : told.formats)
        schema.formats.push_back({qt(f.word), qt(f.name), qt(f.extension)});
    return schema;
}

std::vector<MaterialRow> materialRows(AcDbDatabase& database, const MaterialSchema& schema) {
    const protocol::DrawingReport* const report = drawingReport();
    if (report == nullptr) return {};
    Reader reader(schema.columns);
    report->describePrinted(database, reader);
    return std::move(reader.rows);
}

}  // namespace prancheta::desktop
