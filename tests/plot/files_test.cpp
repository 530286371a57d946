// SPDX-License-Identifier: MIT
// PDF, SVG and PNG files: sizes, places, texts, what is left out, what a failure leaves behind.
#include <QXmlStreamReader>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <map>
#include <regex>

#include "tests/plot/fixture.h"

namespace plotting {
namespace {

using Orientation = PlotSettings::Orientation;

class Files : public Plotted {
protected:
    std::string pageOf(const fs::path& pdf) const {
        const std::string text = bytes(pdf);
        const std::size_t at = text.find("/MediaBox [ ");
        return at == text.npos ? "" : text.substr(at + 12, text.find(" ]", at) - at - 12);
    }
    /// The sheet of trueToSize() as readers show it with one layer switched off.
    QImage without(const fs::path& pdf, const std::string& layer) {
        QPDF file;
        file.processFile(pdf.c_str());
        QPDFObjectHandle content = file.getRoot().getKey("/OCProperties");
        for (QPDFObjectHandle& group : content.getKey("/OCGs").aitems())
            if (group.getKey("/Name").getUTF8Value() == layer)
                content.getKey("/D").getKey("/OFF").appendItem(group);
        QPDFWriter(file, (folder / "sem.pdf").c_str()).write();
        const fs::path shown = folder / "sem";
        (void)output("pdftoppm", "-r 254 -gray -singlefile '" + (folder / "sem.pdf").string() +
                                     "' '" + shown.string() + "'");
        return QImage(QString::fromStdString(shown.string() + ".pgm"));
    }
    void lineOn(const wchar_t* layer, const wchar_t* from, const wchar_t* to) {
        type({L"_-layer", L"_m", layer, L"", L"_line", from, to, L""});
    }
};

TEST_F(Files, PageIsThePaper) {
    type({L"_line", L"0,0", L"100,20", L""});
    PlotSettings settings;
    // 210 / 25.4 * 72 = 595.2756, 297 / 25.4 * 72 = 841.8898; a drawing that is wider than high.
    EXPECT_EQ(pageOf(plot(settings, "a.pdf")), "0 0 841.8898 595.2756");
    settings.orientation = Orientation::Portrait;
    EXPECT_EQ(pageOf(plot(settings, "b.pdf")), "0 0 595.2756 841.8898");
    settings.orientation = Orientation::Automatic;
    settings.area = Box2d{0, 0, 10, 20};
    settings.paper = *prancheta::findPaper(L" a2 X 3 ");
    // 594 x 1261 mm.
    EXPECT_EQ(pageOf(plot(settings, "c.pdf")), "0 0 1683.7795 3574.4882");
}

/// What another program reads from the PDF: ends of lines, and curves all along them.
TEST_F(Files, PdfIsTrueToAHundredthOfAMillimetre) {
    type({L"_line", L"15,27", L"15,250", L"", L"_circle", L"100,-4900", L"5000"});
    type({L"_ellipse", L"20,150", L"180,150", L"30"});
    const auto svg = output("pdftocairo", "-svg -noshrink -nocenter '" +
                                              plot(trueToSize(), "folha.pdf").string() + "' -");
    if (!svg) GTEST_SKIP() << "pdftocairo não está instalado";
    const auto farFrom = [](int shape, const QPointF& p) {
        if (shape == 0)
            return std::min(std::hypot(p.x() - 15, p.y() - 27),
                            std::hypot(p.x() - 15, p.y() - 250));
        if (shape == 1) return std::abs(std::hypot(p.x() - 100, p.y() + 4900) - 5000);
        // Of x^2/80^2 + y^2/30^2 = 1, to first order.
        const double u = (p.x() - 100) / 80, v = (p.y() - 150) / 30;
        return std::abs(u * u + v * v - 1) / (2 * std::hypot(u / 80, v / 30));
    };
    QXmlStreamReader xml(QByteArray::fromStdString(*svg));
    int sampled[3] = {};
    double worst[3] = {};
    int shape = -1;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"path") continue;
        double a, b, c, d, e, f;
        if (std::sscanf(xml.attributes().value("transform").toLatin1(),
                        "matrix(%lf,%lf,%lf,%lf,%lf,%lf)", &a, &b, &c, &d, &e, &f) != 6)
            continue;
        const QTransform toWorld = QTransform(a, b, c, d, e, f) *
                                   QTransform::fromScale(25.4 / 72, -25.4 / 72) *
                                   QTransform::fromTranslate(-10, 287);
        std::istringstream path(xml.attributes().value("d").toString().toStdString());
        QPointF p[4];
        const auto point = [&](QPointF& to) {
            double x, y;
            path >> x >> y;
            to = toWorld.map(QPointF(x, y));
        };
        for (std::string word; path >> word;) {
            if (word == "Z") continue;
            if (word == "M" && shape < 2) ++shape;
            const int last = word == "C" ? 3 : 1;
            for (int i = 1; i <= last; ++i) point(p[i]);
            const int steps = word == "C" ? 8 : 1;
            for (int step = 1; step <= steps; ++step) {
                const double t = double(step) / steps, s = 1 - t;
                const QPointF at = last == 1 ? p[1]
                                             : p[0] * (s * s * s) + p[1] * (3 * s * s * t) +
                                                   p[2] * (3 * s * t * t) + p[3] * (t * t * t);
                worst[shape] = std::max(worst[shape], farFrom(shape, at));
                ++sampled[shape];
            }
            p[0] = p[last];
        }
    }
    for (const int i : {0, 1, 2}) {
        EXPECT_GE(sampled[i], i == 0 ? 2 : 17) << i;
        EXPECT_LT(worst[i], 0.01) << i;
    }
}

