// SPDX-License-Identifier: MIT
// The plotter: sheets as PDF, SVG and PNG files.
#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLibraryInfo>
#include <QSvgGenerator>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string>

#include "prancheta/base/file.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/plotter.h"
#include "prancheta/plot/pdf_sheets.h"
#include "prancheta/plot/pen_table.h"
#include "prancheta/plot/sheet.h"
#include "prancheta/plot/svg_file.h"

namespace prancheta {
namespace {

Result<std::string> makeSvg(Editor& editor, const PlotSettings& settings) {
    const SheetLayout layout = layoutSheet(editor, settings);
    const QRectF sheet(0.0, 0.0, layout.width * kVectorPerMillimetre,
                       layout.height * kVectorPerMillimetre);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    LayerMarks layers;
    {
        QSvgGenerator writer;
        writer.setOutputDevice(&buffer);
        writer.setDescription(QStringLiteral("Prancheta"));
        writer.setResolution(kVectorDots);
        writer.setSize(sheet.size().toSize());
        writer.setViewBox(sheet);
        QPainter painter;
        if (!painter.begin(&writer)) return paintError();
        paintSheet(painter, sheet, editor, settings, settings.layers ? &layers : nullptr);
        if (!painter.end()) return paintError();
    }
    std::string bytes = buffer.data().toStdString();
    finishSvg(
        bytes,
        QTransform::fromScale(kVectorPerMillimetre, kVectorPerMillimetre).mapRect(layout.clip),
        titleOf(editor), layers.names());
    return bytes;
}

/// Packing takes nearly all of the time of a large sheet: greys are a third of the bytes, and
/// colours are packed in the quickest way, at the cost of a larger file.
bool packPng(QImage& image, QBuffer& out) {
    constexpr int kUsual = -1;
    constexpr int kQuick = 80;  // zlib's first level, as the toolkit counts
    const bool grey = image.allGray();
    if (grey) image = image.convertToFormat(QImage::Format_Grayscale8);
    return image.save(&out, "PNG", grey ? kUsual : kQuick);
}

Result<std::string> makePng(Editor& editor, const PlotSettings& settings) {
    const SheetLayout layout = layoutSheet(editor, settings);
    const double perMillimetre = settings.dotsPerInch / kMillimetresPerInch;
    const QSizeF sheet(layout.width * perMillimetre, layout.height * perMillimetre);
    QImage image(sheet.toSize(),
                 settings.monochrome ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
    if (image.isNull()) return paintError();
    image.setDotsPerMeterX(static_cast<int>(std::lround(perMillimetre * 1000.0)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(Qt::white);
    QPainter painter;
    if (!painter.begin(&image)) return paintError();
    painter.setRenderHint(QPainter::Antialiasing);
    paintSheet(painter, QRectF(QPointF(), sheet), editor, settings);
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!packPng(image, buffer)) return paintError();
    return buffer.data().toStdString();
}

Result<void> check(const PlotSettings& settings) {
    const double least = std::min(settings.paper.width, settings.paper.height);
    if (!(least > 0.0) || !std::isfinite(settings.paper.width + settings.paper.height))
        return Error{"a folha não tem tamanho; escolha uma folha da lista"};
    if (!(settings.margin >= 0.0 && 2.0 * settings.margin < least))
        return Error{"a margem não deixa área para plotar; diminua a margem"};
    if (settings.scale && !(*settings.scale > 0.0 && std::isfinite(*settings.scale)))
        return Error{"a escala de plotagem deve ser maior que zero"};
    if (settings.dotsPerInch < 1)
        return Error{"o número de pontos por polegada deve ser maior que zero"};
    return {};
}

/// Fonts need an application object; a program without windows gets one that never shows any.
class Toolkit {
public:
    Result<void> start() {
        if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) return {};
        if (QCoreApplication::instance() != nullptr)
            return Error{"este programa não permite plotar; abra o desenho na Prancheta"};
        const QString platforms =
            QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/");
        if (!QFileInfo::exists(platforms + QStringLiteral("libqoffscreen.so")) &&
            !qEnvironmentVariableIsSet("QT_PLUGIN_PATH"))
            return Error{"falta o componente gráfico libqoffscreen.so em " +
                         platforms.toStdString() + "; instale as bibliotecas do Qt 6"};
        // The application takes over the user's locale; numbers stay as the host has set them.
        const std::string locale = std::setlocale(LC_ALL, nullptr);
        // What it has to say about the session's folders is nothing to a user of files.
        const QtMessageHandler before = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext&, const QString& text) {
                if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
            });
        new QGuiApplication(m_count, m_arguments);  // until the process ends, as fonts need it
        qInstallMessageHandler(before);
        std::setlocale(LC_ALL, locale.c_str());
        return {};
    }

private:
    char m_name[10] = "prancheta";
    char m_option[10] = "-platform";
    char m_platform[10] = "offscreen";
    char* m_arguments[4] = {m_name, m_option, m_platform, nullptr};
    int m_count = 3;
};

class FileJob : public PlotJob {
public:
    FileJob(PlotFormat format, const std::filesystem::path& file)
        : m_format(format), m_target(file) {}

    Result<void> open() { return m_target.open(); }

    Result<void> add(Editor& editor, const PlotSettings& settings) override {
        if (Result<void> checked = check(settings); !checked) return checked;
        if (m_format == PlotFormat::Pdf) {
            if (!m_pdf) m_pdf.emplace(titleOf(editor));
            return m_pdf->add(editor, settings);
        }
        if (!m_picture.empty()) return Error{"só um PDF tem várias folhas"};
        Result<std::string> made =
            m_format == PlotFormat::Svg ? makeSvg(editor, settings) : makePng(editor, settings);
        if (!made) return made.error();
        m_picture = std::move(*made);
        return {};
    }

    Result<void> finish() override {
        if (m_pdf) {
            Result<std::string> made = m_pdf->finish();
            if (!made) return made.error();
            m_picture = std::move(*made);
        }
        if (m_picture.empty()) return Error{"não há folha a plotar"};
        m_target.write(m_picture);
        return m_target.commit();
    }

private:
    PlotFormat m_format;
    AtomicFile m_target;
    std::optional<PdfSheets> m_pdf;
    std::string m_picture;
};

class FilePlotter : public Plotter {
public:
    Result<std::unique_ptr<PlotJob>> begin(PlotFormat format,
                                           const std::filesystem::path& file) override {
        if (!usualPens()) return usualPens().error();
        auto job = std::make_unique<FileJob>(format, file);
        // A file that cannot be written is told before the work is done.
        if (Result<void> opened = job->open(); !opened) return opened.error();
        if (Result<void> started = m_toolkit.start(); !started) return started.error();
        return std::unique_ptr<PlotJob>(std::move(job));
    }

private:
    Toolkit m_toolkit;
};

}  // namespace
}  // namespace prancheta

/// The door of the library. The plotter lives as long as the process.
extern "C" prancheta::Plotter* pranchetaPlotter() {
    static prancheta::FilePlotter plotter;
    return &plotter;
}
