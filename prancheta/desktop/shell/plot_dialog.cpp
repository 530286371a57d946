// SPDX-License-Identifier: MIT
// The plot dialog.
#include "prancheta/desktop/shell/plot_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSettings>

#include <algorithm>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/desktop/shell/drawing_files.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/printers.h"
#include "prancheta/plot/sheet.h"

namespace prancheta::desktop {

struct FormatRow {
    PlotFormat format;
    const char* ending;
    const char* title;
};

/// The sheet on a table; drawn anew only when settings or size change.
class SheetPreview : public QWidget {
public:
    explicit SheetPreview(Editor& editor) : m_editor(editor) { setMinimumSize(280, 240); }

    void show(const PlotSettings& settings) {
        m_settings = settings;
        m_picture = {};
        update();
    }

    QSize sizeHint() const override { return {420, 420}; }

protected:
    void resizeEvent(QResizeEvent*) override { m_picture = {}; }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Dark));
        const SheetLayout layout = layoutSheet(m_editor, m_settings);
        const double room = 0.94;
        const double factor =
            std::min(width() * room / layout.width, height() * room / layout.height);
        QRectF sheet(0, 0, layout.width * factor, layout.height * factor);
        sheet.moveCenter(QRectF(rect()).center());
        painter.fillRect(sheet.translated(4, 4), QColor(0, 0, 0, 90));
        painter.fillRect(sheet, Qt::white);
        if (m_picture.isNull()) m_picture = draw(sheet.size());
        painter.drawPixmap(sheet.topLeft(), m_picture);
    }

private:
    QPixmap draw(const QSizeF& size) {
        const double ratio = devicePixelRatioF();
        QPixmap pixmap((size * ratio).toSize().expandedTo({1, 1}));
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::white);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paintSheet(painter, QRectF({0, 0}, size), m_editor, m_settings);
        return pixmap;
    }

    Editor& m_editor;
    PlotSettings m_settings;
    QPixmap m_picture;
};

namespace {

constexpr double kScales[] = {1, 2, 2.5, 5, 7.5, 10, 12.5, 15, 20, 25, 50, 75, 100, 200, 500};

constexpr FormatRow kFormats[] = {
    {PlotFormat::Pdf, "pdf", "PDF"},
    {PlotFormat::Svg, "svg", "SVG"},
    {PlotFormat::Png, "png", "Imagem PNG"},
};

enum Area { kExtents, kScreen, kWindow };

Box2d screenOf(const Editor& editor) {
    const View& view = editor.screen().view();
    const double half = view.height / 2;
    const double side = half * editor.screen().width() / editor.screen().height();
    return {view.centre.x - side, view.centre.y - half, view.centre.x + side, view.centre.y + half};
}

QString scaleText(double scale) {
    const QString number = QString::number(scale >= 1 ? scale : 1 / scale, 'g', 4);
    return scale >= 1 ? number + ":1" : "1:" + number;
}

/// The sheet that drawings of the trade are plotted on.
constexpr const wchar_t* kUsualPaper = L"A1";

/// Whether all of the drawing fits it at the drawing's own scale.
bool fitsUsualPaper(Editor& editor) {
    PlotSettings usual;
    usual.paper = *findPaper(kUsualPaper);
    return layoutSheet(editor, usual).scale * drawingScale(editor.database()) >= 1.0;
}

}  // namespace