TEST_F(Files, LayersAreSwitchedInPdfAndAreGroupsInSvg) {
    lineOn(L"Corte", L"20,50", L"60,50");
    lineOn(L"Eixos & furos", L"20,90", L"60,90");
    lineOn(L"Corte", L"20,130", L"60,130");
    type({L"_text", L"100,50", L"10", L"0", L"Chapa", L"", L"_-layer", L"_s", L"0", L""});
    const fs::path pdf = plot(trueToSize(), "folha.pdf");
    struct Case {
        const char* off;
        bool cut, axes;
    };
    for (const Case& each :
         {Case{"", true, true}, Case{"Corte", false, true}, Case{"Eixos & furos", true, false}}) {
        const QImage image = without(pdf, each.off);
        if (image.isNull()) GTEST_SKIP() << "pdftoppm não está instalado";
        EXPECT_EQ(inkAt(image, 40, 50), each.cut) << each.off;
        EXPECT_EQ(inkAt(image, 40, 130), each.cut) << each.off;
        EXPECT_EQ(!inkWithin(image, {100, 50, 130, 60}).empty(), each.cut) << each.off;
        EXPECT_EQ(inkAt(image, 40, 90), each.axes) << each.off;
    }
    PlotSettings plain = trueToSize();
    plain.layers = false;
    EXPECT_EQ(bytes(plot(plain, "simples.pdf")).find("/OCG"), std::string::npos);
    const auto groupsOf = [&] {
        QXmlStreamReader xml(QByteArray::fromStdString(bytes(plot(trueToSize(), "folha.svg"))));
        std::string out;
        while (!xml.atEnd())
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"g" &&
                xml.attributes().hasAttribute("inkscape:label"))
                out += xml.attributes().value("inkscape:label").toString().toStdString() + ";";
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        return out;
    };
    EXPECT_EQ(groupsOf(), "Corte;Eixos & furos;");
    // What is filled keeps its place between the others.
    lineOn(L"Corte", L"70,50", L"70,90");
    lineOn(L"Corte", L"70,90", L"90,90");
    type({L"_-layer", L"_m", L"Hachura", L"", L"_rectang", L"150,50", L"170,70"});
    type({L"_hatch", L"_p", L"_p", L"SOLID", L"160,60", L""});
    lineOn(L"Corte", L"150,50", L"170,70");
    EXPECT_EQ(groupsOf(), "Corte;Eixos & furos;Hachura;Corte;");
}

