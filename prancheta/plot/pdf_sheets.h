// SPDX-License-Identifier: MIT
// Sheets of one or several drawings as the pages of one PDF.
#pragma once

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "prancheta/editor/plotter.h"
#include "prancheta/plot/marks.h"
#include "prancheta/plot/pdf_file.h"

namespace prancheta {

class PdfSheets {
public:
    /// `title` is the file's own.
    explicit PdfSheets(const std::string& title);

    Result<void> add(Editor& editor, const PlotSettings& settings);
    /// The whole file; nothing can be added any more.
    Result<std::string> finish();

private:
    QBuffer m_buffer;
    std::unique_ptr<QPdfWriter> m_writer;
    QPainter m_painter;
    LayerMarks m_layers;
    std::vector<PdfPage> m_pages;
};

/// UTF-8; "Desenho" before it has a file.
std::string titleOf(const Editor& editor);
/// What is told when the toolkit refuses to paint.
Error paintError();

inline constexpr double kMillimetresPerInch = 25.4;
/// Files of numbers: 0.002 mm, to which points are rounded.
inline constexpr int kVectorDots = 12700;
inline constexpr double kVectorPerMillimetre = kVectorDots / kMillimetresPerInch;

}  // namespace prancheta
