// SPDX-License-Identifier: MIT
// The material lists of a drawing, as a module reports them.
#include "prancheta/desktop/panels/material_rows.h"

#include <algorithm>
#include <string_view>

#include "prancheta/desktop/panels/text.h"
#include "prancheta/editor/edit_group.h"
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
    void object(const ACHAR* name, const AcDbObjectId& value) override {
        if (inRow() && is(name, protocol::kRowKey)) rows.back().record = value;
        if (m_depth != kIds || value.isNull()) return;
        if (m_inIds) rows.back().ids.push_back(value);
        if (m_inPieces) rows.back().pieces.push_back(value);
    }
    void beginList(const ACHAR* name) override {
        if (m_depth == kOutside) m_inList = is(name, protocol::kListKey);
        if (m_depth == kRow) {
            m_inIds = m_inList && is(name, L"ids");
            m_inPieces = m_inList && (is(name, L"pecas") || is(name, L"vistas"));
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
    void endGroup() override { --m_depth; }

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
};

const protocol::DrawingReport* drawingReport() {
    return static_cast<const protocol::DrawingReport*>(
        acrxSysRegistry()->at(protocol::kDrawingReportKey));
}

MaterialSchema::Column columnFor(const protocol::ListColumn& told) {
    const QString unit = qt(told.unit);
    const QString title =
        unit.isEmpty() ? qt(told.title) : QStringLiteral("%1 (%2)").arg(qt(told.title), unit);
    // A total is known by its unit.
    const QString heading = told.summed && !unit.isEmpty() ? unit : qt(told.title);
    return {told.key,   title,       heading,       unit, told.decimals,
            told.width, told.summed, told.editable, false};
}

}  // namespace

MaterialSchema materialSchema() {
    const protocol::DrawingReport* const report = drawingReport();
    if (report == nullptr) return {};
    const protocol::ListSchema& told = report->schema();
    MaterialSchema schema{qt(told.command), qt(told.draw), {}, {}};
    for (const protocol::ListColumn& c : told.columns) schema.columns.push_back(columnFor(c));
    auto next = schema.columns.begin();
    for (const wstring_view key : told.shown) {
        const auto found = std::find_if(next, schema.columns.end(),
                                        [&](const auto& column) { return column.key == key; });
        if (found == schema.columns.end()) continue;
        found->shown = true;
        std::rotate(next++, found, found + 1);
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

Result<void> changeMaterial(Editor& editor, const MaterialRow& row,
                            const MaterialSchema::Column& column, const QString& text) {
    const protocol::DrawingReport* const report = drawingReport();
    if (report == nullptr) return Error{"O módulo da lista não está mais carregado."};
    if (!EditGroup::possible(editor))
        return Error{"Há um comando em execução; termine-o (Esc) antes de alterar a lista."};
    EditGroup group(editor, report->schema().command);
    ACHAR* message = nullptr;
    const bool taken =
        report->set(row.record, column.key.c_str(), text.toStdWString().c_str(), message);
    const QString why = takenText(message);
    if (taken) return {};
    group.fail();
    return Error{why.toStdString()};
}

}  // namespace prancheta::desktop