/// Two drawings, and a layout of one of them, as pages of one file.
TEST_F(Files, SheetsOfSeveralDrawingsAreOneFileWithBookmarks) {
    const auto job = (*prancheta::plotter())->begin(PlotFormat::Pdf, folder / "jogo.pdf");
    ASSERT_TRUE(job.ok());
    for (const char* name : {"um.dxf", "dois.dxf"}) {
        ASSERT_TRUE(editor->file().makeNew().ok());
        lineOn(L"Corte", L"20,50", L"60,50");
        ASSERT_TRUE(editor->file().save(folder / name).ok());
        ASSERT_TRUE((*job)->add(*editor, trueToSize()).ok());
    }
    ASSERT_TRUE((*job)
                    ->add(*editor,
                          prancheta::sheetPlot(prancheta::tabNamed(editor->database(), L"Layout1")))
                    .ok());
    ASSERT_TRUE((*job)->finish().ok());
    QPDF file;
    file.processFile((folder / "jogo.pdf").c_str());
    EXPECT_EQ(QPDFPageDocumentHelper(file).getAllPages().size(), 3U);
    std::string marks;
    for (auto& mark : QPDFOutlineDocumentHelper(file).getTopLevelOutlines())
        marks += mark.getTitle() + ";";
    EXPECT_EQ(marks, "um - Modelo;dois - Modelo;dois - Layout1;");
    EXPECT_EQ(file.getRoot().getKey("/OCProperties").getKey("/OCGs").getArrayNItems(), 1);
}

TEST_F(Files, TheFooterStandsInTheMargin) {
    lineOn(L"0", L"0,0", L"10,10");
    ASSERT_TRUE(editor->file().save(folder / "chapas.dxf").ok());
    PlotSettings settings = trueToSize();
    settings.footer = true;
    settings.scale = 0.1;
    ::setenv("SOURCE_DATE_EPOCH", "86400", 1);
    const fs::path pdf = plot(settings, "folha.pdf");
    const QImage image = picture(settings);
    ::unsetenv("SOURCE_DATE_EPOCH");
    // Capitals of 2 mm in the middle of a margin of 10.
    const Box2d ink = inkWithin(image, {-9, -9, 150, -1});
    EXPECT_NEAR(ink.left, 0.0, 0.5);
    EXPECT_NEAR(ink.top, -4.0, 0.6);
    const auto text = output("pdftotext", "'" + pdf.string() + "' -");
    if (!text) GTEST_SKIP() << "pdftotext não está instalado";
    for (const char* part : {"chapas.dxf", "02/01/1970", "1:10"})
        EXPECT_NE(text->find(part), text->npos) << *text;
}

TEST_F(Files, TextsAreFound) {
    type({L"_text", L"0,0", L"5", L"0", L"Ação nº 7: %%c12,5 %%p 0,1 a 45%%d, 150 cm²", L""});
    type({L"_text", L"0,20", L"5", L"90", L"Travejamento", L""});
    type({L"_dimaligned", L"0,-20", L"123,-20", L"0,-40"});
    const fs::path pdf = plot({}, "folha.pdf");
    const auto text = output("pdftotext", "'" + pdf.string() + "' -");
    if (!text) GTEST_SKIP() << "pdftotext não está instalado";
    for (const char* part : {"Ação nº 7: Ø12,5 ± 0,1 a 45°, 150 cm²", "Travejamento", "123"})
        EXPECT_NE(text->find(part), text->npos) << part << " in " << *text;
}

