// SPDX-License-Identifier: MIT
// Layer, colour, linetype and line weight in a toolbar.
#include "prancheta/desktop/shell/object_fields.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QSignalBlocker>

#include <algorithm>

#include "dbsymtb.h"
#include "prancheta/desktop/panels/color_popup.h"
#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/property_rows.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/editor/commands/layers.h"

namespace prancheta::desktop {
namespace {

/// A wheel that turns over a toolbar is meant for the drawing, not for its values.
class StillBox : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

/// The colours of the layers, for the pictures beside their names.
QIcon layerIcon(Editor& editor, const std::wstring& name, const QColor& ink) {
    CommandRun run;
    const AcDbObjectId id = commands::layerNamed(CommandContext(editor, run), name);
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.object() == nullptr) return {};
    return swatchIcon(colorNumber(*layer.object(), layer->colorIndex()), ink);
}

}  // namespace

QComboBox* ObjectFields::makeChoices(const QString& key, const QString& name, int letters,
                                     QWidget* parent) {
    auto* const box = new StillBox(parent);
    box->setObjectName("campo_" + key);
    box->setToolTip(name + ": dos objetos escolhidos ou, sem escolha, do que for desenhado");
    box->setAccessibleName(name);
    box->setIconSize(QSize(kIconSize, kIconSize));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(letters);
    box->setMaxVisibleItems(20);
    connect(box, &QComboBox::activated, this,
            [this, box, key] { change(key.toStdWString(), box->currentText().toStdWString()); });
    return box;
}

QWidget* ObjectFields::make(const QString& field, QWidget* parent) {
    if (field == "camada") return m_layer = makeChoices("camada", "Camada", 11, parent);
    if (field == "tipo-de-linha")
        return m_linetype = makeChoices("tipo_linha", "Tipo de linha", 8, parent);
    if (field == "espessura")
        return m_weight = makeChoices("espessura", "Espessura de linha", 6, parent);
    if (field == "escala") {
        m_scale = new ScaleButton(parent);
        m_scale->setObjectName("campo_escala");
        connect(m_scale, &ScaleButton::scaleWanted, this, &ObjectFields::scaleWanted);
        return m_scale;
    }
    m_color = new QToolButton(parent);
    m_color->setObjectName("campo_cor");
    m_color->setAccessibleName("Cor");
    m_color->setToolTip("Cor: dos objetos escolhidos ou, sem escolha, do que for desenhado");
    m_color->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_color->setMinimumWidth(m_color->fontMetrics().horizontalAdvance("PorCamada") + 36);
    connect(m_color, &QToolButton::clicked, this, &ObjectFields::chooseColor);
    return m_color;
}

void ObjectFields::setEditor(Editor* editor) {
    m_editor = editor;
    m_watch.forget();
    if (m_scale != nullptr) m_scale->setEditor(editor);
    refresh();
}

void ObjectFields::refresh() {
    if (m_editor == nullptr || !m_watch.news(*m_editor)) return;
    for (const PropertyRow& row : generalRows(*m_editor, m_editor->selection().ids())) {
        if (row.key == L"camada") show(m_layer, row);
        if (row.key == L"tipo_linha") show(m_linetype, row);
        if (row.key == L"espessura") show(m_weight, row);
        if (row.key == L"cor" && m_color != nullptr) {
            m_shownColor = row.varies ? -1 : qt(row.input).toInt();
            m_color->setText(row.varies ? QStringLiteral("*VARIA*") : qt(row.value));
            m_color->setIcon(row.varies ? QIcon()
                                        : swatchIcon(m_shownColor, QApplication::palette().color(
                                                                       QPalette::ButtonText)));
        }
    }
    if (m_scale != nullptr) m_scale->refresh();
}

void ObjectFields::show(QComboBox* box, const PropertyRow& row) {
    if (box == nullptr) return;
    const QSignalBlocker blocker(box);
    QStringList choices;
    for (const std::wstring& choice : row.choices) choices += qt(choice);
    if (row.key == L"camada")
        std::sort(choices.begin(), choices.end(),
                  [](const QString& a, const QString& b) { return naturalCompare(a, b) < 0; });
    const QColor ink = QApplication::palette().color(QPalette::Text);
    box->clear();
    for (const QString& choice : choices)
        box->addItem(
            row.key == L"camada" ? layerIcon(*m_editor, choice.toStdWString(), ink) : QIcon(),
            choice);
    box->setPlaceholderText(qt(kVaries));
    box->setCurrentIndex(row.varies ? -1 : static_cast<int>(choices.indexOf(qt(row.value))));
    box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + 24);
}

void ObjectFields::chooseColor() {
    if (m_editor == nullptr) return;
    auto* const popup = new ColorPopup(m_shownColor < kTrueColors ? m_shownColor : -1,
                                       ColorPopup::Logical::Yes, m_color);
    connect(popup, &ColorPopup::chosen, this,
            [this](int color) { change(L"cor", std::to_wstring(color)); });
    popup->showAt(m_color->mapToGlobal(QPoint(0, m_color->height())));
}

void ObjectFields::change(const std::wstring& key, const std::wstring& input) {
    if (m_editor == nullptr) return;
    const std::vector<AcDbObjectId> ids = m_editor->selection().ids();
    const Result<void> done = ids.empty() ? changeCurrent(*m_editor, key, input)
                                          : changeProperty(*m_editor, ids, key, input);
    if (!done) emit messageWanted(QString::fromStdString(done.error().message()));
    m_watch.forget();
    refresh();
    emit changed();
}

}  // namespace prancheta::desktop