PlotDialog::PlotDialog(Editor& editor, QWidget* parent)
    : QDialog(parent),
      m_editor(editor),
      m_tabs(drawnSheets(editor.database())),
      m_what(new QComboBox(this)),
      m_paper(new QComboBox(this)),
      m_orientation(new QComboBox(this)),
      m_area(new QComboBox(this)),
      m_scale(new QComboBox(this)),
      m_format(new QComboBox(this)),
      m_monochrome(new QCheckBox("&Monocromático", this)),
      m_lineWeights(new QCheckBox("Espessuras de &linha", this)),
      m_layers(new QCheckBox("Camadas do P&DF", this)),
      m_sheets(new QCheckBox("&Várias folhas", this)),
      m_layouts(new QListWidget(this)),
      m_footer(new QCheckBox("&Rodapé com arquivo, data e escala", this)),
      m_told(new QLabel(this)),
      m_preview(new SheetPreview(editor)) {
    setWindowTitle("Plotar");
    const bool onUsual = fitsUsualPaper(editor);
    for (const Paper& paper : papers())
        m_paper->insertItem(onUsual && paper.name == kUsualPaper ? 0 : m_paper->count(),
                            QString::fromStdWString(paper.name));
    m_paper->setCurrentText(onUsual ? QString::fromWCharArray(kUsualPaper) : "A3");
    m_orientation->addItems({"Automática", "Retrato", "Paisagem"});
    m_area->addItems({"Extensão do desenho", "Tela", "Janela..."});
    m_scale->addItem("Ajustar à folha");
    for (const double scale : kScales) m_scale->addItem(scaleText(1 / scale), 1 / scale);
    m_scale->setEditable(true);
    m_scale->setInsertPolicy(QComboBox::NoInsert);
    for (const FormatRow& row : kFormats) m_format->addItem(row.title);
    for (const std::wstring& printer : printers())
        m_format->addItem("Impressora " + QString::fromStdWString(printer),
                          QString::fromStdWString(printer));
    m_lineWeights->setChecked(true);
    m_layers->setChecked(true);
    addLayouts();
    m_told->setWordWrap(true);

    auto* const form = new QFormLayout;
    form->addRow("O &que plotar:", m_what);
    form->addRow("&Papel:", m_paper);
    form->addRow("&Orientação:", m_orientation);
    form->addRow("Áre&a:", m_area);
    form->addRow("&Escala:", m_scale);
    form->addRow("Arq&uivo ou impressora:", m_format);
    form->addRow(m_monochrome);
    for (QCheckBox* const box : {m_lineWeights, m_layers, m_footer}) form->addRow(box);
    form->addRow(m_sheets, m_layouts);
    form->addRow(m_told);
    if (const std::wstring line = notShown(editor.database()); !line.empty()) {
        auto* const missing = new QLabel(QString::fromStdWString(line), this);
        missing->setWordWrap(true);
        form->addRow(missing);
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText("Plo&tar...");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
    connect(buttons, &QDialogButtonBox::accepted, this, &PlotDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const left = new QVBoxLayout;
    left->addLayout(form);
    left->addStretch();
    left->addWidget(buttons);
    auto* const row = new QHBoxLayout(this);
    row->addLayout(left);
    row->addWidget(m_preview, 1);

    for (QComboBox* const box : {m_what, m_paper, m_orientation, m_area})
        connect(box, &QComboBox::currentIndexChanged, this, [this] { showSettings(); });
    // Chosen again, it asks again.
    connect(m_area, &QComboBox::activated, this, [this](int area) {
        if (area == kWindow) done(kPickWindow);
    });
    connect(m_scale, &QComboBox::currentTextChanged, this, [this] { showSettings(); });
    for (QCheckBox* const box : {m_monochrome, m_lineWeights, m_footer, m_sheets})
        connect(box, &QCheckBox::toggled, this, [this] { showSettings(); });
    connect(m_format, &QComboBox::currentIndexChanged, this, [this] { enableChoices(); });
    showSettings();
}

void PlotDialog::addLayouts() {
    m_what->addItem("Modelo");
    for (const Tab& tab : m_tabs) {
        const QString name = QString::fromStdWString(tab.name);
        m_what->addItem(name + " em 1:1");
        auto* const row = new QListWidgetItem(name, m_layouts);
        row->setCheckState(Qt::Checked);
        if (tab.block == m_editor.spaces().tab()) m_what->setCurrentIndex(m_what->count() - 1);
    }
    if (m_tabs.empty()) return m_layouts->hide();
    constexpr int kMostRows = 5;
    const int rows = std::min(m_layouts->count(), kMostRows);
    m_layouts->setFixedHeight(rows * m_layouts->sizeHintForRow(0) + 2 * m_layouts->frameWidth());
}

void PlotDialog::enableChoices() {
    const bool printer = !m_format->currentData().toString().isEmpty();
    const bool pages =
        printer ||
        kFormats[static_cast<std::size_t>(m_format->currentIndex())].format == PlotFormat::Pdf;
    m_sheets->setEnabled(pages && !m_tabs.empty());
    m_sheets->setToolTip(m_tabs.empty() ? "Nenhum layout do desenho tem alguma coisa."
                         : !pages       ? "SVG e PNG têm uma folha só; escolha PDF."
                                        : "Os layouts marcados, cada um numa página em 1:1.");
    const bool several = m_sheets->isEnabled() && m_sheets->isChecked();
    const bool model = !several && m_what->currentIndex() == 0;
    m_what->setEnabled(!several);
    m_layouts->setEnabled(several);
    for (QComboBox* const box : {m_paper, m_orientation, m_scale}) box->setEnabled(model);
    // The window and the screen are those of what is shown.
    m_area->setEnabled(model && !m_editor.spaces().drawsOnPaper());
}

PlotSettings PlotDialog::settings() const {
    const int what = m_what->currentIndex();
    if (what > 0) return inWays(sheetPlot(m_tabs[static_cast<std::size_t>(what - 1)]));
    PlotSettings out;
    out.space = m_editor.database().core().modelSpaceId();
    out.paper = *findPaper(m_paper->currentText().toStdWString());  // one of the list
    out.orientation = static_cast<PlotSettings::Orientation>(m_orientation->currentIndex());
    const int area = m_area->isEnabled() ? m_area->currentIndex() : kExtents;
    if (area == kScreen) out.area = screenOf(m_editor);
    if (area == kWindow) out.area = m_window;
    // Anything else fits.
    const QString scaleText = m_scale->currentText().replace(',', '.');
    if (const auto scale = readPaperScale(scaleText.toStdWString()))
        out.scale = scale->paper / scale->drawing;
    return inWays(out);
}

PlotSettings PlotDialog::inWays(PlotSettings sheet) const {
    sheet.monochrome = m_monochrome->isChecked();
    sheet.lineWeights = m_lineWeights->isChecked();
    sheet.layers = m_layers->isChecked();
    sheet.footer = m_footer->isChecked();
    return sheet;
}

void PlotDialog::pickWindow() {
    InputRequest request;
    request.kind = InputKind::Point;
    request.prompt = L"\nEspecifique o primeiro canto: ";
    request.nullAllowed = false;
    const InputValue first = m_editor.runner().ask(request);
    request.kind = InputKind::Corner;
    request.prompt = L"\nEspecifique o canto oposto: ";
    request.base = first.point;
    const InputValue second = first.status == RTNORM ? m_editor.runner().ask(request) : first;
    if (second.status == RTNORM) {
        const auto [left, right] = std::minmax(first.point.x, second.point.x);
        const auto [bottom, top] = std::minmax(first.point.y, second.point.y);
        m_window = Box2d{left, bottom, right, top};
    }
    if (!m_window) m_area->setCurrentIndex(kExtents);
    showSettings();
}

void PlotDialog::showSettings() {
    enableChoices();
    const PlotSettings wanted = settings();
    const SheetLayout layout = layoutSheet(m_editor, wanted);
    QString told = QString("Folha de %1 x %2 mm, escala %3.")
                       .arg(layout.width)
                       .arg(layout.height)
                       .arg(scaleText(layout.scale));
    PlotSettings fitting = wanted;
    fitting.scale.reset();
    if (wanted.scale && layoutSheet(m_editor, fitting).scale < *wanted.scale)
        told += " O desenho não cabe inteiro nesta escala.";
    m_told->setText(told);
    m_preview->show(wanted);
}

std::vector<PlotSettings> PlotDialog::sheets() const {
    if (!m_sheets->isEnabled() || !m_sheets->isChecked()) return {settings()};
    std::vector<PlotSettings> out;
    for (int row = 0; row < m_layouts->count(); ++row)
        if (m_layouts->item(row)->checkState() == Qt::Checked)
            out.push_back(inWays(sheetPlot(m_tabs[static_cast<std::size_t>(row)])));
    return out;
}

Result<void> PlotDialog::plotTo(const FormatRow& row, const std::filesystem::path& file) {
    const Result<Plotter*> writer = plotter();
    if (!writer) return writer.error();
    const std::vector<PlotSettings> wanted = sheets();
    dateSheets(m_editor, wanted);
    return (*writer)->plot(m_editor, wanted, row.format, file);
}

std::filesystem::path PlotDialog::askFile(const FormatRow& row) {
    std::filesystem::path name = m_editor.file().name().filename();
    if (name.empty()) name = "Desenho1";
    name.replace_extension(row.ending);
    const QString ending = row.ending;
    QFileDialog dialog(this, "Plotar em", folderOf(m_editor.file().name()),
                       QString("%1 (*.%2)").arg(row.title, ending));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(toQString(name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return toPath(dialog.selectedFiles().constFirst());
}

void PlotDialog::accept() {
    if (sheets().empty()) {
        QMessageBox::information(this, "Plotar", "Marque um layout, ou desligue Várias folhas.");
        return;
    }
    const QString printer = m_format->currentData().toString();
    Result<void> done;
    if (!printer.isEmpty()) {
        const std::vector<PlotSettings> wanted = sheets();
        dateSheets(m_editor, wanted);
        const Result<std::wstring> job = print(m_editor, wanted, printer.toStdWString());
        if (!job)
            done = job.error();
        else
            m_editor.print(L"\nEnviado à impressora " + printer.toStdWString() + L": " + *job +
                           L"\n");
    } else {
        const FormatRow& row = kFormats[static_cast<std::size_t>(m_format->currentIndex())];
        const std::filesystem::path file = askFile(row);
        if (file.empty()) return;
        done = plotTo(row, file);
    }
    if (done) return QDialog::accept();
    QMessageBox::warning(
        this, "Plotar",
        "O desenho não foi plotado.\n\n" + QString::fromStdString(done.error().message()));
}

}  // namespace prancheta::desktop