TEST_F(Files, SvgIsInMillimetresAndClipped) {
    type({L"_line", L"-500,27", L"100,27", L"", L"_text", L"20,20", L"5", L"0", L"a < b & %%c8",
          L""});
    const std::string svg = bytes(plot(trueToSize(), "folha.svg"));
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    QString width;
    QString height;
    QString texts;
    bool clips = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"svg") {
            width = xml.attributes().value(QLatin1String("width")).toString();
            height = xml.attributes().value(QLatin1String("height")).toString();
        }
        clips |= xml.isStartElement() &&
                 xml.attributes().value(QLatin1String("clip-path")) == u"url(#folha)";
        if (xml.isStartElement() && xml.name() == u"text") texts += xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(width.toStdString(), "210mm");
    EXPECT_EQ(height.toStdString(), "297mm");
    EXPECT_TRUE(clips);
    EXPECT_NE(texts.indexOf(QStringLiteral("a < b & Ø8")), -1) << texts.toStdString();
}

TEST_F(Files, WhatIsOutsideTheWindowIsNotPlotted) {
    type({L"_line", L"-500,100", L"500,100", L""});
    PlotSettings settings = trueToSize();
    settings.area = Box2d{50, 50, 140, 227};
    const QImage image = picture(settings);
    EXPECT_TRUE(inkAt(image, 51, 100));
    EXPECT_TRUE(inkAt(image, 139, 100));
    EXPECT_FALSE(inkAt(image, 47, 100));
    EXPECT_FALSE(inkAt(image, 143, 100));
}

TEST_F(Files, FitFillsOneDirectionAndCentresTheOther) {
    type({L"_line", L"1000,1000", L"1380,1000", L"", L"_line", L"1000,1000", L"1000,1010", L""});
    PlotSettings settings;
    settings.orientation = Orientation::Portrait;
    settings.dotsPerInch = kDots;
    // 380 on 190 mm is 1:2; 5 mm high, its middle at half of 277.
    const double weight = 0.125;
    expectBox(inkWithin(picture(settings), {-5, -5, 195, 282}),
              {-weight, 138.5 - 2.5 - weight, 190 + weight, 138.5 + 2.5 + weight}, 0.11);
}

