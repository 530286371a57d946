// SPDX-License-Identifier: MIT
// Pages of PDF files.
#include "prancheta/plot/pdf_sheets.h"

#include <QPageLayout>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"
#include "prancheta/plot/sheet.h"

namespace prancheta {
namespace {

constexpr double kPointsPerMillimetre = 72.0 / kMillimetresPerInch;

/// Where the sheet lies on a page of whole points, from whose top the writer counts; finishPdf()
/// makes the page exact.
QRectF placeOnPage(const QPdfWriter& writer, const SheetLayout& layout) {
    const double whole = writer.pageLayout().fullRectPoints().height();
    return {0.0, (whole - layout.height * kPointsPerMillimetre) / 72.0 * kVectorDots,
            layout.width * kVectorPerMillimetre, layout.height * kVectorPerMillimetre};
}

/// "chapas - Layout1"
std::string bookmarkOf(Editor& editor, const PlotSettings& settings) {
    const AcDbDatabase& database = editor.database();
    const AcDbObjectId space = settings.space.isNull() ? database.currentSpaceId() : settings.space;
    const bool model = space == database.core().modelSpaceId();
    return titleOf(editor) + " - " + (model ? "Modelo" : toUtf8(tabOf(database, space).name));
}

}  // namespace

std::string titleOf(const Editor& editor) {
    return editor.file().name().empty() ? "Desenho" : editor.file().name().stem().string();
}

Error paintError() {
    return {
        "não foi possível desenhar a folha; tente uma folha menor ou menos pontos por polegada"};
}

PdfSheets::PdfSheets(const std::string& title) {
    m_buffer.open(QIODevice::WriteOnly);
    m_writer = std::make_unique<QPdfWriter>(&m_buffer);
    m_writer->setTitle(QString::fromStdString(title));
    m_writer->setCreator(QStringLiteral("Prancheta"));
    m_writer->setResolution(kVectorDots);
}

Result<void> PdfSheets::add(Editor& editor, const PlotSettings& settings) {
    const SheetLayout layout = layoutSheet(editor, settings);
    const QSizeF size(layout.width, layout.height);
    m_pages.push_back({size * kPointsPerMillimetre, bookmarkOf(editor, settings)});
    const QPageSize page(size, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    m_writer->setPageLayout(QPageLayout(page, QPageLayout::Portrait, QMarginsF()));
    if (!(m_painter.isActive() ? m_writer->newPage() : m_painter.begin(m_writer.get())))
        return paintError();
    paintSheet(m_painter, placeOnPage(*m_writer, layout), editor, settings,
               settings.layers ? &m_layers : nullptr);
    return {};
}

Result<std::string> PdfSheets::finish() {
    if (m_pages.empty()) return Error{"não há folha a plotar"};
    if (!m_painter.end()) return paintError();
    m_writer.reset();
    return finishPdf(m_buffer.data().toStdString(), m_pages, m_layers.names());
}

}  // namespace prancheta
