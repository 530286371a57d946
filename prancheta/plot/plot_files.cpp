// SPDX-License-Identifier: MIT
// The plotter: sheets as PDF, SVG and PNG files.
#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLibraryInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "prancheta/base/file.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/plotter.h"
#include "prancheta/plot/finish.h"
#include "prancheta/plot/pen_table.h"
#include "prancheta/plot/sheet.h"

namespace prancheta {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerMillimetre = 72.0 / kMillimetresPerInch;
/// Files of numbers: 0.002 mm, to which points are rounded.
constexpr int kVectorDots = 12700;
constexpr double kVectorPerMillimetre = kVectorDots / kMillimetresPerInch;

std::string titleOf(const Editor& editor) {
    return editor.file().name().empty() ? "Desenho" : editor.file().name().stem().string();
}

Error paintError() {
    return {
        "não foi possível desenhar a folha; tente uma folha menor ou menos pontos por polegada"};
}

/// Where the sheet lies on a page of whole points, from whose top the writer counts; finishPdf()
/// makes the page exact.
QRectF placeOnPage(const QPdfWriter& writer, const SheetLayout& layout) {
    const double whole = writer.pageLayout().fullRectPoints().height();
    return {0.0, (whole - layout.height * kPointsPerMillimetre) / 72.0 * kVectorDots,
            layout.width * kVectorPerMillimetre, layout.height * kVectorPerMillimetre};
}

Result<std::string> makePdf(Editor& editor, std::span<const PlotSettings> pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    std::vector<QSizeF> sizes;
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(QString::fromStdString(titleOf(editor)));
        writer.setCreator(QStringLiteral("Prancheta"));
        writer.setResolution(kVectorDots);
        QPainter painter;
        for (const PlotSettings& settings : pages) {
            const SheetLayout layout = layoutSheet(editor, settings);
            const QSizeF size(layout.width, layout.height);
            sizes.push_back(size * kPointsPerMillimetre);
            const QPageSize page(size, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
            writer.setPageLayout(QPageLayout(page, QPageLayout::Portrait, QMarginsF()));
            if (!(painter.isActive() ? writer.newPage() : painter.begin(&writer)))
                return paintError();
            paintSheet(painter, placeOnPage(writer, layout), editor, settings);
        }
        if (!painter.end()) return paintError();
    }
    std::string bytes = buffer.data().toStdString();
    finishPdf(bytes, sizes);
    return bytes;
}

Result<std::string> makeSvg(Editor& editor, std::span<const PlotSettings> pages) {
    const PlotSettings& settings = pages.front();
    const SheetLayout layout = layoutSheet(editor, settings);
    const QRectF sheet(0.0, 0.0, layout.width * kVectorPerMillimetre,
                       layout.height * kVectorPerMillimetre);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator writer;
        writer.setOutputDevice(&buffer);
        writer.setDescription(QStringLiteral("Prancheta"));
        writer.setResolution(kVectorDots);
        writer.setSize(sheet.size().toSize());
        writer.setViewBox(sheet);
        QPainter painter;
        if (!painter.begin(&writer)) return paintError();
        paintSheet(painter, sheet, editor, settings);
        if (!painter.end()) return paintError();
    }
    std::string bytes = buffer.data().toStdString();
    finishSvg(
        bytes,
        QTransform::fromScale(kVectorPerMillimetre, kVectorPerMillimetre).mapRect(layout.clip),
        titleOf(editor));
    return bytes;
}

Result<std::string> makePng(Editor& editor, std::span<const PlotSettings> pages) {
    const PlotSettings& settings = pages.front();
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
    if (!image.save(&buffer, "PNG")) return paintError();
    return buffer.data().toStdString();
}

/// Row of a format in PlotFormat's order.
constexpr Result<std::string> (*kMakers[])(Editor&, std::span<const PlotSettings>) = {
    makePdf, makeSvg, makePng};

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

class FilePlotter : public Plotter {
public:
    using Plotter::plot;
    Result<void> plot(Editor& editor, std::span<const PlotSettings> pages, PlotFormat format,
                      const std::filesystem::path& file) override {
        for (const PlotSettings& page : pages)
            if (Result<void> checked = check(page); !checked) return checked;
        if (!usualPens()) return usualPens().error();
        if (pages.empty()) return Error{"não há folha a plotar"};
        // A file that cannot be written is told before the work is done.
        AtomicFile target(file);
        if (Result<void> opened = target.open(); !opened) return opened;
        if (Result<void> started = m_toolkit.start(); !started) return started;
        const Result<std::string> bytes = kMakers[static_cast<int>(format)](editor, pages);
        if (!bytes) return bytes.error();
        target.write(*bytes);
        return target.commit();
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