/// 100 mm of the model in two viewports of an A2 sheet, 1:10 and 1:5, and a line far beyond them.
TEST_F(Files, SheetsArePlottedAtTheirSizeAndViewportsAtTheirScale) {
    type({L"_line", L"0,0", L"100,0", L"", L"_layout", L"_s", L"Layout1", L"_layout", L"_paper",
          L"A2", L""});
    type({L"_mview", L"20,20", L"120,120", L"_mview", L"_s", L"1:10", L"_l", L""});
    type({L"_mview", L"150,20", L"250,120", L"_mview", L"_s", L"1:5", L"_l", L""});
    const std::wstring file = (folder / "tela.pdf").wstring();
    type({L"_plot", file.c_str(), L"", L""});  // at 1:1 on its own paper, in colours
    EXPECT_EQ(pageOf(folder / "tela.pdf"), "0 0 1683.7795 1190.5512");
    type({L"_layout", L"_s", L"Model", L"_line", L"-9000,-300", L"9000,-300", L""});
    PlotSettings sheet = prancheta::sheetPlot(prancheta::drawnSheets(editor->database()).at(0));
    // 594 x 420 mm; 100 units are 10.00 mm about the middle of the one, 20.00 mm of the other.
    EXPECT_EQ(pageOf(plot(sheet, "folha.pdf")), "0 0 1683.7795 1190.5512");
    sheet.dotsPerInch = kDots;
    const QImage image = picture(sheet);
    const double x = -10.0;  // of the sheet's own coordinates in those of the helpers
    const double y = 287.0 - 420.0;
    const double half = 0.125;
    expectBox(inkWithin(image, {55 + x, 65 + y, 85 + x, 75 + y}),
              {65 - half + x, 70 - half + y, 75 + half + x, 70 + half + y}, 0.11);
    expectBox(inkWithin(image, {180 + x, 65 + y, 220 + x, 75 + y}),
              {190 - half + x, 70 - half + y, 210 + half + x, 70 + half + y}, 0.11);
    // 300 below, 30 mm and 60 mm: the second one's frame ends before.
    expectBox(inkWithin(image, {1 + x, 35 + y, 594 + x, 45 + y}),
              {20 - half + x, 35 + y, 250 + half + x, 45 + y}, 0.11);
    EXPECT_FALSE(inkAt(image, 135 + x, 40 + y));
    const std::string svg = bytes(plot(sheet, "folha.svg"));
    EXPECT_NE(svg.find("clip-path=\"url(#janela2)\""), svg.npos);
    EXPECT_EQ(svg.find("-123456"), svg.npos);
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    while (!xml.atEnd()) xml.readNext();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

/// In 1:20 and 1:5 viewports of a drawing at 1:20: letters of 2.5 mm, whoever draws them.
TEST_F(Files, AnnotationsAreAsHighThroughEveryViewport) {
    type({L"ESCALADESENHO", L"20", L"_text", L"-20,0", L"50", L"0", L"H", L""});
    type({L"_dimlinear", L"-200,-150", L"200,-150", L"0,-200"});
    type({L"DIRETRIZ", L"50,0", L"100,120", L"_a", L"N", L""});
    type({L"SOLDA", L"-100,100", L"-120,150", L"filete 3"});
    type({L"_layout", L"_s", L"Layout1", L"_layout", L"_paper", L"A2", L""});
    type({L"_mview", L"20,20", L"120,120", L"_mview", L"_s", L"1:20", L"_l", L""});
    type({L"_mview", L"150,20", L"250,120", L"_mview", L"_s", L"1:5", L"_l", L""});
    type({L"_mspace", L"_zoom", L"_c", L"0,0", L"500", L"_zoom", L"0.2xp", L"_pspace"});
    PlotSettings sheet = prancheta::sheetPlot(prancheta::drawnSheets(editor->database()).at(0));
    sheet.dotsPerInch = kDots;
    const auto heights = [&] {  // of letters in units of the font
        std::map<std::string, int> counts;
        const std::string svg = bytes(plot(sheet, "alturas.svg"));
        const std::regex text(R"(matrix\([^,]*,[^,]*,[^,]*,([^,]*),[^>]*>\s*<text)");
        for (std::sregex_iterator i(svg.begin(), svg.end(), text), end; i != end; ++i)
            ++counts[(*i)[1]];
        return counts;
    };
    // The H begins 4 mm to the left of the middle of the 1:5 viewport.
    const Box2d capital = inkWithin(picture(sheet), {185.5, -64, 192, -57});
    EXPECT_NEAR(capital.height(), 2.5, 0.25);
    EXPECT_EQ(heights().size(), 1U);
    EXPECT_EQ(heights().begin()->second, 8);  // H, N, 400 and 3, twice
    type({L"_mview", L"_annotation", L"_off", L"_l", L""});
    EXPECT_EQ(heights().size(), 2U);
    // What holds is kept in the file.
    type({L"_u"});
    const fs::path file = folder / "escalas.dxf";
    ASSERT_TRUE(editor->file().save(file));
    ASSERT_TRUE(editor->file().open(file));
    sheet.space = prancheta::drawnSheets(editor->database()).at(0).block;
    EXPECT_EQ(heights().size(), 1U);
}

TEST_F(Files, OneDrawingGivesOneFile) {
    type({L"_line", L"0,0", L"100,20", L"", L"_text", L"0,0", L"5", L"0", L"Chapa", L"", L"_circle",
          L"9,9", L"4"});
    for (const char* ending : {"pdf", "svg", "png"}) {
        const std::string first = bytes(plot({}, ("a." + std::string(ending)).c_str()));
        EXPECT_GT(first.size(), 500U);
        EXPECT_EQ(first, bytes(plot({}, ("b." + std::string(ending)).c_str()))) << ending;
        EXPECT_EQ(first.find("CreationDate"), first.npos) << ending;
    }
}

TEST_F(Files, MonochromeIsBlack) {
    type({L"_-layer", L"_m", L"Amarela", L"_c", L"2", L"Amarela", L"", L"_line", L"20,50", L"60,50",
          L""});
    PlotSettings settings = trueToSize();
    EXPECT_FALSE(inkAt(picture(settings), 40, 50)) << "yellow is brighter than half";
    settings.monochrome = true;
    EXPECT_TRUE(inkAt(picture(settings), 40, 50));
}

TEST_F(Files, LayersThatAreNotShownOrNotPlottedStayAway) {
    type({L"_line", L"20,20", L"60,20", L""});
    struct Layer {
        const wchar_t* name;
        const wchar_t* y;
        const wchar_t* state;
    };
    for (const Layer& layer :
         {Layer{L"Desligada", L"40", L"_off"}, Layer{L"Congelada", L"60", L"_f"}}) {
        type({L"_-layer", L"_m", layer.name, L""});
        type({L"_line", (std::wstring(L"20,") + layer.y).c_str(),
              (std::wstring(L"60,") + layer.y).c_str(), L""});
        type({L"_-layer", L"_s", L"0", layer.state, layer.name, L""});
    }
    type({L"_-layer", L"_m", L"Auxiliar", L"_p", L"_n", L"Auxiliar", L""});
    type({L"_line", L"20,80", L"60,80", L""});
    ASSERT_EQ(count(), 4U);
    const QImage image = picture(trueToSize());
    EXPECT_TRUE(inkAt(image, 40, 20));
    for (const double y : {40.0, 60.0, 80.0}) EXPECT_FALSE(inkAt(image, 40, y)) << y;
}

TEST_F(Files, WhatABlockDrawsOnALayerThatIsNotPlottedStaysAway) {
    type({L"_-layer", L"_n", L"Auxiliar", L"_p", L"_n", L"Auxiliar", L""});
    AcDbObjectId id;
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(editor->database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    auto* const block = new AcDbBlockTableRecord;
    ASSERT_EQ(block->setName(L"PECA"), Acad::eOk);
    ASSERT_EQ(table->add(id, block), Acad::eOk);
    for (const double y : {0.0, 20.0}) {
        auto* const line = new AcDbLine({0, y, 0}, {40, y, 0});
        ASSERT_EQ(block->appendAcDbEntity(line), Acad::eOk);
        if (y > 0.0) {
            EXPECT_EQ(line->setLayer(L"Auxiliar"), Acad::eOk);
        }
        (void)line->close();
    }
    (void)block->close();
    (void)table->close();
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                      AcDb::kForWrite);
        auto* const reference = new AcDbBlockReference({20, 20, 0}, id);
        ASSERT_EQ(space->appendAcDbEntity(reference), Acad::eOk);
        (void)reference->close();
    }
    const QImage image = picture(trueToSize());
    EXPECT_TRUE(inkAt(image, 40, 20));
    EXPECT_FALSE(inkAt(image, 40, 40));
}

