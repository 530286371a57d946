// SPDX-License-Identifier: MIT
// The dialog of styles.
#include "prancheta/desktop/shell/style_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <numbers>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"
#include "prancheta/desktop/shell/style_preview.h"

namespace prancheta::desktop {

using V = AcDbDimStyleValues;

/// A number, or with `decimals` below 0 a switch.
struct StyleDialog::Field {
    StyleDialog::Kind kind;
    const char* name;
    const char* label;
    int decimals;
    double least;
    double most;
    double StyleDraft::*text = nullptr;
    double V::*real = nullptr;
    Adesk::Int16 V::*integer = nullptr;

    double get(const StyleDraft& draft) const {
        if (text != nullptr) return draft.*text;
        return real != nullptr ? draft.dimension.*real : draft.dimension.*integer;
    }
    void set(StyleDraft& draft, double value) const {
        if (text != nullptr)
            draft.*text = value;
        else if (real != nullptr)
            draft.dimension.*real = value;
        else
            draft.dimension.*integer = static_cast<Adesk::Int16>(std::lround(value));
    }
};

namespace {

constexpr double kMost = 1e6;
constexpr auto kText = StyleDialog::Kind::Text;
constexpr auto kDimension = StyleDialog::Kind::Dimension;

QString shown(const std::wstring& text) { return QString::fromStdWString(text); }

StyleDraft draftOf(AcDbObjectId id) {
    StyleDraft draft;
    draft.id = id;
    draft.name = ObjectAccess::recordName(id);
    if (const AcDbObjectPointer<AcDbTextStyleTableRecord> text(id, AcDb::kForRead);
        text.openStatus() == Acad::eOk) {
        draft.font = text->fileName();
        draft.height = text->textSize();
        draft.widthFactor = text->xScale();
        draft.oblique = text->obliquingAngle() * 180.0 / std::numbers::pi;
    }
    if (const AcDbObjectPointer<AcDbDimStyleTableRecord> style(id, AcDb::kForRead);
        style.openStatus() == Acad::eOk)
        draft.dimension = style->values();
    return draft;
}

template <class Table, class Record>
AcDbObjectId addRecord(AcDbObjectId tableId, const std::wstring& name) {
    const AcDbObjectPointer<Table> table(tableId, AcDb::kForWrite);
    AcDbObjectId id;
    if (table.openStatus() != Acad::eOk) return id;
    auto record = std::make_unique<Record>();
    if (record->setName(name.c_str()) == Acad::eOk && table->add(id, record.get()) == Acad::eOk)
        (void)record.release()->close();
    return id;
}

}  // namespace

StyleDialog::StyleDialog(AcDbDatabase& database, Kind kind, QWidget* parent)
    : QDialog(parent),
      m_database(database),
      m_kind(kind),
      m_names(new QListWidget(this)),
      m_preview(new StylePreview(kind, this)) {
    setObjectName(kind == kText ? "estilo" : "estilocota");
    setWindowTitle(kind == kText ? "Estilos de texto" : "Estilos de cota");
    m_names->setObjectName("estilos");
    m_names->setAccessibleName("Estilos");
    auto* const fresh = new QPushButton("&Novo...", this);
    auto* const left = new QVBoxLayout;
    left->addWidget(m_names);
    left->addWidget(fresh);
    auto* const form = new QFormLayout;
    addFields(form);
    auto* const row = new QHBoxLayout;
    row->addLayout(left);
    row->addLayout(form);
    row->addWidget(m_preview, 1);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
    auto* const column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(buttons);
    connect(fresh, &QPushButton::clicked, this, &StyleDialog::askName);
    connect(buttons, &QDialogButtonBox::accepted, this, &StyleDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_names, &QListWidget::currentRowChanged, this, &StyleDialog::select);
    readStyles();
}

void StyleDialog::readStyles() {
    const AcDbObjectId present = m_kind == kText ? m_database.textstyle() : m_database.dimstyle();
    const AcDbObjectId tableId =
        m_kind == kText ? m_database.textStyleTableId() : m_database.dimStyleTableId();
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
    if (table.openStatus() != Acad::eOk) return;
    int row = 0;
    for (const AcDbObjectId id : ObjectAccess::records(*table.object())) {
        // A style without a name is that of a shape file.
        if (id.isErased() || ObjectAccess::recordName(id).empty()) continue;
        if (id == present) row = static_cast<int>(m_drafts.size());
        m_drafts.push_back(draftOf(id));
    }
    for (const StyleDraft& draft : m_drafts) m_names->addItem(shown(draft.name));
    m_names->setCurrentRow(row);
}

void StyleDialog::addFields(QFormLayout* form) {
    static constexpr Field kFields[] = {
        {kText, "altura", "&Altura (0: cada texto a sua):", 3, 0, kMost, &StyleDraft::height},
        {kText, "largura", "Fator de &largura:", 3, 0.01, 100, &StyleDraft::widthFactor},
        {kText, "inclinacao", "&Inclinação, graus:", 2, -84.9, 84.9, &StyleDraft::oblique},
        {kDimension, "dimtxt", "&Altura do texto, mm no papel:", 3, 0.01, kMost, nullptr,
         &V::dimtxt},
        {kDimension, "dimasz", "&Seta:", 3, 0, kMost, nullptr, &V::dimasz},
        {kDimension, "dimtsz", "&Traço no lugar da seta:", 3, 0, kMost, nullptr, &V::dimtsz},
        {kDimension, "dimgap", "&Folga em volta do texto:", 3, -kMost, kMost, nullptr, &V::dimgap},
        {kDimension, "dimexo", "A&fastamento da origem:", 3, 0, kMost, nullptr, &V::dimexo},
        {kDimension, "dimexe", "&Extensão além da cota:", 3, 0, kMost, nullptr, &V::dimexe},
        {kDimension, "dimdli", "&Passo das linhas de base:", 3, 0, kMost, nullptr, &V::dimdli},
        {kDimension, "dimdec", "Casas &decimais:", 0, 0, 8, nullptr, nullptr, &V::dimdec},
        {kDimension, "dimrnd", "Arre&dondar a:", 4, 0, kMost, nullptr, &V::dimrnd},
        {kDimension, "dimlfac", "Fato&r da medida:", 6, -kMost, kMost, nullptr, &V::dimlfac},
        {kDimension, "dimtad", "Texto a&cima da linha", -1, 0, 1, nullptr, nullptr, &V::dimtad},
        {kDimension, "dimtih", "Texto &horizontal entre as setas", -1, 0, 1, nullptr, nullptr,
         &V::dimtih},
        {kDimension, "dimtoh", "Texto horizontal f&ora delas", -1, 0, 1, nullptr, nullptr,
         &V::dimtoh},
        {kDimension, "dimtix", "Texto se&mpre entre as extensões", -1, 0, 1, nullptr, nullptr,
         &V::dimtix},
    };
    if (m_kind == kText) addFont(form);
    for (const Field& field : kFields)
        if (field.kind == m_kind) addNumber(form, field);
}

void StyleDialog::addFont(QFormLayout* form) {
    auto* const font = new QLineEdit(this);
    font->setObjectName("fonte");
    form->addRow("Arquivo da &fonte:", font);
    connect(font, &QLineEdit::textEdited, this, [this](const QString& text) {
        current().font = text.trimmed().toStdWString();
        edited();
    });
    m_show.push_back([font](const StyleDraft& draft) { font->setText(shown(draft.font)); });
}

void StyleDialog::addNumber(QFormLayout* form, const Field& field) {
    const auto take = [this, &field](double value) {
        if (m_showing) return;
        field.set(current(), value);
        edited();
    };
    if (field.decimals < 0) {
        auto* const box = new QCheckBox(field.label, this);
        box->setObjectName(field.name);
        form->addRow(box);
        connect(box, &QCheckBox::toggled, this, [take](bool on) { take(on ? 1.0 : 0.0); });
        m_show.push_back(
            [box, &field](const StyleDraft& draft) { box->setChecked(field.get(draft) != 0.0); });
        return;
    }
    auto* const box = new QDoubleSpinBox(this);
    box->setObjectName(field.name);
    box->setDecimals(field.decimals);
    box->setRange(field.least, field.most);
    form->addRow(field.label, box);
    connect(box, &QDoubleSpinBox::valueChanged, this, take);
    m_show.push_back([box, &field](const StyleDraft& draft) { box->setValue(field.get(draft)); });
}

StyleDraft& StyleDialog::current() {
    return m_drafts[static_cast<std::size_t>(std::max(m_names->currentRow(), 0))];
}

void StyleDialog::edited() {
    current().changed = true;
    m_preview->show(current());
}

void StyleDialog::select(int row) {
    if (row < 0) return;
    m_showing = true;
    for (const auto& show : m_show) show(current());
    m_showing = false;
    m_preview->show(current());
}

bool StyleDialog::addStyle(const std::wstring& name) {
    const bool known = std::ranges::any_of(
        m_drafts, [&](const StyleDraft& draft) { return equalNoCase(draft.name, name); });
    if (known || !isValidName(name, false)) return false;
    StyleDraft draft = current();
    draft.name = name;
    draft.id = AcDbObjectId();
    draft.changed = true;
    m_drafts.push_back(draft);
    m_names->addItem(shown(name));
    m_names->setCurrentRow(m_names->count() - 1);
    return true;
}

void StyleDialog::askName() {
    bool given = false;
    const QString name = QInputDialog::getText(
        this, windowTitle(), "Nome do novo estilo:", QLineEdit::Normal, {}, &given);
    if (given && !addStyle(name.trimmed().toStdWString()))
        QMessageBox::warning(this, windowTitle(),
                             "\"" + name + "\" já existe ou não serve de nome para um estilo.");
}

bool StyleDialog::write(StyleDraft& draft) {
    if (m_kind == kText) {
        if (draft.id.isNull())
            draft.id = addRecord<AcDbTextStyleTable, AcDbTextStyleTableRecord>(
                m_database.textStyleTableId(), draft.name);
        const AcDbObjectPointer<AcDbTextStyleTableRecord> style(draft.id, AcDb::kForWrite);
        if (style.openStatus() != Acad::eOk) return false;
        (void)style->setFileName(draft.font.c_str());  // values within the fields' ranges
        (void)style->setTextSize(draft.height);
        (void)style->setXScale(draft.widthFactor);
        (void)style->setObliquingAngle(draft.oblique * std::numbers::pi / 180.0);
        return true;
    }
    const bool isNew = draft.id.isNull();
    if (isNew)
        draft.id = addRecord<AcDbDimStyleTable, AcDbDimStyleTableRecord>(
            m_database.dimStyleTableId(), draft.name);
    const AcDbObjectPointer<AcDbDimStyleTableRecord> style(draft.id, AcDb::kForWrite);
    if (style.openStatus() != Acad::eOk) return false;
    if (isNew) (void)style->setDimtxsty(m_database.textstyle());
    return style->setValues(draft.dimension) == Acad::eOk;
}

void StyleDialog::accept() {
    for (StyleDraft& draft : m_drafts)
        if (draft.changed && !write(draft)) {
            QMessageBox::warning(this, windowTitle(),
                                 "O estilo \"" + shown(draft.name) + "\" não pôde ser gravado.");
            return;
        }
    if (m_kind == kText) {
        (void)m_database.setTextstyle(current().id);
    } else if (m_database.dimstyle() != current().id) {
        const double scale = m_database.dimscale();
        (void)m_database.setDimstyle(current().id);
        (void)m_database.setDimscale(scale);
    }
    QDialog::accept();
}

}  // namespace prancheta::desktop