TEST_F(Files, AnEmptyDrawingGivesAnEmptySheet) {
    const QImage image = picture(trueToSize());
    EXPECT_EQ(image.size(), QSize(2100, 2970));
    EXPECT_EQ(image.dotsPerMeterX(), 10000);
    EXPECT_TRUE(inkWithin(image, {-10, -10, 200, 287}).empty());
    EXPECT_EQ(pageOf(plot({}, "vazia.pdf")), "0 0 595.2756 841.8898");
}

TEST_F(Files, AFailureLeavesTheOldFile) {
    const auto machine = prancheta::plotter();
    ASSERT_TRUE(machine.ok());
    const fs::path file = folder / "velho.pdf";
    std::ofstream(file) << "antigo";
    const auto refused = [&](const PlotSettings& settings, const fs::path& path) {
        const auto done = (*machine)->plot(*editor, settings, PlotFormat::Pdf, path);
        EXPECT_FALSE(done.ok());
        return done ? std::string() : done.error().message();
    };
    PlotSettings bad;
    bad.scale = 0.0;
    EXPECT_NE(refused(bad, file).find("escala"), std::string::npos);
    bad = {};
    bad.margin = 105.0;
    EXPECT_NE(refused(bad, file).find("margem"), std::string::npos);
    EXPECT_EQ(bytes(file), "antigo");
    EXPECT_NE(refused({}, folder / "falta" / "a.pdf").find("não existe"), std::string::npos);
    fs::create_directory(folder / "pasta.pdf");
    EXPECT_NE(refused({}, folder / "pasta.pdf").find("pasta"), std::string::npos);
    // Nothing is left beside the files.
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 2);
}

TEST_F(Files, CommandAsksForEverything) {
    type({L"_line", L"0,0", L"100,20", L""});
    const std::wstring name = prancheta::toWide((folder / "folha").string());
    type({L"plotar", (name + L".dwf").c_str(), name.c_str(), L"A9", L"a3", L"_p", L"_w", L"0,0",
          L"0,5", L"0,0", L"100,100", L"1:0", L"1:10", L"_y"});
    EXPECT_EQ(ui.complaints.size(), 4U) << "ending, paper, window without width, scale";
    EXPECT_EQ(pageOf(folder / "folha.pdf"), "0 0 841.8898 1190.5512");
    EXPECT_TRUE(said(L"Plotado em "));
    // What was chosen is offered again; Enter takes it.
    type({L"_-plot", (name + L"2.pdf").c_str(), L"", L"", L"", L"", L""});
    EXPECT_TRUE(asked(L"<A3>"));
    EXPECT_TRUE(asked(L"<Retrato>"));
    EXPECT_TRUE(asked(L"<1:10>"));
    EXPECT_EQ(pageOf(folder / "folha2.pdf"), "0 0 841.8898 1190.5512");
    type({L"plot", (name + L"3.pdf").c_str(), L"", L"^C"});
    EXPECT_FALSE(fs::exists(folder / "folha3.pdf"));
    // The same sheet through the library: 100 units are 10 mm at 1:10.
    type({L"plot", (name + L"4.png").c_str(), L"A4", L"_p", L"_e", L"1:10", L"_n"});
    const QImage image(QString::fromStdString((folder / "folha4.png").string()));
    int columns = 0;
    for (int column = 0; column < image.width(); ++column)
        for (int row = 0; row < image.height(); ++row)
            if (dark(image, column, row)) {
                ++columns;
                break;
            }
    // 10 mm and 0.25 for the round ends, at 300 dots an inch.
    EXPECT_NEAR(columns, 10.25 / 25.4 * 300.0, 1.5);
}

/// Stand-ins for the print system's programs, which note how they are called.
TEST_F(Files, PrintersTakeThePdfAsItIs) {
    const auto program = [&](const char* name, const std::string& script) {
        std::ofstream(folder / name) << "#!/bin/sh\n" << script;
        fs::permissions(folder / name, fs::perms::owner_all);
    };
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", folder.c_str(), 1);
    type({L"_line", L"0,0", L"100,20", L"", L"plotar", L"?", L"^C"});
    EXPECT_TRUE(said(L"Nenhuma impressora"));
    const std::string at = "'" + folder.string() + "/";
    program("lpstat", "echo Sala_2; echo Plotter");
    program("lp", "/bin/echo \"$@\" >" + at + "chamada'; eval \"f=\\${$#}\"; /bin/cp \"$f\" " + at +
                      "papel.pdf'; echo 'request id is Sala_2-7'");
    type({L"plotar", L"sala_2", L"A3", L"_p", L"_e", L"_f", L"_n"});
    EXPECT_TRUE(said(L"Enviado à impressora Sala_2: request id is Sala_2-7"));
    EXPECT_EQ(pageOf(folder / "papel.pdf"), "0 0 841.8898 1190.5512");
    const std::string call = bytes(folder / "chamada");
    EXPECT_EQ(call.substr(0, call.rfind(' ')),
              "-d Sala_2 -t Desenho -o media=A3 -o print-scaling=none");
    EXPECT_FALSE(fs::exists(call.substr(call.rfind(' ') + 1, call.find('\n'))));
    program("lp", "echo 'lp: sem papel' >&2; exit 1");
    type({L"plotar", L"Plotter", L"", L"", L"", L"", L""});
    ASSERT_FALSE(ui.complaints.empty());
    EXPECT_NE(ui.complaints.back().find(L"sem papel"), std::wstring::npos);
    ::setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace plotting
